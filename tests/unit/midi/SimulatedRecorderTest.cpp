// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/SimulatedRecorder.h"

#include <gmock/gmock.h>

#include "LinkBench.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

/// A recorder alone at the end of a cable.
class SimulatedRecorderTest : public testing::Test {
 protected:
  SimulatedRecorderTest() {
    recorder.plugIn({[this](const Bytes& bytes) { wire.push_back(bytes); }, [this] { ++pulled; }});
  }
  void ask(const Bytes& request) {
    recorder.receive(request);
    clock.advance(0.5);
  }

  SteppedMIDIClock clock;
  SimulatedRecorder recorder{clock};
  std::vector<Bytes> wire;
  int pulled = 0;
};

const Bytes kIdentityRequest = {0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7};
const Bytes kIdentity = {0xF0, 0x7E, 0x00, 0x06, 0x02, 0x10, 0x20, 0x30,
                         0x40, '0',  '1',  '0',  '0',  0x00, 0xF7};

TEST_F(SimulatedRecorderTest, AnswersEveryRequest) {
  const std::vector<std::pair<Bytes, Bytes>> exchanges = {
      {kIdentityRequest, kIdentity},
      {{0xF0, 0x52, 0, 0, 0x52, 0xF7}, {0xF0, 0x52, 0, 0, 0x00, 0x15, 0xF7}},
      {{0xF0, 0x52, 0, 0, 0x10, 0x01, 0xF7},
       {0xF0, 0x52, 0, 0, 0x11, 0x01, '0', '1', '0', '2', 0xF7}},
      {{0xF0, 0x52, 0, 0, 0x46, 0x01, 0xF7}, {0xF0, 0x52, 0, 0, 0x45, 0x01, 0x00, 0xF7}},
      {{0xF0, 0x52, 0, 0, 0x46, 0x02, 0xF7}, {0xF0, 0x52, 0, 0, 0x45, 0x02, 0x01, 0xF7}},
      {{0xF0, 0x52, 0, 0, 0x31, 0x00, 20, 24, 2, 29, 23, 59, 58, 0xF7},
       {0xF0, 0x52, 0, 0, 0x00, 0x0F, 0xF7}},
      {{0xF0, 0x52, 0, 0, 0x31, 0x01, 0x02, 0xF7}, {0xF0, 0x52, 0, 0, 0x00, 0x10, 0xF7}},
      {{0xF0, 0x52, 0, 0, 0x31, 0x02, 0x03, 0xF7}, {0xF0, 0x52, 0, 0, 0x00, 0x11, 0xF7}}};
  for (const auto& [request, answer] : exchanges) {
    wire.clear();
    ask(request);
    EXPECT_THAT(wire, ElementsAre(answer));
  }
  EXPECT_THAT(recorder.state().dateTime, ElementsAre(20, 24, 2, 29, 23, 59, 58));
  EXPECT_EQ(recorder.state().batteryType, 2);
  EXPECT_EQ(recorder.state().autoPowerOff, 3);
}

TEST_F(SimulatedRecorderTest, TellsOfItsCard) {
  recorder.state().usedBytes = 781706;
  recorder.state().capacityBytes = 1ULL << 30;
  ask({0xF0, 0x52, 0, 0, 0x67, 0x01, 0xF7});
  EXPECT_THAT(
      wire, ElementsAre(Bytes{0xF0, 0x52, 0, 0, 0x67, 0, 1, 5, 12, 33, 0x0A, 0x5B, 0x2F, 0, 0,   0,
                              0,    0,    0, 0, 0,    0, 0, 0, 4,  0,  0,    0,    0,    0, 0xF7}));
}

TEST_F(SimulatedRecorderTest, TellsOfNoCard) {
  recorder.state().hasCard = false;
  recorder.reportCard();
  clock.advance(0.5);
  Bytes expected(31, 0x00);
  std::ranges::copy(Bytes{0xF0, 0x52, 0, 0, 0x67}, expected.begin());
  expected.back() = 0xF7;
  EXPECT_THAT(wire, ElementsAre(expected));
}

TEST_F(SimulatedRecorderTest, JoinsTheRequestFromPieces) {
  for (const std::uint8_t byte : kIdentityRequest) ask({byte});
  EXPECT_THAT(wire, ElementsAre(kIdentity));
  EXPECT_THAT(recorder.received(), ElementsAre(kIdentityRequest));
}

TEST_F(SimulatedRecorderTest, DoesNotAnswerWhatItDoesNotKnow) {
  ask({0xF0, 0x52, 0, 0, 0x10, 0x02, 0xF7});
  ask({0xF0, 0xF7});
  ask({0xF0, 0x52, 0, 0, 0x31, 0x01, 0xF7});
  EXPECT_THAT(wire, IsEmpty());
  EXPECT_EQ(recorder.received().size(), 3U);
}

TEST_F(SimulatedRecorderTest, DoesNotAnswerAfterItWasPulledOut) {
  recorder.receive(kIdentityRequest);
  recorder.pullOut();
  clock.advance(1.0);
  EXPECT_THAT(wire, IsEmpty());
  EXPECT_EQ(clock.running(), 0U);
}

TEST_F(SimulatedRecorderTest, MisbehavesAsTold) {
  const auto answersTo = [this](RecorderFault fault) {
    wire.clear();
    recorder.misbehave(RecorderRequest::Identity, fault);
    ask(kIdentityRequest);
    return wire;
  };
  Bytes longer = kIdentity;
  longer.insert(longer.end() - 1, 0x00);
  EXPECT_THAT(answersTo(RecorderFault::Silent), IsEmpty());
  EXPECT_THAT(answersTo(RecorderFault::WrongLength), ElementsAre(longer));
  EXPECT_THAT(answersTo(RecorderFault::LongIdentity), ElementsAre(longer));
  EXPECT_EQ(answersTo(RecorderFault::SplitAtEveryByte).size(), kIdentity.size());
  EXPECT_EQ(answersTo(RecorderFault::Merged).at(0).size(), kIdentity.size() + 31);
  EXPECT_EQ(answersTo(RecorderFault::Interleaved).at(0).size(), 5 + 2 * kIdentity.size());
  EXPECT_NE(answersTo(RecorderFault::Garbage).at(0), kIdentity);
  EXPECT_THAT(answersTo(RecorderFault::Slow), IsEmpty());
  clock.advance(2.5);
  EXPECT_THAT(wire, ElementsAre(kIdentity));
  EXPECT_THAT(answersTo(RecorderFault::Disappear), IsEmpty());
  EXPECT_EQ(pulled, 1);
  recorder.behave();
  ask(kIdentityRequest);
  EXPECT_THAT(wire, ElementsAre(kIdentity));
}

class InMemoryMIDISystemTest : public testing::TestWithParam<MIDIPacketKind> {};
MIXDECK_BOTH_KINDS(InMemoryMIDISystemTest);

TEST_P(InMemoryMIDISystemTest, CarriesALongMessageBothWays) {
  for (const std::size_t size : {600U, 15000U}) {
    LinkBench bench(GetParam());
    bench.connect();
    Bytes message(size, 0x2A);
    message.front() = 0xF0;
    message.back() = 0xF7;
    bench.manager.send(message.data(), static_cast<std::int64_t>(size));
    EXPECT_EQ(bench.recorder.received().back(), message);
    Bytes delivered;
    bench.sequences.exeCommand(nullptr, 0, [&](const std::uint8_t* bytes, std::int32_t length) {
      delivered.assign(bytes, bytes + length);
      return true;
    });
    const auto source = bench.system->endpoints(MIDIDirection::Source).at(0).reference;
    bench.system->transmit(source, message);
    delivered.push_back(0xF7);
    EXPECT_EQ(delivered, message);
  }
}

TEST_P(InMemoryMIDISystemTest, KeepsNoPortsAfterALink) {
  LinkBench bench(GetParam());
  EXPECT_EQ(bench.system->clientName(), "TARN Riffhouse");
  bench.connect();
  EXPECT_EQ(bench.system->openPorts(), 2U);
  bench.pullOut();
  EXPECT_EQ(bench.system->openPorts(), 0U);
}

TEST_P(InMemoryMIDISystemTest, KeepsAtMostOnePortWithoutInput) {
  LinkBench bench(GetParam());
  bench.system->refusePorts(MIDIDirection::Source, -1);
  for (int i = 0; i < 5; ++i) {
    bench.connect();
    EXPECT_EQ(bench.system->openPorts(), 1U);
    EXPECT_FALSE(bench.sequences.isSeqRunning() && bench.sequences.connectStep() != 2);
    bench.pullOut();
  }
}

}  // namespace
