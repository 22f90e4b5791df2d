// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "support/ByteBuilder.h"

/// Whole WAVE files in memory, chunk by chunk, with a correct RIFF size in the end. Nothing is
/// padded unless asked for.
class WaveBytes {
 public:
  using Bytes = std::vector<std::byte>;

  WaveBytes();

  /// A chunk with this payload; its size field is the payload's size.
  WaveBytes& chunk(std::string_view identifier, const Bytes& payload);
  /// A chunk whose size field says `statedSize`, whatever the payload holds.
  WaveBytes& chunk(std::string_view identifier, std::uint32_t statedSize, const Bytes& payload);
  /// A 16-byte format chunk with the byte rate and block align that follow.
  WaveBytes& format(std::uint16_t tag, std::uint16_t channels, std::uint32_t rate,
                    std::uint16_t bits);
  /// 24-bit stereo at 48 kHz.
  WaveBytes& format24() { return format(1, 2, 48000, 24); }
  /// 32-bit float stereo at 48 kHz.
  WaveBytes& formatFloat() { return format(3, 2, 48000, 32); }
  /// A broadcast extension of 602 bytes and the history.
  WaveBytes& bext(std::string_view originator, std::string_view codingHistory);
  /// A recorder's broadcast extension, marked as raw Mid/Side or not.
  WaveBytes& recorderBext(bool isRaw = true);
  WaveBytes& data(const Bytes& samples) { return chunk("data", samples); }

  /// The sizes of a file that is to be got by `getLong`; the first chunk there.
  WaveBytes& ds64(std::uint64_t riffSize, std::uint64_t dataSize, const Bytes& table = Bytes(4));

  /// The file, with the RIFF size that fits it.
  [[nodiscard]] Bytes get() const;
  /// The file with another identifier and no RIFF size.
  [[nodiscard]] Bytes getLong(std::string_view identifier = "RF64") const;

  /// Samples as stored: 24-bit values, or floats.
  static Bytes samples24(const std::vector<std::int32_t>& values);
  static Bytes samplesFloat(const std::vector<float>& values);
  /// The payload of a broadcast extension.
  static Bytes bextPayload(std::string_view originator, std::string_view codingHistory,
                           std::string_view description = "");

 private:
  ByteBuilder _bytes;
};
