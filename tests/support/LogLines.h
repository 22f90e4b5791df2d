// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "base/Log.h"

/// Collects the log lines of one test instead of showing them. One thread.
class LogLines {
 public:
  LogLines() {
    Log::setSink([this](std::string_view line) { _lines.emplace_back(line); });
  }
  LogLines(const LogLines&) = delete;
  LogLines& operator=(const LogLines&) = delete;
  ~LogLines() { Log::setSink({}); }

  [[nodiscard]] const std::vector<std::string>& get() const { return _lines; }

 private:
  std::vector<std::string> _lines;
};
