// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include "FakeAlsa.h"
#include "midi/alsa/AlsaMIDISystem.h"
#include "support/EventLoop.h"
#include "support/LogLines.h"
#include "support/SteppedMIDIClock.h"

/// Writes down what a system tells.
class AlsaTold final : public MIDISystemClient {
 public:
  void setupChanged(std::int32_t messageID) override { changes.push_back(messageID); }
  void received(MIDIPacketList packets) override {
    for (const MIDIPacket& packet : packets) {
      pieces.emplace_back(packet.bytes.begin(), packet.bytes.end());
    }
  }
  void received(MIDIEventList /*events*/) override {}

  std::vector<std::int32_t> changes;
  std::vector<std::vector<std::uint8_t>> pieces;
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
  AlsaTold told;
  std::shared_ptr<AlsaMIDISystem> system;
  MIDIObjectRef client = 0;
};
