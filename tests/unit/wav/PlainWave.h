// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "wav/WaveHeader.h"

/// A WAVE file walked, decoded and measured byte by byte, the slow and obvious way, for holding the
/// library to. Shares no code with it but the plain records.
class PlainWave {
 public:
  using Frame = std::array<float, 2>;

  explicit PlainWave(std::vector<std::byte> file);

  bool isValid = false;
  std::uint64_t encoding = 0;
  WaveHeader header;
  std::vector<ChunkInfo> chunks;

  /// Every frame from the start of the data to its end or the file's.
  [[nodiscard]] std::vector<Frame> frames() const;
  /// The highest values between two times, decoded where raw, divided by the gain. `position` is
  /// where the reading stopped; not touched when frames have no bytes.
  [[nodiscard]] Frame level(double from, double to, double gain, double angle, bool isRaw,
                            std::uint64_t& position) const;

 private:
  [[nodiscard]] std::uint32_t number(std::uint64_t offset, int count) const;
  void walk(std::int64_t limit);
  void readFormat(std::uint32_t size, std::uint32_t payload);
  [[nodiscard]] std::uint64_t frameBytes() const;
  [[nodiscard]] bool isFinished(std::uint64_t position) const;
  [[nodiscard]] bool sampleAt(std::uint64_t offset, std::uint64_t width, float& value) const;
  [[nodiscard]] Frame frameAt(std::uint64_t position) const;

  std::vector<std::byte> _file;
};
