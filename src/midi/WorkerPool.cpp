// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/WorkerPool.h"

#include <algorithm>
#include <exception>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"
#include "base/Log.h"

namespace {

std::size_t mostThreads() {
  return std::max<std::size_t>(4, std::thread::hardware_concurrency());
}

// Where memory runs out, this task is not done, and the others are.
void runGuarded(const std::function<void()>& task) {
  try {
    task();
  } catch (const std::exception& error) {
    Log::line("A piece of work was not done: " + reasonOf(error));
  }
}

}  // namespace

// Never destroyed: its threads outlive the statics.
WorkerPool& WorkerPool::ofProcess() {
  static auto* const kPool =
      new WorkerPool([](std::function<void()> work) { std::thread(std::move(work)).detach(); });
  return *kPool;
}

std::string WorkerPool::start(const std::function<void()>& task) {
  const std::lock_guard lock(_mutex);
  const bool needsThread = _idle <= _tasks.size() && _threads < mostThreads();
  std::string problem = needsThread ? addThread() : std::string();
  if (_threads == 0) return problem;
  _tasks.push_back(task);
  _arrived.notify_one();
  return {};
}

// Whoever is busy takes the task later.
std::string WorkerPool::addThread() {
  try {
    _startThread([this] { work(); });
    ++_threads;
    return {};
  } catch (const std::exception& error) {  // no thread, or no memory for one
    return reasonOf(error);
  }
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
    runGuarded(task);
    task = nullptr;
    lock.lock();
  }
}
