// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/PlayedClock.h"

#include <algorithm>
#include <chrono>

namespace {

double steadySeconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

}  // namespace

void PlayedClock::moving(double frames) {
  _start.store(steadySeconds() - frames / _sampleRate);
}

void PlayedClock::standing(double frames) {
  _floor.store(std::max(_floor.load(), frames));
  _start.store(kNever);
}

void PlayedClock::setHandedOver(std::uint64_t frames) {
  _handedOver.store(static_cast<double>(frames));
}

std::uint64_t PlayedClock::handedOver() const {
  return static_cast<std::uint64_t>(_handedOver.load());
}

void PlayedClock::reset() {
  _start.store(kNever);
  _handedOver.store(0);
  _floor.store(0);
}

double PlayedClock::estimate() const {
  const double start = _start.load();
  const double moved = start == kNever ? 0.0 : (steadySeconds() - start) * _sampleRate;
  return std::max(_floor.load(), std::min(moved, _handedOver.load()));
}

double PlayedClock::heard() {
  _last = std::max(_last, estimate());
  return _last;
}
