// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

/// What there is to know of a take before it is exported with others, from its header. Plain data.
struct BatchTake {
  BatchTake() = default;
  /// Reads the header and waits for the medium. Any thread.
  explicit BatchTake(const std::filesystem::path& path);

  /// Bytes that its export comes to.
  [[nodiscard]] std::uint64_t size(bool is24bit) const { return is24bit ? size24 : size32; }

  std::filesystem::path file;
  std::string refusal;  ///< why it is no recording, in words for people; empty where it is one
  double seconds = 0;
  std::uint64_t size24 = 0;
  std::uint64_t size32 = 0;
  bool isNoise = false;  ///< its samples are of a kind that does not decode to sound
};
