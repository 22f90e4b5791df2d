// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>

/// Texts of a file's fields. The recorder writes ASCII, other programs UTF-8 or Latin-1.
class Utf8 {
 public:
  /// Whether all of it is well-formed.
  static bool isValid(std::span<const std::uint8_t> bytes);
  /// The bytes up to the first zero, in UTF-8: as they are where they are that already, else each
  /// as one Latin-1 character.
  static std::string textOf(std::span<const std::uint8_t> field);
};
