// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Errand.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"
#include "base/ThreadSignal.h"

namespace {

// Where memory runs out nothing ends but what needed it.
Errand::Outcome outcomeOf(const Errand::Work& work, const Errand::Failed& failed) {
  try {
    return work();
  } catch (const std::exception& error) {
    return [failed, why = reasonOf(error)] {
      if (failed) failed(why);
    };
  }
}

}  // namespace

/// Where the two threads meet. The outcome is the worker's from its making to its end: it waits
/// until the outcome was heard or given up, so that what is in it goes there, be it a file.
class Errand::Desk {
 public:
  explicit Desk(std::function<void()> arrived)
      : _signal(std::make_unique<ThreadSignal>(std::move(arrived))) {}

  /// The worker's.
  void offer(const Outcome& outcome) {
    std::unique_lock lock(_mutex);
    if (!_signal) return;
    _outcome = &outcome;
    _signal->raise();
    _isOver.wait(lock, [this] { return !_signal; });
  }
  /// The one that was offered; it stays until `leave`.
  [[nodiscard]] const Outcome& outcome() {
    const std::lock_guard lock(_mutex);
    return *_outcome;
  }
  /// Nobody waits any more. The signal goes here and not with the desk: it belongs to this thread.
  void leave() {
    const std::unique_ptr<ThreadSignal> signal = takeSignal();
    _isOver.notify_one();
  }

 private:
  std::unique_ptr<ThreadSignal> takeSignal() {
    const std::lock_guard lock(_mutex);
    return std::move(_signal);
  }

  std::mutex _mutex;
  std::condition_variable _isOver;
  const Outcome* _outcome = nullptr;
  std::unique_ptr<ThreadSignal> _signal;
};

bool Errand::begin(const Work& work, const Failed& failed) {
  giveUp();
  auto desk = std::make_shared<Desk>([this] { collect(); });
  try {
    std::thread([desk, work, failed] {
      const Outcome outcome = outcomeOf(work, failed);
      desk->offer(outcome);
    }).detach();
  } catch (const std::exception&) {  // no thread, or no memory for one
    return false;
  }
  _desk = std::move(desk);
  return true;
}

void Errand::giveUp() {
  if (const auto desk = std::exchange(_desk, nullptr)) desk->leave();
}

void Errand::collect() {
  const auto desk = std::exchange(_desk, nullptr);
  desk->outcome()();
  desk->leave();
}
