// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// What a simulated recorder is and what is set on it.
struct RecorderState {
  std::array<std::uint8_t, 4> deviceId = {0x10, 0x20, 0x30, 0x40};
  std::array<char, 4> identityVersion = {'0', '1', '0', '0'};  ///< told with the identity
  std::array<char, 4> firmware = {'0', '1', '0', '2'};         ///< version 1.02
  std::uint8_t batteryType = 0;
  std::uint8_t autoPowerOff = 1;
  bool hasCard = true;
  std::array<std::uint8_t, 3> remaining = {5, 12, 33};  ///< hours, minutes, seconds
  std::uint64_t usedBytes = 8'000'000'000;
  std::uint64_t capacityBytes = 31'900'000'000;
  /// Century, year, month, day, hour, minute, second, as last set; zeros before.
  std::array<std::uint8_t, 7> dateTime{};
};

/// Whole messages of a recorder, from F0 to F7. Stateless.
class RecorderMessages {
 public:
  using Bytes = std::vector<std::uint8_t>;

  static Bytes identity(const RecorderState& state);
  static Bytes acknowledgement(std::uint8_t code);
  static Bytes version(const RecorderState& state);
  static Bytes card(const RecorderState& state);
  /// `which` 1 battery type, 2 auto power-off.
  static Bytes setting(std::uint8_t which, std::uint8_t value);
};
