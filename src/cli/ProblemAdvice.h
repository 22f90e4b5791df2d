// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// What to do about what goes wrong with a file: the reason, and behind a semicolon the advice; the
/// reason alone where there is none. Reasons are those of the system and of the libraries.
class ProblemAdvice {
 public:
  /// Of a file that is to be read.
  static std::string onOpening(std::string_view reason);
  /// Of one that is no recording of the recorder.
  static std::string onKind(std::string_view reason);
  /// Of one that is to be written; `elsewhere` says how another place is chosen.
  static std::string onSaving(std::string_view reason, std::string_view elsewhere);
};
