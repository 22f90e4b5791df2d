// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDILog.h"

#include <cstdio>
#include <utility>

namespace {

MIDILog::Sink& sinkOfProcess() {
  static MIDILog::Sink sink;
  return sink;
}

}  // namespace

void MIDILog::write(std::string_view text) {
  const Sink& sink = sinkOfProcess();
  if (sink) {
    sink(text);
    return;
  }
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

void MIDILog::setSink(Sink sink) {
  sinkOfProcess() = std::move(sink);
}
