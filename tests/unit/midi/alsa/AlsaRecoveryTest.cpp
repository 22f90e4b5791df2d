// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <alsa/asoundlib.h>

#include <QCoreApplication>
#include <algorithm>
#include <cerrno>
#include <thread>

#include "FakeAlsa.h"
#include "midi/alsa/AlsaMIDISystem.h"
#include "recorder-sim/SequencerEnd.h"
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
  void TearDown() override {
    FakeAlsa::release();
    system.reset();
    EXPECT_TRUE(EventLoop::runUntil([] { return FakeAlsa::open() == 0; }));
  }
  /// A port that has sent something to the recorder.
  MIDIObjectRef usedOutput() {
    const auto port = system->createPort(client, MIDIDirection::Destination, "Output");
    send(port.port);
    return port.port;
  }
  void send(MIDIObjectRef port) {
    const std::vector<std::uint8_t> bytes{0xF0, 0x52, 0xF7};
    const MIDIPacket packet{0, bytes};
    system->send(port, recorder(MIDIDirection::Destination), MIDIPacketList(&packet, 1));
  }
  [[nodiscard]] static bool wasHeldUpHere() {
    return std::ranges::count(FakeAlsa::heldUp(), std::this_thread::get_id()) > 0;
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

// The recorder is still plugged in and takes nothing; the kernel waits for it.
TEST_F(AlsaRecoveryTest, APortWhoseDeviceHangsIsEndedElsewhere) {
  const MIDIObjectRef port = usedOutput();
  FakeAlsa::hang();
  system->dispose(port);
  ASSERT_TRUE(EventLoop::runUntil([] { return !FakeAlsa::heldUp().empty(); }));
  EXPECT_FALSE(wasHeldUpHere());
  EXPECT_EQ(system->unavailableReason(), "");
  EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U);
  clock->advance(1.0);
  EXPECT_TRUE(told.changes.empty()) << "there is still the same";
}

TEST_F(AlsaRecoveryTest, WhileAPortIsBeingEndedTheNextOneDoesNotWaitEither) {
  const MIDIObjectRef port = usedOutput();
  FakeAlsa::hang();
  system->dispose(port);
  ASSERT_TRUE(EventLoop::runUntil([] { return !FakeAlsa::heldUp().empty(); }));
  const auto next = system->createPort(client, MIDIDirection::Destination, "Output");
  ASSERT_EQ(next.status, 0);
  send(next.port);
  EXPECT_FALSE(wasHeldUpHere());
  EXPECT_EQ(fake.subscribed.size(), 1U);
  FakeAlsa::release();
  ASSERT_TRUE(EventLoop::runUntil([] { return FakeAlsa::open() == 1; }));
  EXPECT_TRUE(EventLoop::runUntil([&] {
    send(next.port);
    return fake.subscribed.size() == 2;
  }));
}

TEST_F(AlsaRecoveryTest, PortsThatStayGoOnWithTheNewClient) {
  const auto input = system->createPort(client, MIDIDirection::Source, "Input");
  system->connectSource(input.port, recorder(MIDIDirection::Source));
  FakeAlsa::hang();
  system->dispose(usedOutput());
  EXPECT_EQ(fake.opened, 2);
  EXPECT_THAT(fake.heard, ElementsAre(kRecorder, kRecorder));
}

TEST_F(AlsaRecoveryTest, WhereThePortsThatStayAreRefusedTheSequencerIsGone) {
  const auto input = system->createPort(client, MIDIDirection::Source, "Input");
  system->connectSource(input.port, recorder(MIDIDirection::Source));
  const MIDIObjectRef output = usedOutput();
  fake.heard.clear();
  fake.portError = -ENOMEM;
  system->dispose(output);
  EXPECT_THAT(system->unavailableReason(), testing::HasSubstr("Cannot allocate memory"));
  EXPECT_TRUE(fake.heard.empty()) << "through another port";
  fake.mend();
  clock->advance(2.0);
  EXPECT_EQ(system->unavailableReason(), "");
}

TEST_F(AlsaRecoveryTest, APortThatHoldsNoDeviceEndsWithoutMuchAdo) {
  const auto unused = system->createPort(client, MIDIDirection::Destination, "Output");
  system->dispose(unused.port);
  EXPECT_EQ(fake.opened, 1);
}

TEST_F(AlsaRecoveryTest, WithoutANewClientTheSequencerIsGoneUntilThereIsOne) {
  const MIDIObjectRef port = usedOutput();
  fake.openError = -EBUSY;
  system->dispose(port);
  clock->advance(0.5);
  EXPECT_FALSE(system->unavailableReason().empty());
  EXPECT_TRUE(system->endpoints(MIDIDirection::Source).empty());
  fake.mend();
  clock->advance(2.0);
  EXPECT_EQ(system->unavailableReason(), "");
  EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U);
}

TEST_F(AlsaRecoveryTest, TheEndOfTheProgramIsNotHeldUp) {
  usedOutput();
  FakeAlsa::hang();
  system.reset();
  EXPECT_EQ(FakeAlsa::open(), 1) << "it has not been waited for";
  EXPECT_FALSE(wasHeldUpHere());
}

// Else a second window would take them for devices, and its links would end with the first's.
TEST_F(AlsaRecoveryTest, OtherProgramsAreShownNoPortOfOurs) {
  system->createPort(client, MIDIDirection::Source, "Input");
  system->createPort(client, MIDIDirection::Destination, "Output");
  ASSERT_EQ(fake.capabilities.size(), 3U);
  for (const unsigned caps : fake.capabilities) {
    EXPECT_NE(caps & SND_SEQ_PORT_CAP_NO_EXPORT, 0U);
  }
}

/// The simulator's end of the sequencer.
class SequencerEndTest : public AlsaRecoveryTest {
 protected:
  void SetUp() override {
    AlsaRecoveryTest::SetUp();
    const CableEnd::Told heard{[this] { ++pluggedIn; }, [this] { ++pulledOut; }, {}};
    end = std::make_unique<SequencerEnd>("J4 TARN", false, heard, "/dev/null");
  }
  void TearDown() override {
    end.reset();
    AlsaRecoveryTest::TearDown();
  }

  int pluggedIn = 0;
  int pulledOut = 0;
  std::unique_ptr<SequencerEnd> end;
};

TEST_F(SequencerEndTest, AReadErrorThatStaysPullsTheRecorderOutAndIsNotReadForEver) {
  ASSERT_EQ(end->plugIn(), "");
  fake.fail(-ENODEV);
  ASSERT_TRUE(EventLoop::runUntil([this] { return pulledOut == 1; }));
  const int reads = fake.reads;
  for (int i = 0; i < 100; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(fake.reads, reads);
  fake.mend();
  EXPECT_EQ(end->plugIn(), "");
  EXPECT_EQ(pluggedIn, 2);
}

}  // namespace
