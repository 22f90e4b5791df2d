// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "queue/ExportWorker.h"

/// Work for export workers that is done when a test says so, whatever the machine is busy with:
/// each order stands still until it is let go or cancelled, and is then carried out by `rest`. Any
/// thread. Outlives the workers.
class HeldWork {
 public:
  explicit HeldWork(ExportWorker::Work rest) : _rest(std::move(rest)) {}

  /// The work to hand to a queue.
  [[nodiscard]] ExportWorker::Work work() {
    return [this](const ExportOrder& order, ExportWorker::Control& control) {
      return run(order, control);
    };
  }

  /// How far an order is that stands still.
  void setDone(double done) { _done = done; }
  /// Lets the order for this target go on.
  void release(const std::filesystem::path& target) {
    const std::lock_guard lock(_mutex);
    _released.insert(target);
  }
  void releaseAll() { _isOpen = true; }
  /// From now on orders stand still again, as they do at first.
  void hold() { _isOpen = false; }

  /// The targets in the order in which their work began.
  [[nodiscard]] std::vector<std::filesystem::path> begun() const {
    const std::lock_guard lock(_mutex);
    return _begun;
  }

 private:
  ExportResult run(const ExportOrder& order, ExportWorker::Control& control) {
    {
      const std::lock_guard lock(_mutex);
      _begun.push_back(order.target);
    }
    while (!control.isCancelled && !mayGo(order.target)) {
      control.done = _done.load();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return _rest(order, control);
  }
  [[nodiscard]] bool mayGo(const std::filesystem::path& target) const {
    const std::lock_guard lock(_mutex);
    return _isOpen || _released.contains(target);
  }

  ExportWorker::Work _rest;
  std::atomic<bool> _isOpen{false};
  std::atomic<double> _done{0};
  mutable std::mutex _mutex;
  std::set<std::filesystem::path> _released;
  std::vector<std::filesystem::path> _begun;
};
