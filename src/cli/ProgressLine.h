// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

/// One line on standard error that tells how far a number of jobs are, drawn ten times a second at
/// most. Silent unless standard error is a terminal. Safe on any thread.
class ProgressLine {
 public:
  static constexpr const char* kEraseLine = "\r\x1b[K";  ///< of a terminal

  using Clock = std::chrono::steady_clock;
  /// What time it is.
  using Now = std::function<Clock::time_point()>;

  explicit ProgressLine(std::size_t jobs, Now now = Clock::now);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// Job `index`, called `name`, is `done` (0 to 1) of its way.
  void update(std::size_t index, const std::string& name, double done);
  /// So much of all the work is done, in units of its own, or more than was foreseen; `text` is
  /// asked for where it is drawn.
  void show(std::uint64_t done, std::uint64_t total, const std::function<std::string()>& text);
  /// Shows no progress from now on.
  void hide();
  /// Prints a whole line to standard error, above the progress line.
  void message(const std::string& text);
  /// Prints text to standard output, above the progress line.
  void print(const std::string& text);

 private:
  [[nodiscard]] bool isDue();
  void draw(double done, const std::string& text);
  void clear();

  bool _isTerminal;
  std::mutex _mutex;
  std::vector<double> _done;
  bool _isShown = false;
  const Now _now;
  Clock::time_point _nextDraw;
};
