// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/WorkerPool.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

std::size_t mostThreads() {
  return std::max<std::size_t>(4, std::thread::hardware_concurrency());
}

}  // namespace

// Never destroyed: its threads outlive the statics.
WorkerPool& WorkerPool::ofProcess() {
  static auto* const kPool = new WorkerPool;
  return *kPool;
}

void WorkerPool::start(std::function<void()> task) {
  const std::lock_guard lock(_mutex);
  _tasks.push_back(std::move(task));
  if (_idle < _tasks.size() && _threads < mostThreads()) {
    ++_threads;
    std::thread(&WorkerPool::work, this).detach();
  }
  _arrived.notify_one();
}

void WorkerPool::work() {
  std::unique_lock lock(_mutex);
  while (true) {
    ++_idle;
    _arrived.wait(lock, [this] { return !_tasks.empty(); });
    --_idle;
    auto task = std::move(_tasks.front());
    _tasks.pop_front();
    lock.unlock();
    task();
    task = nullptr;
    lock.lock();
  }
}
