// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <alsa/asoundlib.h>

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
    create();
  }
  void create() {
    system = AlsaMIDISystem::create({"/dev/null", clock, MIDIPacketKind::BytePackets});
    client = system->createClient("test", told);
  }
  /// Another device, which is announced, and the time to see it.
  void plugInAnother() {
    fake.ports.push_back({kRecorder + 4, 0, "Keys", "Keys out"});
    FakeAlsa::announce(SND_SEQ_EVENT_PORT_START, kRecorder + 4, 0);
    ASSERT_TRUE(EventLoop::runUntil([] { return FakeAlsa::waiting() == 0; }));
    clock->advance(0.2);
  }
  /// A new system that hears no news: it says so once, and does when that is mended.
  void expectNewsLater(int& error) {
    error = -ENOMEM;
    create();
    plugInAnother();
    clock->advance(2.0);
    EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 1U);
    EXPECT_THAT(log.get(), testing::ElementsAre(
                               "What is plugged in is not heard of yet (Cannot allocate memory)."));
    fake.mend();
    clock->advance(1.2);
    EXPECT_EQ(system->endpoints(MIDIDirection::Source).size(), 2U) << "plugged in meanwhile";
    EXPECT_EQ(clock->running(), 0U) << "nothing more is tried";
  }
  void loseSequencer() {
    fake.fail(-ENODEV);
    ASSERT_TRUE(EventLoop::runUntil([this] { return !system->unavailableReason().empty(); }));
  }
  void TearDown() override {
    FakeAlsa::release();
    system.reset();
    EXPECT_TRUE(EventLoop::runUntil([] { return FakeAlsa::open() == 0; }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
