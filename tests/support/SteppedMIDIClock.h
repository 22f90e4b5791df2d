// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "midi/MIDIClock.h"

/// A clock that moves only when it is told to; timers fire in the order in which they are due.
class SteppedMIDIClock final : public MIDIClock {
 public:
  std::unique_ptr<MIDITimer> after(double seconds, std::function<void()> fire) override {
    const Key key{_now + nanoseconds(seconds), ++_last};
    (*_timers)[key] = std::move(fire);
    return std::make_unique<Handle>(_timers, key);
  }
  [[nodiscard]] std::uint64_t hostTime() const override { return _now; }
  [[nodiscard]] MIDICalendarTime localTime() const override { return _date; }

  void advance(double seconds) {
    const std::uint64_t end = _now + nanoseconds(seconds);
    while (!_timers->empty() && _timers->begin()->first.first <= end) {
      _now = _timers->begin()->first.first;
      const auto fire = std::move(_timers->begin()->second);
      _timers->erase(_timers->begin());
      fire();
    }
    _now = end;
  }
  void setDate(const MIDICalendarTime& date) { _date = date; }
  [[nodiscard]] std::size_t running() const { return _timers->size(); }

 private:
  using Key = std::pair<std::uint64_t, std::uint64_t>;
  using Timers = std::map<Key, std::function<void()>>;

  class Handle final : public MIDITimer {
   public:
    Handle(std::shared_ptr<Timers> timers, Key key) : _timers(std::move(timers)), _key(key) {}
    ~Handle() override { _timers->erase(_key); }

   private:
    std::shared_ptr<Timers> _timers;
    Key _key;
  };

  static std::uint64_t nanoseconds(double seconds) {
    return static_cast<std::uint64_t>(std::llround(seconds * 1e9));
  }

  std::shared_ptr<Timers> _timers = std::make_shared<Timers>();
  std::uint64_t _now = 1000;
  std::uint64_t _last = 0;
  MIDICalendarTime _date{2024, 2, 29, 23, 59, 58};
};
