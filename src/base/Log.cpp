// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Log.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace {

struct Destination {
  std::mutex mutex;
  Log::Sink sink;
};

// Lives on while threads are still ending.
Destination& destination() {
  static auto* const kOnly = new Destination;
  return *kOnly;
}

}  // namespace

void Log::line(std::string_view text) {
  const std::lock_guard lock(destination().mutex);
  if (destination().sink) return destination().sink(text);
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
}

void Log::setSink(Sink sink) {
  const std::lock_guard lock(destination().mutex);
  destination().sink = std::move(sink);
}
