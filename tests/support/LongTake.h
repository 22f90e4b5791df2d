// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

/// A recording of silence that is long but takes next to no room on the disk.
class LongTake {
 public:
  /// Makes `name` in the folder, with this many bytes of 24-bit samples, and returns its path.
  static std::filesystem::path make(const TemporaryFolder& folder, const std::string& name,
                                    std::uint32_t sampleBytes) {
    const auto head = WaveBytes().format24().recorderBext().chunk("data", sampleBytes, {}).get();
    const std::filesystem::path path = folder.file(name, head);
    std::filesystem::resize_file(path, head.size() + sampleBytes);
    return path;
  }
};
