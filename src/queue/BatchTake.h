// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "wav/WaveFileReader.h"

/// What there is to know of a take before it is exported with others, from its header. Plain data.
struct BatchTake {
  /// What a take was heard with last.
  struct Sound {
    std::optional<double> angle;  ///< degrees; none where the width does not count
    double gain = 0;              ///< dB
  };
  /// Tells what is remembered of a take, where anything is. Any thread; may wait for the medium.
  using Recall = std::function<std::optional<Sound>(const WaveFileReader& reader)>;

  BatchTake() = default;
  /// Reads the header and waits for the medium. Any thread.
  explicit BatchTake(const std::filesystem::path& path, const Recall& recall = {});

  /// Bytes that its export comes to.
  [[nodiscard]] std::uint64_t size(bool is24bit, bool keepsMetadata = false) const {
    return (is24bit ? size24 : size32) + (keepsMetadata ? keptBytes : 0);
  }

  std::filesystem::path file;
  std::string refusal;  ///< why it is no recording, in words for people; empty where it is one
  double seconds = 0;
  std::uint64_t size24 = 0;
  std::uint64_t size32 = 0;
  std::uint64_t keptBytes = 0;  ///< what an export grows by that keeps the metadata
  std::optional<Sound> remembered;
  bool isNoise = false;  ///< its samples are of a kind that does not decode to sound
};
