// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Standard output and standard error of the tool. Nothing throws; safe on any thread.
///
/// A reader of standard output that goes away, as `head` does, is no error: the work goes on, and
/// what would be said is dropped.
class Streams {
 public:
  /// Prints at once.
  static void out(std::string_view text);
  static void err(std::string_view text);

  /// Whether standard output has lost its reader.
  [[nodiscard]] static bool isReaderGone();
  /// Why something could not be printed; empty when all was, or nobody reads it any more.
  [[nodiscard]] static std::string failure();
};
