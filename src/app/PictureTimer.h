// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <chrono>

/// Tells once for each `start` that a picture is due. Another start, thirty or sixty times a
/// second, asks for no memory: the toolkit's own timers do, whenever they get another interval.
/// Interface thread, which has an event loop.
class PictureTimer : public QObject {
  Q_OBJECT

 public:
  using Milliseconds = std::chrono::milliseconds;

  explicit PictureTimer(QObject* parent = nullptr);
  ~PictureTimer() override;

  /// In so long, and not when it was due before.
  void start(Milliseconds wait);
  void stop();
  [[nodiscard]] bool isActive() const { return _isActive; }
  /// What was last waited for.
  [[nodiscard]] Milliseconds interval() const { return _interval; }

 signals:
  void timeout();

 private:
  void set(Milliseconds wait) const;
  void expire();

  int _clock;  ///< a descriptor of the system, readable once the time is over
  QSocketNotifier _notifier;
  bool _isActive = false;
  Milliseconds _interval{0};
};
