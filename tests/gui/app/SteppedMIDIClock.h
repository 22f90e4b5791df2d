// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <map>
#include <utility>

#include "midi/MIDIClock.h"

/// A clock of the device link that moves only when it is told to.
class SteppedMIDIClock final : public MIDIClock {
 public:
  std::unique_ptr<MIDITimer> after(double seconds, std::function<void()> fire) override {
    const Due due{_now + std::llround(seconds * 1e9), ++_last};
    (*_timers)[due] = std::move(fire);
    return std::make_unique<Handle>(_timers, due);
  }
  [[nodiscard]] std::uint64_t hostTime() const override { return static_cast<std::uint64_t>(_now); }
  [[nodiscard]] MIDICalendarTime localTime() const override { return {2024, 2, 29, 23, 59, 58}; }

  void advance(double seconds) {
    const long long end = _now + std::llround(seconds * 1e9);
    while (!_timers->empty() && _timers->begin()->first.first <= end) {
      _now = _timers->begin()->first.first;
      const auto fire = std::move(_timers->begin()->second);
      _timers->erase(_timers->begin());
      fire();
    }
    _now = end;
  }

 private:
  using Due = std::pair<long long, int>;
  using Timers = std::map<Due, std::function<void()>>;

  class Handle final : public MIDITimer {
   public:
    Handle(std::shared_ptr<Timers> timers, Due due) : _timers(std::move(timers)), _due(due) {}
    ~Handle() override { _timers->erase(_due); }

   private:
    std::shared_ptr<Timers> _timers;
    Due _due;
  };

  std::shared_ptr<Timers> _timers = std::make_shared<Timers>();
  long long _now = 1000;
  int _last = 0;
};
