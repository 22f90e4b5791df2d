// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <chrono>

/// The event loop of the thread that tests.
class EventLoop {
 public:
  /// Lets it run until the condition holds, which it looks at after each event and 100 times a
  /// second; false when it still does not hold after two minutes.
  template <class Condition>
  [[nodiscard]] static bool runUntil(const Condition& condition) {
    constexpr std::chrono::minutes kPatience(2);
    constexpr std::chrono::milliseconds kLook(10);
    QTimer deadline;
    QTimer look;
    deadline.setSingleShot(true);
    deadline.start(kPatience);
    look.start(kLook);
    while (!condition() && deadline.isActive()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
      // Which only a loop that runs by itself does.
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
  }
};
