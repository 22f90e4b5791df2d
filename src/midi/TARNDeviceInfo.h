// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>

/// What is known of the recorder; everything is zero or empty until it has told. Plain data of the
/// interface thread.
struct TARNDeviceInfo {
  std::array<std::uint8_t, 4> _device_id{};
  std::array<std::uint8_t, 4> _version{};  ///< characters of the firmware version in bytes 1 to 3
  std::uint8_t _batteryType = 0;
  std::uint8_t _autoPowOffType = 0;
  std::uint8_t _sdExist = 0;                   ///< not 0 when a card is present
  std::array<std::uint8_t, 3> _sdRemaining{};  ///< hours, minutes, seconds of recording
  std::string _sdUsedSize;                     ///< for people, or "-- GB"
  std::string _sdMaxSize;                      ///< for people, or "-- GB"
  std::array<std::uint8_t, 10> _sdUsedBuff{};  ///< bytes in 7-bit groups, lowest first
  std::array<std::uint8_t, 10> _sdMaxBuff{};   ///< bytes in 7-bit groups, lowest first
};
