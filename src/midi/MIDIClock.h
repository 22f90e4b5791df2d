// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

/// A one-shot timer that is running or has fired. Dropping it cancels it; it may be dropped while
/// it fires.
class MIDITimer {
 public:
  MIDITimer() = default;
  MIDITimer(const MIDITimer&) = delete;
  MIDITimer& operator=(const MIDITimer&) = delete;
  virtual ~MIDITimer() = default;
};

/// Local date and time of the Gregorian calendar.
struct MIDICalendarTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;   ///< 0 to 23
  int minute = 0;
  int second = 0;
};

/// The time as the device link knows it. Interface thread only; a clock outlives its timers.
class MIDIClock {
 public:
  MIDIClock() = default;
  MIDIClock(const MIDIClock&) = delete;
  MIDIClock& operator=(const MIDIClock&) = delete;
  virtual ~MIDIClock() = default;

  /// Calls `fire` once, on the interface thread, after `seconds`; never from inside this call.
  [[nodiscard]] virtual std::unique_ptr<MIDITimer> after(double seconds,
                                                         std::function<void()> fire) = 0;
  /// Nanoseconds of a clock that never goes back.
  [[nodiscard]] virtual std::uint64_t hostTime() const = 0;
  /// Now, in the user's time zone.
  [[nodiscard]] virtual MIDICalendarTime localTime() const = 0;
};
