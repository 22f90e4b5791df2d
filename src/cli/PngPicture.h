// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// A picture in SVG made into a PNG by `mixdeck-plot-png`, a program beside this one: the tool
/// itself does without what draws, so that it starts quickly.
class PngPicture {
 public:
  /// Waits for the program.
  explicit PngPicture(const std::string& svg);

  /// Empty where it could not be made.
  [[nodiscard]] const std::vector<std::byte>& bytes() const { return _bytes; }
  /// Why not; empty when it could.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  std::vector<std::byte> _bytes;
  std::string _failure;
};
