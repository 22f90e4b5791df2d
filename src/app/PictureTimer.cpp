// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/PictureTimer.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>

PictureTimer::PictureTimer(QObject* parent)
    : QObject(parent),
      _clock(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
      _notifier(_clock, QSocketNotifier::Read) {
  connect(&_notifier, &QSocketNotifier::activated, this, &PictureTimer::expire);
}

PictureTimer::~PictureTimer() {
  _notifier.setEnabled(false);
  if (_clock >= 0) ::close(_clock);
}

void PictureTimer::start(Milliseconds wait) {
  _interval = std::max(wait, Milliseconds(1));
  _isActive = true;
  set(_interval);
}

void PictureTimer::stop() {
  _isActive = false;
  set(Milliseconds(0));
}

// No time at all stops the clock.
void PictureTimer::set(Milliseconds wait) const {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(wait);
  itimerspec once{};
  once.it_value.tv_sec = seconds.count();
  once.it_value.tv_nsec = std::chrono::nanoseconds(wait - seconds).count();
  timerfd_settime(_clock, 0, &once, nullptr);
}

// One that was stopped or started anew meanwhile has nothing to be read.
void PictureTimer::expire() {
  std::uint64_t times = 0;
  if (::read(_clock, &times, sizeof times) != sizeof times || !_isActive) return;
  _isActive = false;
  emit timeout();
}
