// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "queue/ExportOrder.h"
#include "queue/ExportResult.h"

/// Carries out one order on a thread of its own, over a job of its own, so that whoever ordered it
/// may close the recording meanwhile.
///
/// Threads: one owner makes, asks and destroys it; `cancel` may come from any thread. The result
/// may be asked once `isFinished` is true. Whatever the work throws ends it as failed.
class ExportWorker {
 public:
  /// What the work and its owner share. Any thread.
  struct Control {
    std::atomic<bool> isCancelled{false};  ///< set by the owner; the work then ends soon
    std::atomic<double> done{0};           ///< 0 to 1, kept by the work
  };
  /// The work itself, which returns when it is done. Worker's thread.
  using Work = std::function<ExportResult(const ExportOrder& order, Control& control)>;
  using Told = std::function<void()>;

  /// Begins at once. `onEnd` is called on the worker's thread, the last thing there; in here where
  /// no thread can be had, which is a failure like any other.
  explicit ExportWorker(const ExportOrder& order, const Work& work = carryOut,
                        const Told& onEnd = {});
  /// Cancels what is still under way and waits for its end, as long as `setPatience` says; what has
  /// not ended by then ends by itself, untold.
  ~ExportWorker();
  ExportWorker(const ExportWorker&) = delete;
  ExportWorker& operator=(const ExportWorker&) = delete;

  /// Exports from file to file; logs which options are on.
  static ExportResult carryOut(const ExportOrder& order, Control& control);

  /// Asks it to stop; returns at once.
  void cancel() { _shared->control.isCancelled = true; }
  /// How long the destructor waits; at first as long as it takes.
  void setPatience(std::chrono::milliseconds most) { _patience = most; }

  /// 0 to 1.
  [[nodiscard]] double done() const { return _shared->control.done; }
  [[nodiscard]] bool isFinished() const { return _shared->isFinished; }
  [[nodiscard]] const ExportResult& result() const { return _shared->result; }

 private:
  /// What the thread needs, also where nobody waits for it any more.
  struct Shared {
    Control control;
    std::atomic<bool> isFinished{false};
    ExportResult result;  ///< the worker's until it has finished
    std::mutex mutex;     ///< guards what follows, and is held while somebody is told
    std::condition_variable ended;
    Told onEnd;
    bool hasEnded = false;

    void end(ExportResult with);
  };

  std::shared_ptr<Shared> _shared = std::make_shared<Shared>();
  std::optional<std::chrono::milliseconds> _patience;
};
