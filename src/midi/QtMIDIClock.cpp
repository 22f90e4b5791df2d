// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/QtMIDIClock.h"

#include <QDateTime>
#include <QTimer>
#include <chrono>
#include <utility>

namespace {

// The signal is the last that the timer does, so it may be deleted from inside it.
class QtTimer final : public MIDITimer {
 public:
  QtTimer(double seconds, std::function<void()> fire) {
    _timer.setSingleShot(true);
    _timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&_timer, &QTimer::timeout, std::move(fire));
    _timer.start(
        std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(seconds)));
  }

 private:
  QTimer _timer;
};

}  // namespace

std::unique_ptr<MIDITimer> QtMIDIClock::after(double seconds, std::function<void()> fire) {
  return std::make_unique<QtTimer>(seconds, std::move(fire));
}

std::uint64_t QtMIDIClock::hostTime() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
}

MIDICalendarTime QtMIDIClock::localTime() const {
  const QDateTime now = QDateTime::currentDateTime();
  return {now.date().year(), now.date().month(),  now.date().day(),
          now.time().hour(), now.time().minute(), now.time().second()};
}
