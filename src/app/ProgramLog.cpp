// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ProgramLog.h"

#include <syslog.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <utility>

#include "base/Log.h"
#include "midi/MIDILog.h"

namespace {

// Texts of the device link come with line ends of their own, several a text.
void writeEach(std::string_view text, const ProgramLog::Write& write) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (end > 0) write(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

}  // namespace

ProgramLog::ProgramLog(bool isShown, Write system, Write terminal) {
  const Write both = [isShown, system = std::move(system),
                      terminal = std::move(terminal)](std::string_view line) {
    system(line);
    if (isShown) terminal(line);
  };
  Log::setSink(both);
  MIDILog::setSink([both](std::string_view text) { writeEach(text, both); });
}

ProgramLog::~ProgramLog() {
  Log::setSink({});
  MIDILog::setSink({});
}

void ProgramLog::toSystem(std::string_view line) {
  syslog(LOG_USER | LOG_INFO, "%.*s", static_cast<int>(line.size()), line.data());
}

void ProgramLog::toTerminal(std::string_view line) {
  std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}
