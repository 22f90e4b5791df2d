// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

/// One line on standard error that tells how far a number of jobs are. Silent unless standard
/// error is a terminal. Safe on any thread.
class ProgressLine {
 public:
  static constexpr const char* kEraseLine = "\r\x1b[K";  ///< of a terminal

  explicit ProgressLine(std::size_t jobs);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Job `index`, called `name`, is `done` (0 to 1) of its way.
  void update(std::size_t index, const std::string& name, double done);
  /// Prints a whole line to standard error, above the progress line.
  void message(const std::string& text);

 private:
  void clear();

  const bool _isTerminal;
  std::mutex _mutex;
  std::vector<double> _done;
  bool _isShown = false;
  std::chrono::steady_clock::time_point _nextDraw;
};
