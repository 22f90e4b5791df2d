// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Errand.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "base/ThreadSignal.h"

/// Where the thread leaves its outcome, whether or not someone still waits for it.
class Errand::Desk {
 public:
  explicit Desk(std::function<void()> arrived)
      : _signal(std::make_unique<ThreadSignal>(std::move(arrived))) {}

  /// The worker's. Takes the outcome only where it is waited for.
  void put(Outcome& outcome) {
    const std::lock_guard lock(_mutex);
    if (!_signal) return;
    _outcome = std::move(outcome);
    _signal->raise();
  }
  Outcome take() {
    const std::lock_guard lock(_mutex);
    return std::move(_outcome);
  }
  /// Nobody waits any more. The signal goes here and not with the desk: it belongs to this thread.
  void leave() {
    const std::lock_guard lock(_mutex);
    _signal.reset();
  }

 private:
  std::mutex _mutex;
  Outcome _outcome;
  std::unique_ptr<ThreadSignal> _signal;
};

bool Errand::begin(const Work& work) {
  giveUp();
  auto desk = std::make_shared<Desk>([this] { collect(); });
  try {
    std::thread([desk, work] {
      Outcome outcome = work();
      desk->put(outcome);
    }).detach();
  } catch (const std::system_error&) {
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
  const Outcome outcome = desk->take();
  desk->leave();
  outcome();
}
