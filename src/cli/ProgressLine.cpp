// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ProgressLine.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <utility>

#include "cli/Streams.h"

namespace {

constexpr auto kRedraw = std::chrono::milliseconds(100);

}  // namespace

ProgressLine::ProgressLine(std::size_t jobs, Now now)
    : _isTerminal(isatty(STDERR_FILENO) == 1), _done(jobs), _now(std::move(now)) {}

ProgressLine::~ProgressLine() {
  clear();
}

void ProgressLine::update(std::size_t index, const std::string& name, double done) {
  const std::lock_guard lock(_mutex);
  if (!_isTerminal) return;
  _done[index] = done;
  if (!isDue()) return;
  const auto finished = std::count(_done.begin(), _done.end(), 1.0);
  const double all = std::accumulate(_done.begin(), _done.end(), 0.0);
  draw(all / static_cast<double>(_done.size()),
       fmt::format("{} of {} done  {}", finished, _done.size(), name));
}

void ProgressLine::show(std::uint64_t done, std::uint64_t total,
                        const std::function<std::string()>& text) {
  const std::lock_guard lock(_mutex);
  if (!_isTerminal || !isDue()) return;
  draw(done >= total ? 1 : static_cast<double>(done) / static_cast<double>(total), text());
}

bool ProgressLine::isDue() {
  const Clock::time_point now = _now();
  if (now < _nextDraw) return false;
  _nextDraw = now + kRedraw;
  return true;
}

// Beyond the last column nothing is drawn: of a line that goes on in the next row only that row
// would be erased.
void ProgressLine::draw(double done, const std::string& text) {
  Streams::err(fmt::format("{}\x1b[?7l{:3.0f} %  {}\x1b[?7h", kEraseLine, 100.0 * done, text));
  std::fflush(stderr);
  _isShown = true;
}

void ProgressLine::message(const std::string& text) {
  const std::lock_guard lock(_mutex);
  clear();
  Streams::err(text + "\n");
}

void ProgressLine::print(const std::string& text) {
  const std::lock_guard lock(_mutex);
  clear();
  Streams::out(text);
}

void ProgressLine::hide() {
  const std::lock_guard lock(_mutex);
  clear();
  _isTerminal = false;
}

void ProgressLine::clear() {
  if (_isShown) Streams::err(kEraseLine);
  _isShown = false;
}
