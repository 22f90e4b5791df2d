// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

class QSocketNotifier;

/// Wakes the event loop of the thread that made it, from any thread: without locks, without
/// allocation. Several raises before the loop comes round are one. What was written before a raise
/// is seen by what it calls.
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
  mutable std::atomic<std::uint32_t> _raises{0};  ///< the order between the threads
  std::function<void()> _raised;
  QSocketNotifier* _notifier;
  bool _isRaising = false;
  std::shared_ptr<bool> _isAlive = std::make_shared<bool>(true);  ///< held weakly by `onReadable`
};
