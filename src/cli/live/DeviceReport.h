// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "midi/TARNDeviceInfo.h"

/// The record of a recorder, for people and as JSON. What has not been told is not there, or null.
class DeviceReport {
 public:
  using Line = std::pair<std::string, std::string>;

  /// Of no recorder; one that was there was last asked in `step`, if not 0.
  explicit DeviceReport(std::int64_t step = 0);
  /// Of a handshake that came to its end: 0. Of one that waits in `step` what was answered so far,
  /// and that there is no connection.
  DeviceReport(const TARNDeviceInfo& info, std::int64_t step);

  /// Name and value of each line.
  [[nodiscard]] const std::vector<Line>& lines() const { return _lines; }
  /// The lines in columns; those that `shown` has too are left out.
  [[nodiscard]] std::string text(const DeviceReport& shown) const;
  [[nodiscard]] std::string text() const;
  /// One object in one line.
  [[nodiscard]] std::string json() const;

  /// What is asked for in a step of the handshake: "version".
  static std::string_view stepName(std::int64_t step);
  /// "2 (Lithium)".
  static std::string battery(std::uint8_t type);
  static std::string autoPowerOff(std::uint8_t time);

 private:
  void addCard(const TARNDeviceInfo& info);
  void add(const char* key, const nlohmann::ordered_json& value, const char* name,
           const std::string& text);

  nlohmann::ordered_json _json;
  std::vector<Line> _lines;
};
