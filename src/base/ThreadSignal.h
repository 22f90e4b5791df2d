// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

/// Wakes the event loop of the thread that made it, from any thread: without locks, without
/// allocation. Several raises before the loop comes round are one.
class ThreadSignal {
 public:
  /// `raised` is called from the event loop and may delete the signal.
  explicit ThreadSignal(std::function<void()> raised);
  ThreadSignal(const ThreadSignal&) = delete;
  ThreadSignal& operator=(const ThreadSignal&) = delete;
  ~ThreadSignal();

  /// Any thread.
  void raise() const;

 private:
  void onReadable();

  int _event;
  std::function<void()> _raised;
  QSocketNotifier* _notifier;
  bool _isRaising = false;
  std::shared_ptr<bool> _isAlive = std::make_shared<bool>(true);  ///< held weakly by `onReadable`
};
