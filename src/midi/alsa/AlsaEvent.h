// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

/// Where events of the sequencer come from or go to.
struct AlsaAddress {
  std::uint8_t client = 0;
  std::uint8_t port = 0;
  friend auto operator<=>(const AlsaAddress&, const AlsaAddress&) = default;
};

/// A port of another client, as the sequencer lists it.
struct AlsaPort {
  AlsaAddress address;
  std::string clientName;
  std::string portName;
  bool isSource = false;       ///< anyone may listen to it
  bool isDestination = false;  ///< anyone may send to it
};

/// What one event carries: bytes of a cable, or the words of one Universal MIDI Packet.
struct AlsaPayload {
  std::vector<std::uint8_t> bytes;
  std::vector<std::uint32_t> words;
};

/// A received event. Neither payload nor announcement: nothing for us.
struct AlsaEvent {
  enum class Announcement { None, ClientGone, PortGone, Other };

  AlsaAddress source;
  std::uint8_t port = 0;  ///< ours, that it came to
  Announcement announcement = Announcement::None;
  AlsaAddress subject;  ///< who an announcement is about; its port only for `PortGone`
  AlsaPayload payload;
};
