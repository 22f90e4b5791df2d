// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "playback/AudioFile.h"

/// Packets in memory in place of a file. The path is not looked at. One thread.
class MemoryAudioFile : public AudioFile {
 public:
  MemoryAudioFile(const AudioFormat& format, std::vector<std::byte> packets);

  /// Reads that touch this frame fail with this error number.
  void failAt(std::uint64_t frame, int error);

  bool open(const std::string& path) override;
  [[nodiscard]] std::string failure() const override { return _failure; }
  [[nodiscard]] AudioFormat format() const override { return _format; }
  [[nodiscard]] std::uint64_t frameCount() const override;
  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override;

 private:
  AudioFormat _format;
  std::vector<std::byte> _packets;
  std::uint64_t _badFrame = UINT64_MAX;
  int _error = 0;
  std::string _failure;
};
