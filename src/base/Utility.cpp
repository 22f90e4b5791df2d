// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Utility.h"

#include <chrono>

#include "base/Log.h"
#include "base/SettingsFile.h"

namespace {

// Not the wall clock: that one jumps when it is set.
using Clock = std::chrono::steady_clock;

std::optional<Clock::time_point> started;

}  // namespace

void Utility::store(std::string_view key, std::string_view valueString) {
  const std::filesystem::path path = SettingsFile::defaultPath();
  if (SettingsFile(path).set(std::string(key), std::string(valueString))) return;
  Log::line("Cannot write " + path.native());
}

std::optional<std::string> Utility::getStringValue(std::string_view key) {
  return SettingsFile(SettingsFile::defaultPath()).get(std::string(key));
}

void Utility::stopWatch_start() {
  started = Clock::now();
}

double Utility::stopWatch_stop() {
  if (!started) return 0.0;
  return std::chrono::duration<double>(Clock::now() - *started).count();
}
