// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaMIDISystem.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <filesystem>
#include <fstream>

#include "midi/alsa/DeviceNodeWatch.h"
#include "support/EventLoop.h"
#include "support/SteppedMIDIClock.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

class Told final : public MIDISystemClient {
 public:
  void setupChanged(std::int32_t /*messageID*/) override { ++changes; }
  void received(MIDIPacketList /*packets*/) override {}
  void received(MIDIEventList /*events*/) override {}

  int changes = 0;
};

/// A machine whose node for the sequencer is in a folder of the test's own.
class AlsaAbsenceTest : public testing::Test {
 protected:
  std::shared_ptr<AlsaMIDISystem> create() {
    auto system = AlsaMIDISystem::create({node.string(), clock, {}});
    system->setAvailabilityObserver([this] { ++observed; });
    return system;
  }
  /// Lets the event loop run until the observer has been told so often.
  [[nodiscard]] bool isTold(int times) const {
    return EventLoop::runUntil([&] { return observed >= times; }) && observed == times;
  }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
  QCoreApplication application{argc, argv};
  TemporaryFolder folder;
  fs::path node = folder.path() / "snd" / "seq";
  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  Told told;
  int observed = 0;
};

TEST_F(AlsaAbsenceTest, WithoutASequencerNothingIsThereAndNothingFails) {
  const auto system = create();
  EXPECT_EQ(system->unavailableReason(),
            "There is no ALSA sequencer here (" + node.string() + ").");
  EXPECT_EQ(system->packetKind(), MIDIPacketKind::BytePackets);
  EXPECT_THAT(system->endpoints(MIDIDirection::Source), testing::IsEmpty());
  const MIDIObjectRef client = system->createClient("TARN Riffhouse", told);
  EXPECT_NE(client, 0U);
  const auto port = system->createPort(client, MIDIDirection::Source, "Input");
  EXPECT_NE(port.status, 0);
  EXPECT_EQ(port.port, 0U);
  const std::uint8_t byte = 0xF7;
  const MIDIPacket packet{0, {&byte, 1}};
  system->connectSource(1, 2);
  system->send(1, 2, MIDIPacketList(&packet, 1));
  system->disconnectSource(1, 2);
  system->flushOutput(2);
  fs::create_directory(node.parent_path());
  std::ofstream(node) << "no device";
  EXPECT_TRUE(isTold(1));
  EXPECT_EQ(told.changes, 0) << "another attempt that fails is no news for a client";
  system->dispose(client);
}

TEST_F(AlsaAbsenceTest, IsTriedAgainWhenTheNodeAppears) {
  fs::create_directory(node.parent_path());
  const auto system = create();
  std::ofstream(node) << "no device";
  EXPECT_TRUE(isTold(1));
  EXPECT_EQ(system->unavailableReason(),
            "The ALSA sequencer cannot be used (" + node.string() + ": No such device).");
  fs::remove(node);
  EXPECT_TRUE(isTold(2));
}

TEST_F(AlsaAbsenceTest, IsTriedAgainWhenItsFolderAppears) {
  const auto system = create();
  fs::create_directory(node.parent_path());
  QCoreApplication::processEvents();
  EXPECT_EQ(observed, 0) << "nothing is different yet";
  std::ofstream(node) << "no device";
  EXPECT_TRUE(isTold(1));
}

TEST_F(AlsaAbsenceTest, AFileBesideItIsNoReasonToTryAgain) {
  fs::create_directory(node.parent_path());
  int attempts = 0;
  const DeviceNodeWatch watch(node.string(), [&attempts] { ++attempts; });
  std::ofstream(node.parent_path() / "timer") << "something else";
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(attempts, 0);
  std::ofstream(node) << "no device";
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
  EXPECT_GE(attempts, 1);
}

}  // namespace
