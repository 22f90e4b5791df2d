// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "dialogs/ExportOrder.h"

/// Carries out one export on a thread of its own, over a job of its own, so that whoever ordered it
/// may close the recording meanwhile.
///
/// Threads: one owner makes, asks and destroys it; `cancel` may come from any thread. Results may
/// be asked once `isFinished` is true. Nothing throws.
class ExportWorker {
 public:
  /// Begins at once.
  explicit ExportWorker(ExportOrder order);
  /// Cancels what is still under way and waits for its end.
  ~ExportWorker();
  ExportWorker(const ExportWorker&) = delete;
  ExportWorker& operator=(const ExportWorker&) = delete;

  /// Asks it to stop; returns at once.
  void cancel() { _cancel = true; }

  /// 0 to 1.
  [[nodiscard]] double done() const { return _done; }
  [[nodiscard]] bool isFinished() const { return _isFinished; }

  [[nodiscard]] bool isWritten() const { return _isWritten; }
  [[nodiscard]] bool wasCancelled() const { return _wasCancelled; }
  /// Why nothing was written, in words for people; empty when it was, and after a cancel.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  void run(const ExportOrder& order);

  std::atomic<bool> _cancel{false};
  std::atomic<double> _done{0};
  std::atomic<bool> _isFinished{false};
  bool _isWritten = false;  ///< this and the next two are the worker's until it has finished
  bool _wasCancelled = false;
  std::string _failure;
  std::jthread _thread;  ///< last, as it uses all of the above
};
