// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
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
    auto head = WaveBytes().format24().recorderBext().chunk("data", sampleBytes, {}).get();
    const std::uint64_t fileSize = head.size() + sampleBytes - kBeforeSize;
    for (std::size_t i = 0; i < sizeof(std::uint32_t); ++i) {
      head[kSizeAt + i] = static_cast<std::byte>(fileSize >> 8 * i);
    }
    const std::filesystem::path path = folder.file(name, head);
    std::filesystem::resize_file(path, head.size() + sampleBytes);
    return path;
  }

 private:
  static constexpr std::size_t kSizeAt = 4;      // of the file, in its header
  static constexpr std::size_t kBeforeSize = 8;  // bytes that it does not count
};
