// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Utility.h"

#include <chrono>

#include "base/SettingsFile.h"
#include "base/SettingsWriter.h"

namespace {

// Not the wall clock: that one jumps when it is set.
using Clock = std::chrono::steady_clock;

std::optional<Clock::time_point> started;

}  // namespace

void Utility::store(std::string_view key, std::string_view valueString) {
  SettingsWriter::get().store(SettingsFile::defaultPath(), std::string(key),
                              std::string(valueString));
}

std::optional<std::string> Utility::getStringValue(std::string_view key) {
  const std::filesystem::path path = SettingsFile::defaultPath();
  auto pending = SettingsWriter::get().pending(path, key);
  return pending ? pending : SettingsFile(path).get(std::string(key));
}

bool Utility::finishStoring(std::chrono::milliseconds most) {
  return SettingsWriter::get().flush(most);
}

void Utility::stopWatch_start() {
  started = Clock::now();
}

double Utility::stopWatch_stop() {
  if (!started) return 0.0;
  return std::chrono::duration<double>(Clock::now() - *started).count();
}
