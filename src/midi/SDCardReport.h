// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include "midi/TARNDeviceInfo.h"

/// The recorder's report of its SD card, asked for or not. Stateless.
class SDCardReport {
 public:
  using Groups = std::array<std::uint8_t, 10>;

  /// True for a message of `length` bytes that is such a report.
  static bool isOne(const std::uint8_t* bytes, std::int32_t length);
  /// Fills the card's part of the record from such a report. Without a card only the first three
  /// bytes of the two buffers are cleared, which is kept on purpose.
  static void read(const std::uint8_t* bytes, TARNDeviceInfo& info);
  /// Bytes from ten groups of seven bits, each term and each sum rounded to single precision. The
  /// eighth group is shifted by 47 and not by 49, which is kept on purpose.
  static float size(const Groups& groups);
};
