// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

/// One 64-bit Universal MIDI Packet.
struct GLPacket {
  std::array<std::uint32_t, 2> data{};  ///< host order, word 0 first
  std::int64_t size = 0;                ///< valid words
};
