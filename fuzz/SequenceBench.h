// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "LinkModel.h"
#include "midi/MIDIManager.h"
#include "midi/MIDIPlatform.h"
#include "midi/memory/InMemoryMIDISystem.h"
#include "support/SteppedMIDIClock.h"

/// One sequence alone, with a transport that writes down what is sent.
class SequenceBench {
 public:
  SequenceBench() {
    const auto receive = [this](auto bytes) {
      sent.insert(sent.end(), bytes.begin(), bytes.end());
    };
    system->plug("J4 TARN", receive);
    manager.connect();
    clock->advance(1.5);
  }

  /// A reply that is `good` but for some bytes and its length, or anything. It takes the exact
  /// room, so that a read past its end is found.
  static Message reply(FuzzInput& input, Message good) {
    const auto how = input.take<std::uint8_t>();
    if (how % 4 == 0) return takeMany<std::uint8_t>(input, input.take<std::uint8_t>() % 40);
    if (how % 4 == 1) good.resize(std::min<std::size_t>(40, good.size() + how / 4 % 8));
    if (how % 4 == 2) good.resize(good.size() - std::min<std::size_t>(good.size(), how / 4 % 8));
    for (int changes = how / 32; changes > 0 && !good.empty(); --changes) {
      good[input.take<std::uint8_t>() % good.size()] = input.take<std::uint8_t>();
    }
    good.shrink_to_fit();
    return good;
  }

  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  std::shared_ptr<InMemoryMIDISystem> system = installed(clock);
  MIDIManager manager;
  Message sent;  ///< all bytes so far

 private:
  static std::shared_ptr<InMemoryMIDISystem> installed(
      const std::shared_ptr<SteppedMIDIClock>& clock) {
    auto system = std::make_shared<InMemoryMIDISystem>(MIDIPacketKind::BytePackets);
    MIDIPlatform::install(system, clock);
    return system;
  }
};

/// Length of a reply without its F7, and the bytes 4 and 5 of it; a `sub` of -1 may be anything.
struct Awaited {
  std::size_t length;
  int code;
  int sub;

  [[nodiscard]] bool is(const Message& message) const {
    return message.size() == length && message[4] == code && (sub < 0 || message[5] == sub);
  }
  [[nodiscard]] Message good() const {
    Message message(length, 0x01);
    message[0] = 0xF0;
    message[4] = static_cast<std::uint8_t>(code);
    message[5] = static_cast<std::uint8_t>(std::max(0, sub));
    return message;
  }
};
