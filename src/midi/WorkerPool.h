// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

/// A few threads for short pieces of work. They are started as they are needed and end with the
/// process; nobody waits for them then. Any thread may start a task.
class WorkerPool {
 public:
  static WorkerPool& ofProcess();

  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// Tasks begin in the order in which they were started.
  void start(std::function<void()> task);

 private:
  WorkerPool() = default;

  void work();

  std::mutex _mutex;  ///< guards the members below
  std::condition_variable _arrived;
  std::deque<std::function<void()>> _tasks;
  std::size_t _threads = 0;
  std::size_t _idle = 0;
};
