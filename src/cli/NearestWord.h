// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Guesses which word was meant by one that nobody knows.
class NearestWord {
 public:
  /// The word that takes the fewest letters to change, leave out, put in or swap, if they are less
  /// than half of what was written.
  static std::optional<std::string> of(std::string_view written,
                                       const std::vector<std::string>& words);
};
