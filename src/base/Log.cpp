// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Log.h"

#include <cstdio>
#include <memory>
#include <mutex>
#include <utility>

namespace {

struct Destination {
  std::recursive_mutex mutex;  ///< a sink may write lines, and change the sink
  std::shared_ptr<const Log::Sink> sink;
  bool isInSink = false;
};

// Lives on while threads are still ending.
Destination& destination() {
  static auto* const kOnly = new Destination;
  return *kOnly;
}

}  // namespace

void Log::line(std::string_view text) {
  Destination& all = destination();
  const std::lock_guard lock(all.mutex);
  if (const auto sink = all.sink; sink && !all.isInSink) {
    all.isInSink = true;
    (*sink)(text);
    all.isInSink = false;
    return;
  }
  std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
}

void Log::setSink(Sink sink) {
  const std::lock_guard lock(destination().mutex);
  destination().sink = sink ? std::make_shared<const Sink>(std::move(sink)) : nullptr;
}
