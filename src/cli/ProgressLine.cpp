// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ProgressLine.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <utility>

namespace {

constexpr auto kRedraw = std::chrono::milliseconds(100);

}  // namespace

ProgressLine::ProgressLine(std::size_t jobs, Now now)
    : _isTerminal(isatty(STDERR_FILENO) == 1), _done(jobs), _now(std::move(now)) {}

ProgressLine::~ProgressLine() {
  clear();
}

void ProgressLine::update(std::size_t index, const std::string& name, double done) {
  if (!_isTerminal) return;
  const std::lock_guard lock(_mutex);
  _done[index] = done;
  const Clock::time_point now = _now();
  if (now < _nextDraw) return;
  _nextDraw = now + kRedraw;
  const auto finished = std::count(_done.begin(), _done.end(), 1.0);
  const double all = std::accumulate(_done.begin(), _done.end(), 0.0);
  fmt::print(stderr, "{}{:3.0f} %  {} of {} done  {}", kEraseLine,
             100.0 * all / static_cast<double>(_done.size()), finished, _done.size(), name);
  std::fflush(stderr);
  _isShown = true;
}

void ProgressLine::message(const std::string& text) {
  const std::lock_guard lock(_mutex);
  clear();
  fmt::print(stderr, "{}\n", text);
}

void ProgressLine::clear() {
  if (_isShown) fmt::print(stderr, "{}", kEraseLine);
  _isShown = false;
}
