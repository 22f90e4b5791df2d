// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "RecordingMIDISystem.h"
#include "base/Log.h"
#include "midi/AbsentMIDISystem.h"
#include "midi/MIDICommon.h"
#include "midi/MIDILog.h"
#include "midi/MIDIManager.h"
#include "midi/MIDIPlatform.h"
#include "midi/MIDISequenceManager.h"
#include "midi/MIDIWireEvents.h"
#include "midi/QtMIDIClock.h"
#include "support/PacketKinds.h"
#include "support/SteppedMIDIClock.h"

/// Puts a platform in place for one test, and takes what is logged away from the output.
class InstalledPlatform {
 public:
  InstalledPlatform(std::shared_ptr<MIDISystem> system, std::shared_ptr<MIDIClock> clock) {
    MIDIPlatform::install(std::move(system), std::move(clock));
    MIDILog::setSink([this](std::string_view text) { log += text; });
    Log::setSink([this](std::string_view line) { lines.emplace_back(line); });
  }
  InstalledPlatform(const InstalledPlatform&) = delete;
  InstalledPlatform& operator=(const InstalledPlatform&) = delete;
  ~InstalledPlatform() {
    MIDILog::setSink({});
    Log::setSink({});
    MIDIPlatform::install(std::make_shared<AbsentMIDISystem>(), std::make_shared<QtMIDIClock>());
  }

  std::string log;
  std::vector<std::string> lines;
};

/// Both managers over a system that writes down what it is asked for, once with each kind of
/// packet. Whole messages are given and taken as bytes.
class LinkTest : public testing::TestWithParam<MIDIPacketKind> {
 protected:
  using Bytes = std::vector<std::uint8_t>;

  [[nodiscard]] static bool hasEvents() { return GetParam() == MIDIPacketKind::EventLists; }

  /// A received message from F0 to F7, in the packets of this kind.
  void receive(const Bytes& message) {
    if (!hasEvents()) {
      receivePacket(message);
      return;
    }
    const auto packets =
        MIDICommon::convertByteToPacket(message.data(), static_cast<std::int64_t>(message.size()));
    for (const GLPacket& packet : packets.value()) {
      receiveWords({packet.data.begin(), packet.data.end()});
    }
  }
  void receivePacket(const Bytes& bytes) { sequences.receivedMidi_iOS13({0, bytes}, true); }
  void receiveWords(const std::vector<std::uint32_t>& words) { sequences.receivedMidi({0, words}); }

  /// All that was sent so far, message by message.
  [[nodiscard]] std::vector<Bytes> sent() const {
    Bytes all;
    for (const auto& list : system->packetLists) {
      for (const auto& [time, bytes] : list) all.insert(all.end(), bytes.begin(), bytes.end());
    }
    for (const auto& list : system->eventLists) {
      for (const auto& [time, words] : list) {
        const Bytes bytes = MIDIWireEvents::bytesOf(words);
        all.insert(all.end(), bytes.begin(), bytes.end());
      }
    }
    return split(all);
  }
  [[nodiscard]] Bytes lastSent() const { return sent().empty() ? Bytes() : sent().back(); }

  /// Collects every complete message from now on.
  void listen() {
    sequences.exeCommand(nullptr, 0, [this](const std::uint8_t* bytes, std::int32_t length) {
      delivered.emplace_back(bytes, bytes + length);
      return false;
    });
  }

  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  std::shared_ptr<RecordingMIDISystem> system = std::make_shared<RecordingMIDISystem>(GetParam());
  InstalledPlatform platform{system, clock};
  MIDIManager manager;
  MIDISequenceManager sequences;
  std::vector<Bytes> delivered;
  int completions = 0;
  MIDISequenceBase::Completion complete = [this] { ++completions; };

 private:
  static std::vector<Bytes> split(const Bytes& all) {
    std::vector<Bytes> messages;
    for (const std::uint8_t byte : all) {
      if (byte == 0xF0) messages.emplace_back();
      messages.back().push_back(byte);
    }
    return messages;
  }
};
