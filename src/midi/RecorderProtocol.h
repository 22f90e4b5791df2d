// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "midi/MIDIClock.h"

/// Every message between the program and a recorder: what a request is on the wire, which reply
/// belongs to it, and the values in either. The only place that knows their bytes.
///
/// Requests are whole messages, F0 to F7. Replies are as the sequences see them, F0 to the byte
/// before F7; they are known by their length and the bytes 4 and 5 alone, bytes 1 to 3 are not
/// looked at. What takes a request or a reply apart must be given one of that kind. Pure functions;
/// any thread.
class RecorderProtocol {
 public:
  using View = std::span<const std::uint8_t>;
  using Bytes = std::vector<std::uint8_t>;
  using Text = std::array<std::uint8_t, 4>;

  /// The handshake first and in its order.
  enum class Request {
    Identity,
    Start,
    Version,
    Card,
    BatteryType,
    AutoPowerOff,
    SetDateTime,
    SetBatteryType,
    SetAutoPowerOff
  };
  /// The reply to the request at the same place.
  enum class Reply {
    Identity,
    Started,
    Version,
    Card,
    BatteryType,
    AutoPowerOff,
    DateTimeSet,
    BatteryTypeSet,
    AutoPowerOffSet
  };

  struct Identity {
    Text deviceId{};
    Text version{};
  };
  struct Card {
    std::uint8_t isThere = 0;                 ///< not 0 when a card is present
    std::array<std::uint8_t, 3> remaining{};  ///< hours, minutes, seconds of recording
    std::array<std::uint8_t, 10> used{};      ///< bytes in 7-bit groups, lowest first
    std::array<std::uint8_t, 10> capacity{};  ///< as `used`
  };

  // Requests, bytes out.

  /// One that carries no value: `Identity` to `AutoPowerOff`.
  static Bytes request(Request what) { return request(what, {}); }
  static Bytes setDateTime(const MIDICalendarTime& time);
  /// `SetBatteryType` or `SetAutoPowerOff` to `code`.
  static Bytes setting(Request what, std::uint8_t code) { return request(what, {&code, 1}); }

  // Requests, bytes in.

  /// What a whole message asks for; none where it is no request.
  static std::optional<Request> requestOf(View message);
  static MIDICalendarTime dateTimeOf(View request);
  /// The code that `SetBatteryType` or `SetAutoPowerOff` carries.
  static std::uint8_t codeOf(View request) { return request[6]; }

  // Replies, bytes in.

  static constexpr Reply replyTo(Request request) { return static_cast<Reply>(request); }
  static bool isReply(Reply what, View message);
  /// None where it is no reply that is known.
  static std::optional<Reply> replyOf(View message);
  static Identity identityOf(View reply);
  static Text versionOf(View reply);
  static Card cardOf(View reply);
  /// The value in a reply `BatteryType` or `AutoPowerOff`.
  static std::uint8_t valueOf(View reply) { return reply[6]; }
  /// The code in any acknowledgement, also of a command that is not known here; none where it is no
  /// acknowledgement.
  static std::optional<std::uint8_t> acknowledgedBy(View message);

 private:
  static Bytes request(Request what, View values);
};
