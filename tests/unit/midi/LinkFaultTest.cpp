// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <random>

#include "LinkBench.h"

namespace {

using testing::ElementsAre;

enum class Outcome { Completed, TimedOut, Waiting, Gone };

const std::vector<RecorderRequest>& handshake() {
  using enum RecorderRequest;
  static const std::vector<RecorderRequest> kSteps = {Identity, Start,        Version, Card,
                                                      Battery,  AutoPowerOff, DateTime};
  return kSteps;
}

const std::vector<RecorderFault>& faults() {
  using enum RecorderFault;
  static const std::vector<RecorderFault> kFaults = {Silent,       Slow,        WrongLength,
                                                     LongIdentity, Garbage,     SplitAtEveryByte,
                                                     Merged,       Interleaved, Disappear};
  return kFaults;
}

/// The step in which the answer to a request of the handshake is waited for.
std::int64_t stepOf(RecorderRequest request) {
  return 2 * (static_cast<std::int64_t>(request) + 1);
}

Outcome expected(RecorderFault fault, RecorderRequest at) {
  const bool isGuarded = at == RecorderRequest::Identity || at == RecorderRequest::Start;
  const Outcome unanswered = isGuarded ? Outcome::TimedOut : Outcome::Waiting;
  switch (fault) {
    case RecorderFault::Silent:
    case RecorderFault::WrongLength:
    case RecorderFault::Garbage:
      return unanswered;
    case RecorderFault::Slow:
      return isGuarded ? Outcome::TimedOut : Outcome::Completed;
    case RecorderFault::LongIdentity:
      return at == RecorderRequest::Identity ? Outcome::TimedOut : Outcome::Completed;
    case RecorderFault::Disappear:
      return Outcome::Gone;
    default:
      return Outcome::Completed;
  }
}

class LinkFaultTest : public testing::TestWithParam<MIDIPacketKind> {
 protected:
  void expectHealthy() {
    const int connections = bench.connections;
    bench.updates = 0;
    bench.connect();
    EXPECT_EQ(bench.connections, connections + 1);
    EXPECT_EQ(bench.updates, 1);
    EXPECT_EQ(bench.manager.state(), 5);
    EXPECT_FALSE(bench.sequences.isSeqRunning());
    EXPECT_THAT(LinkBench::info()._version, ElementsAre('0', '1', '0', '2'));
    EXPECT_EQ(LinkBench::info()._sdUsedSize, "7.45 GB");
    EXPECT_EQ(LinkBench::info()._sdMaxSize, "29.7 GB");
    EXPECT_THAT(bench.recorder.state().dateTime, ElementsAre(20, 24, 2, 29, 23, 59, 58));
  }
  [[nodiscard]] Outcome outcome() {
    if (!bench.isPluggedIn()) return Outcome::Gone;
    if (bench.sequences.isSeqRunning()) return Outcome::Waiting;
    return bench.recorder.state().dateTime[0] != 0 ? Outcome::Completed : Outcome::TimedOut;
  }

  LinkBench bench{GetParam()};
};
MIXDECK_BOTH_KINDS(LinkFaultTest);

TEST_P(LinkFaultTest, ConnectsToAHealthyRecorder) {
  expectHealthy();
}

TEST_P(LinkFaultTest, FindsARecorderThatIsThereFromTheStart) {
  const auto source = bench.system->addEndpoint(MIDIDirection::Source, "J4 TARN");
  bench.system->addEndpoint(
      MIDIDirection::Destination, "J4 TARN",
      [this](std::span<const std::uint8_t> bytes) { bench.recorder.receive(bytes); });
  bench.recorder.plugIn(
      {[this, source](const auto& bytes) { bench.system->transmit(source, bytes); }, [] {}});
  bench.clock->advance(5.0);
  EXPECT_EQ(bench.updates, 0);
  bench.manager.scanTarnDevice();
  bench.clock->advance(1.5);
  EXPECT_EQ(bench.updates, 1);
}

TEST_P(LinkFaultTest, StopsWhereTheRecorderFailsAndConnectsAfterwards) {
  for (const RecorderRequest at : handshake()) {
    for (const RecorderFault fault : faults()) {
      SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + " in step " +
                   std::to_string(stepOf(at)));
      bench.recorder.state().dateTime = {};
      bench.recorder.misbehave(at, fault);
      bench.connect();
      bench.clock->advance(10.0);
      EXPECT_EQ(outcome(), expected(fault, at));
      EXPECT_EQ(bench.sequences.connectStep(), outcome() == Outcome::Waiting ? stepOf(at) : 0);
      bench.pullOut();
      EXPECT_EQ(bench.manager.state(), 0);
      EXPECT_EQ(bench.clock->running(), 0U);
      bench.recorder.behave();
      expectHealthy();
      bench.pullOut();
    }
  }
}

TEST_P(LinkFaultTest, GoesOnWithSettingsAfterAnyFault) {
  using enum RecorderRequest;
  for (const RecorderRequest at : {SetBattery, SetAutoPowerOff}) {
    for (const RecorderFault fault : faults()) {
      SCOPED_TRACE(static_cast<int>(fault));
      bench.connect();
      bench.recorder.misbehave(at, fault);
      int completions = 0;
      const auto count = [&completions] { ++completions; };
      at == SetBattery ? bench.sequences.startChangeBatteryTypeSeq(1, count)
                       : bench.sequences.startChangeAutoPowOffSeq(2, count);
      bench.clock->advance(2.5);
      EXPECT_FALSE(bench.sequences.isSeqRunning());
      const Outcome outcome = expected(fault, RecorderRequest::Start);
      EXPECT_EQ(completions, outcome == Outcome::Completed ? 1 : 0);
      bench.recorder.behave();
      bench.connect();
      completions = 0;
      bench.sequences.startChangeBatteryTypeSeq(3, count);
      bench.clock->advance(0.5);
      EXPECT_EQ(completions, 1);
      EXPECT_EQ(bench.recorder.state().batteryType, 3);
      bench.pullOut();
    }
  }
}

TEST_P(LinkFaultTest, AnOutputPortThatIsRefusedEndsInATimeOut) {
  bench.system->refusePorts(MIDIDirection::Destination, -1);
  bench.connect();
  EXPECT_EQ(bench.manager.state(), 5);
  EXPECT_TRUE(bench.way.isAsking());
  bench.clock->advance(5.0);
  EXPECT_FALSE(bench.way.isAsking());
  EXPECT_THAT(bench.recorder.received(), testing::IsEmpty());
  EXPECT_EQ(bench.updates, 0);
  bench.pullOut();
  EXPECT_EQ(bench.system->openPorts(), 0U);
  bench.system->refusePorts(MIDIDirection::Destination, 0);
  expectHealthy();
}

TEST_P(LinkFaultTest, SurvivesRemovalAtEveryStep) {
  for (const RecorderRequest at : handshake()) {
    bench.recorder.misbehave(at, RecorderFault::Disappear);
    bench.plugIn();
    bench.clock->advance(1.5);
    EXPECT_FALSE(bench.isPluggedIn());
    EXPECT_FALSE(bench.sequences.isSeqRunning());
    EXPECT_EQ(bench.clock->running(), 0U);
    bench.recorder.behave();
    expectHealthy();
    bench.pullOut();
  }
}

// The handshake's answers have 87 bytes.
TEST_P(LinkFaultTest, SurvivesRemovalAfterEachByteOfTheHandshake) {
  for (std::size_t bytes = 1; bytes <= 87; ++bytes) {
    SCOPED_TRACE(bytes);
    std::size_t left = bytes;
    for (const RecorderRequest at : handshake()) {
      bench.recorder.misbehave(at, RecorderFault::SplitAtEveryByte);
    }
    bench.plugIn();
    const auto source = bench.system->endpoints(MIDIDirection::Source).at(0).reference;
    bench.recorder.plugIn({[&](const auto& piece) {
                             bench.system->transmit(source, piece);
                             if (--left == 0) bench.pullOut();
                           },
                           [] {}});
    bench.clock->advance(1.5);
    EXPECT_EQ(left, 0U);
    EXPECT_EQ(bench.manager.state(), 0);
    EXPECT_FALSE(bench.sequences.isSeqRunning());
    bench.recorder.behave();
    expectHealthy();
    bench.pullOut();
  }
}

/// A system that does not keep to the rules for what arrives.
class BrokenSystemTest : public LinkFaultTest {
 protected:
  using Bytes = RecorderMessages::Bytes;

  /// Plugs a recorder in whose bytes go to the link through `deliver`.
  void plugIn(const std::function<void(MIDIObjectRef, const Bytes&)>& deliver) {
    bench.plugIn();
    const auto source = bench.system->endpoints(MIDIDirection::Source).at(0).reference;
    bench.recorder.plugIn(
        {[deliver, source](const Bytes& bytes) { deliver(source, bytes); }, [] {}});
  }
  void deliverBytes(MIDIObjectRef source, const Bytes& bytes) {
    const MIDIPacket packet{0, bytes};
    bench.system->deliver(source, MIDIPacketList(&packet, 1));
  }
  void deliverWords(MIDIObjectRef source, const std::vector<std::uint32_t>& words) {
    const MIDIEventPacket packet{0, words};
    bench.system->deliver(source, MIDIEventList(&packet, 1));
  }
  /// All of the bytes in one packet.
  void deliverAtOnce(MIDIObjectRef source, const Bytes& bytes) {
    if (GetParam() == MIDIPacketKind::BytePackets) {
      deliverBytes(source, bytes);
      return;
    }
    std::vector<std::uint32_t> all;
    for (const auto& words : MIDIWireEvents().feed(bytes)) {
      all.insert(all.end(), words.begin(), words.end());
    }
    deliverWords(source, all);
  }
  /// The bytes in many packets, with a clock packet after each.
  void deliverWithClock(MIDIObjectRef source, const Bytes& bytes) {
    if (GetParam() == MIDIPacketKind::BytePackets) {
      for (const std::uint8_t byte : bytes) {
        deliverBytes(source, {byte});
        deliverBytes(source, {0xF8});
      }
      return;
    }
    for (const auto& words : MIDIWireEvents().feed(bytes)) {
      deliverWords(source, words);
      deliverWords(source, {0x10F80000});
    }
  }
};
MIXDECK_BOTH_KINDS(BrokenSystemTest);

// Two messages in one packet: the bytes become one message that nobody knows, of the events the
// first is taken.
TEST_P(BrokenSystemTest, SurvivesMessagesMergedInOnePacket) {
  for (const RecorderRequest at : handshake()) {
    SCOPED_TRACE(stepOf(at));
    bench.recorder.state().dateTime = {};
    bench.recorder.misbehave(at, RecorderFault::Merged);
    plugIn([this](auto source, const auto& bytes) { deliverAtOnce(source, bytes); });
    bench.clock->advance(10.0);
    const bool isLost = GetParam() == MIDIPacketKind::BytePackets;
    EXPECT_EQ(outcome(), isLost ? expected(RecorderFault::Silent, at) : Outcome::Completed);
    bench.pullOut();
    bench.recorder.behave();
    expectHealthy();
    bench.pullOut();
  }
}

TEST_P(BrokenSystemTest, SurvivesClockPacketsInsideMessages) {
  plugIn([this](auto source, const auto& bytes) { deliverWithClock(source, bytes); });
  bench.clock->advance(10.0);
  EXPECT_NE(outcome(), Outcome::Completed);
  EXPECT_EQ(bench.manager.state(), 5);
  bench.pullOut();
  expectHealthy();
}

TEST_P(LinkFaultTest, ShowsAReportThatNobodyAskedFor) {
  expectHealthy();
  bench.recorder.state().hasCard = false;
  bench.recorder.reportCard();
  bench.clock->advance(0.1);
  EXPECT_EQ(bench.updates, 2);
  EXPECT_EQ(LinkBench::info()._sdUsedSize, "-- GB");
}

TEST_P(LinkFaultTest, EndsTheLinkWhenAnotherDeviceGoes) {
  const auto other = bench.system->plug("Some keyboard");
  expectHealthy();
  bench.system->unplug(other);
  EXPECT_EQ(bench.manager.state(), 0);
  EXPECT_EQ(bench.disconnections, 1);
  bench.system->plug("Some keyboard");
  bench.clock->advance(1.5);
  EXPECT_EQ(bench.manager.state(), 5);
  EXPECT_EQ(bench.updates, 2);
}

TEST_P(LinkFaultTest, KeepsTheLinkWhenAnotherDeviceComes) {
  expectHealthy();
  bench.system->plug("Some keyboard");
  EXPECT_EQ(bench.manager.state(), 5);
  EXPECT_EQ(bench.disconnections, 0);
}

TEST_P(LinkFaultTest, OutlivesTenThousandRandomEvents) {
  std::mt19937 random(20260131);
  std::vector<InMemoryMIDISystem::Plug> others;
  const auto pick = [&random](std::size_t count) { return random() % count; };
  for (int i = 0; i < 10000; ++i) {
    switch (pick(9)) {
      case 0:
      case 1:
      case 2:
        bench.plugIn();
        break;
      case 3:
        bench.pullOut();
        break;
      case 4:
        bench.recorder.misbehave(static_cast<RecorderRequest>(pick(9)),
                                 static_cast<RecorderFault>(pick(10)));
        break;
      case 5:
        others.push_back(bench.system->plug(pick(2) == 0 ? "J4" : "Keyboard"));
        break;
      case 6:
        if (others.empty()) break;
        bench.system->unplug(others.back());
        others.pop_back();
        break;
      case 7:
        bench.recorder.reportCard();
        break;
      default:
        bench.sequences.startChangeBatteryTypeSeq(static_cast<int>(pick(4)), {});
        break;
    }
    bench.clock->advance(static_cast<double>(pick(3000)) / 1000.0);
    ASSERT_LE(bench.system->openPorts(), 2U);
    ASSERT_LE(bench.clock->running(), 30U);
  }
  EXPECT_GT(bench.connections, 100);
  EXPECT_GT(bench.disconnections, 100);
  EXPECT_GT(bench.updates, 20) << "whole records; most of these recorders fail";
  bench.pullOut();
  bench.recorder.behave();
  bench.recorder.state() = {};
  expectHealthy();
}

}  // namespace
