// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

/// Where the device link's log text goes: standard output, unless a program or a test takes it
/// over. Interface thread only.
class MIDILog {
 public:
  using Sink = std::function<void(std::string_view text)>;

  /// Writes the text as it is; line ends are part of it.
  static void write(std::string_view text);
  /// Hands every later text to `sink`; an empty one means standard output again.
  static void setSink(Sink sink);
};
