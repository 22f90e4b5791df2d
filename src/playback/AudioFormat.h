// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// How one sample lies in a file's packets; little-endian, integers signed but for the 8-bit ones.
enum class SampleType { None, Unsigned8, Signed16, Signed24, Signed32, Float32 };

/// Bytes of one sample; 0 for none.
constexpr std::uint32_t sampleBytes(SampleType type) {
  switch (type) {
    case SampleType::Unsigned8:
      return 1;
    case SampleType::Signed16:
      return 2;
    case SampleType::Signed24:
      return 3;
    case SampleType::Signed32:
    case SampleType::Float32:
      return 4;
    case SampleType::None:
      break;
  }
  return 0;
}

/// Flag of `AudioFormat::formatFlags`: the file holds floats.
inline constexpr std::uint32_t kAudioFormatFlagIsFloat = 1;

/// What a stream of audio packets is made of. All zero where a file could not be opened. Plain
/// data.
struct AudioFormat {
  double sampleRate = 0;  ///< frames per second
  std::uint32_t formatFlags = 0;
  std::uint32_t bytesPerPacket = 0;  ///< also the upper bound of a packet's size
  std::uint32_t framesPerPacket = 0;
  std::uint32_t channelsPerFrame = 0;
  std::uint32_t bitsPerChannel = 0;  ///< of the file
  SampleType sampleType = SampleType::None;
  /// Which speakers the channels are for, in their order: bits as in a WAVE file's extensible
  /// format, 1 front left, 2 front right, 4 front centre and so on. 0 where the file does not tell.
  std::uint32_t channelMask = 0;
};

/// One of the buffers that rotate between a player, which fills it, and the output.
struct AudioQueueBuffer {
  std::byte* data = nullptr;  ///< interleaved samples in the file's format
  std::uint32_t capacity = 0;
  std::uint32_t byteSize = 0;                ///< bytes filled
  std::uint32_t packetDescriptionCount = 0;  ///< packets filled; frames, as a packet is one frame
};
