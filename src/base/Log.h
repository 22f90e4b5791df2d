// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Where the program's log lines go: standard error, unless a program or a test takes them over.
///
/// Lines may be written on any thread; the sink is set before others write. A line that a sink
/// itself writes goes to standard error.
class Log {
 public:
  using Sink = std::function<void(std::string_view line)>;

  /// Writes one line; the line end is added here.
  static void line(std::string_view text);
  /// Hands every later line to `sink`; an empty one means standard error again.
  static void setSink(Sink sink);
};
