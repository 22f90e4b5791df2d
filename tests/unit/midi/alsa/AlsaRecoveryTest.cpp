// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "AlsaRecoveryTest.h"

#include <gmock/gmock.h>

#include <alsa/asoundlib.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <string>

#include "base/EndPatience.h"
#include "recorder-sim/RawDeviceEnd.h"
#include "recorder-sim/SequencerEnd.h"
#include "support/Confinement.h"

using testing::ElementsAre;

namespace {

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

TEST_F(AlsaRecoveryTest, AnnouncementsThatAreRefusedAreAskedForAgain) {
  expectNewsLater(fake.announceError);
  fake.ports.pop_back();
  FakeAlsa::announce(SND_SEQ_EVENT_CLIENT_EXIT, kRecorder + 4, 0);
  ASSERT_TRUE(EventLoop::runUntil([] { return FakeAlsa::waiting() == 0; }));
  clock->advance(0.2);
  EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U) << "and from then on told";
}

TEST_F(AlsaRecoveryTest, APortForAnnouncementsThatIsRefusedIsAskedForAgain) {
  expectNewsLater(fake.firstPortError);
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

TEST_F(AlsaRecoveryTest, ItsEndWaitsNoLongerThanThatOfTheProgram) {
  bool isAsked = false;
  const EndPatience end([&isAsked] {
    isAsked = true;
    return EndPatience::kWhole;
  });
  isAsked = false;
  system.reset();
  EXPECT_TRUE(isAsked);
}

TEST_F(AlsaRecoveryTest, WithoutAThreadAClientIsClosedHere) {
  const MIDIObjectRef port = usedOutput();
  const int status = Confinement::run([this, port] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    system->dispose(port);
    if (fake.opened != 2 || FakeAlsa::open() != 1) return 3;
    usedOutput();
    return fake.subscribed.size() == 2 ? 0 : 4;
  });
  EXPECT_EQ(status, 0);
}

// The second port of a device of groups sends the end of what the first began.
TEST_F(AlsaRecoveryTest, EventsOfTwoPortsOfAConnectedClientGoThroughOneReader) {
  const auto port = system->createPort(client, MIDIDirection::Source, "Input");
  system->connectSource(port.port, recorder(MIDIDirection::Source));
  FakeAlsa::send(kRecorder, 0, {0xF0, 0x52});
  FakeAlsa::send(kRecorder, 1, {0xF7});
  ASSERT_TRUE(EventLoop::runUntil([] { return FakeAlsa::waiting() == 0; }));
  EXPECT_THAT(told.pieces, ElementsAre(ElementsAre(0xF0, 0x52), ElementsAre(0xF7)));
}

TEST_F(AlsaRecoveryTest, TwoPortsOfAClientThatAreBothConnectedHaveAReaderEach) {
  fake.ports.push_back({kRecorder, 1, "J4 TARN", "J4 TARN MIDI 2"});
  FakeAlsa::announce(SND_SEQ_EVENT_PORT_START, kRecorder, 1);
  ASSERT_TRUE(EventLoop::runUntil([] { return FakeAlsa::waiting() == 0; }));
  clock->advance(0.2);
  const auto sources = system->endpoints(MIDIDirection::Source);
  ASSERT_EQ(sources.size(), 2U);
  const auto port = system->createPort(client, MIDIDirection::Source, "Input");
  for (const MIDIEndpoint& source : sources) system->connectSource(port.port, source.reference);
  FakeAlsa::send(kRecorder, 0, {0xF0, 0x52});
  FakeAlsa::send(kRecorder, 1, {0xF7});
  ASSERT_TRUE(EventLoop::runUntil([] { return FakeAlsa::waiting() == 0; }));
  EXPECT_THAT(told.pieces, ElementsAre(ElementsAre(0xF0, 0x52))) << "an end without a beginning";
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

class RawDeviceEndTest : public testing::Test {
 protected:
  void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  int argc = 1;
  std::string name = "test";
  std::array<char*, 2> argv{name.data(), nullptr};
  const QCoreApplication application{argc, argv.data()};
  const LogLines log;
};

/// A device file that can be opened and takes nothing.
TEST_F(RawDeviceEndTest, WhatCannotBeWrittenIsALineAndInARowNoMore) {
  RawDeviceEnd end("/dev/full", RawDeviceEnd::Content::Bytes, {[] {}, [] {}, {}});
  ASSERT_EQ(end.plugIn(), "");
  for (int i = 0; i < 2; ++i) end.transmit(std::vector<std::uint8_t>{0xF0, 0x52, 0xF7});
  EXPECT_THAT(log.get(), ElementsAre("What the recorder sends is lost (No space left on device)."));
}

/// One that says that there is something, and fails to give it.
TEST_F(RawDeviceEndTest, AReadErrorThatStaysPullsTheRecorderOutAndIsNotReadForEver) {
  int pluggedIn = 0;
  int pulledOut = 0;
  RawDeviceEnd end("/proc/self/mem", RawDeviceEnd::Content::Bytes,
                   {[&] { ++pluggedIn; }, [&] { ++pulledOut; }, {}});
  ASSERT_EQ(end.plugIn(), "");
  ASSERT_TRUE(EventLoop::runUntil([&] { return pulledOut == 1; }));
  for (int i = 0; i < 100; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(pluggedIn, 1);
  EXPECT_EQ(pulledOut, 1);
}

}  // namespace
