// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <utility>

/// A few threads for short pieces of work. They are started as they are needed and end with the
/// process; nobody waits for them then. Any thread may start a task.
class WorkerPool {
 public:
  /// Runs the work on a thread of its own; throws std::system_error where there can be none.
  using StartThread = std::function<void(std::function<void()> work)>;

  static WorkerPool& ofProcess();

  /// A pool that has started a thread must live as long as the process.
  explicit WorkerPool(StartThread startThread) : _startThread(std::move(startThread)) {}
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// A task that throws is over; the others are done all the same.
  ///
  /// Tasks begin in the order in which they were started. Empty when the task was taken; else,
  /// where there is no thread at all, the reason why none can be started, and the task is not kept.
  [[nodiscard]] std::string start(const std::function<void()>& task);

 private:
  std::string addThread();
  void work();

  StartThread _startThread;
  std::mutex _mutex;  ///< guards the members below
  std::condition_variable _arrived;
  std::deque<std::function<void()>> _tasks;
  std::size_t _threads = 0;
  std::size_t _idle = 0;
};
