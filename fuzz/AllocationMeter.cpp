// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "AllocationMeter.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <string_view>

namespace {

// Counted before main already, so they cannot wait for a constructor.
constinit std::atomic<std::int64_t> held{0};
constinit std::atomic<std::int64_t> most{0};
constinit std::atomic<std::int64_t> atStart{0};

// Without a heap to speak from.
[[noreturn]] void stop() {
  constexpr std::string_view kWords = "A runaway: more than 1 GiB of the heap\n";
  [[maybe_unused]] const auto written = write(STDERR_FILENO, kWords.data(), kWords.size());
  std::abort();
}

}  // namespace

void AllocationMeter::start() {
  atStart = held.load();
  most = held.load();
}

std::uint64_t AllocationMeter::peak() {
  return static_cast<std::uint64_t>(std::max<std::int64_t>(0, most - atStart));
}

void AllocationMeter::allocated(std::size_t bytes) {
  const auto change = static_cast<std::int64_t>(bytes);
  const std::int64_t now = held.fetch_add(change) + change;
  if (now - atStart > kStop) stop();
  std::int64_t before = most;
  while (before < now && !most.compare_exchange_weak(before, now)) continue;
}

void AllocationMeter::freed(std::size_t bytes) {
  held -= static_cast<std::int64_t>(bytes);
}
