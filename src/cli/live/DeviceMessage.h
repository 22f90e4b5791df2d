// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <utility>

#include "midi/RecorderProtocol.h"

/// What a message between the program and the recorder means, and the values in it.
class DeviceMessage {
 public:
  /// A whole message of the program, F0 to F7.
  static DeviceMessage sent(std::span<const std::uint8_t> bytes);
  /// A whole message of the recorder, F0 to F7, or another MIDI message.
  static DeviceMessage received(std::span<const std::uint8_t> bytes);

  /// "SD card request", or "unknown message".
  [[nodiscard]] const std::string& name() const { return _name; }
  /// The decoded values by name; empty where there are none.
  [[nodiscard]] const nlohmann::ordered_json& values() const { return _values; }
  /// Name and values: "battery type: battery_type 2".
  [[nodiscard]] std::string text() const;

  /// "F0 52 F7".
  static std::string hexadecimal(std::span<const std::uint8_t> bytes);

 private:
  explicit DeviceMessage(std::string name, nlohmann::ordered_json values = {})
      : _name(std::move(name)), _values(std::move(values)) {}

  static DeviceMessage told(RecorderProtocol::Reply reply, std::span<const std::uint8_t> message);
  static DeviceMessage identity(std::span<const std::uint8_t> message);
  static DeviceMessage card(std::span<const std::uint8_t> message);
  static DeviceMessage acknowledgement(std::span<const std::uint8_t> message, std::uint8_t code);
  static DeviceMessage unknown(std::span<const std::uint8_t> bytes);

  std::string _name;
  nlohmann::ordered_json _values;
};
