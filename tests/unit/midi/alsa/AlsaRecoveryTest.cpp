// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <cerrno>

#include "FakeAlsa.h"
#include "midi/alsa/AlsaMIDISystem.h"
#include "support/EventLoop.h"
#include "support/LogLines.h"
#include "support/SteppedMIDIClock.h"

using testing::ElementsAre;

namespace {

class Told final : public MIDISystemClient {
 public:
  void setupChanged(std::int32_t messageID) override { changes.push_back(messageID); }
  void received(MIDIPacketList /*packets*/) override {}
  void received(MIDIEventList /*events*/) override {}

  std::vector<std::int32_t> changes;
};

/// A sequencer that goes wrong; the recorder is plugged in.
class AlsaRecoveryTest : public testing::Test {
 protected:
  static constexpr int kRecorder = 24;

  void SetUp() override {
    FakeAlsa::reset();
    fake.ports = {{kRecorder, 0, "J4 TARN", "J4 TARN MIDI 1"}};
    // Any node that can be opened: behind it is the fake.
    system = AlsaMIDISystem::create({"/dev/null", clock, MIDIPacketKind::BytePackets});
    client = system->createClient("test", told);
  }
  void loseSequencer() {
    fake.fail(-ENODEV);
    ASSERT_TRUE(EventLoop::runUntil([this] { return !system->unavailableReason().empty(); }));
  }
  [[nodiscard]] MIDIObjectRef recorder(MIDIDirection direction) const {
    return system->endpoints(direction).front().reference;
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QCoreApplication application{argc, argv};
  LogLines log;
  FakeAlsa& fake = FakeAlsa::get();
  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  Told told;
  std::shared_ptr<AlsaMIDISystem> system;
  MIDIObjectRef client = 0;
};

TEST_F(AlsaRecoveryTest, ALostSequencerWhoseNodeStaysIsOpenedAgain) {
  ASSERT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U);
  fake.openError = -ENODEV;
  loseSequencer();
  EXPECT_TRUE(system->endpoints(MIDIDirection::Source).empty());
  clock->advance(3.5);
  EXPECT_FALSE(system->unavailableReason().empty());
  fake.mend();
  clock->advance(1.0);
  EXPECT_EQ(system->unavailableReason(), "");
  EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U);
  EXPECT_THAT(told.changes,
              ElementsAre(MIDISystemClient::kObjectRemoved, MIDISystemClient::kObjectAdded));
  EXPECT_EQ(clock->running(), 0U) << "nothing more is tried";
}

TEST_F(AlsaRecoveryTest, ASourceThatIsRefusedIsConnectedLater) {
  const auto port = system->createPort(client, MIDIDirection::Source, "Input");
  fake.connectFromError = -EBUSY;
  system->connectSource(port.port, recorder(MIDIDirection::Source));
  clock->advance(2.5);
  EXPECT_THAT(log.get(), ElementsAre("A MIDI source is not heard yet (Device or resource busy)."));
  fake.mend();
  clock->advance(1.0);
  EXPECT_THAT(fake.heard, ElementsAre(kRecorder));
  EXPECT_EQ(clock->running(), 0U);
}

TEST_F(AlsaRecoveryTest, ASourceThatIsGivenUpIsNotTriedAgain) {
  const auto port = system->createPort(client, MIDIDirection::Source, "Input");
  fake.connectFromError = -EBUSY;
  system->connectSource(port.port, recorder(MIDIDirection::Source));
  system->disconnectSource(port.port, recorder(MIDIDirection::Source));
  fake.mend();
  clock->advance(2.0);
  EXPECT_TRUE(fake.heard.empty());
}

TEST_F(AlsaRecoveryTest, ADestinationThatIsRefusedIsTriedWithTheNextMessage) {
  const auto port = system->createPort(client, MIDIDirection::Destination, "Output");
  const std::vector<std::uint8_t> bytes{0xF0, 0x52, 0xF7};
  const MIDIPacket packet{0, bytes};
  fake.connectToError = -EBUSY;
  for (int i = 0; i < 2; ++i) {
    system->send(port.port, recorder(MIDIDirection::Destination), MIDIPacketList(&packet, 1));
    fake.mend();
  }
  system->send(port.port, recorder(MIDIDirection::Destination), MIDIPacketList(&packet, 1));
  EXPECT_THAT(fake.subscribed, ElementsAre(kRecorder));
  EXPECT_EQ(fake.written, 3);
  EXPECT_THAT(log.get(),
              ElementsAre("A MIDI destination is not open yet (Device or resource busy)."));
}

}  // namespace
