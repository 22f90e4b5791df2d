// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Chunk identifiers: four characters as a 32-bit little-endian integer.
inline constexpr std::uint32_t kRiffID = 0x46464952;
inline constexpr std::uint32_t kRf64ID = 0x34364652;
inline constexpr std::uint32_t kBw64ID = 0x34365742;
inline constexpr std::uint32_t kWaveID = 0x45564157;
inline constexpr std::uint32_t kFmtID = 0x20746D66;
inline constexpr std::uint32_t kDataID = 0x61746164;
inline constexpr std::uint32_t kDs64ID = 0x34367364;

/// Format tags of the "fmt " chunk.
inline constexpr std::uint16_t kFormatPCM = 1;
inline constexpr std::uint16_t kFormatFloat = 3;

/// Summary of a WAVE file, as stored in it. Positions are absolute file offsets in bytes.
struct WaveHeader {
  std::uint32_t ChunkID = 0;        ///< "RIFF", "RF64" or "BW64" in a valid file
  std::uint32_t ChunkSize = 0;      ///< RIFF size: file length minus 8; as stored
  std::uint32_t Format = 0;         ///< "WAVE" in a valid file
  std::uint32_t Subchunk1ID = 0;    ///< "fmt " once a format chunk is found
  std::uint32_t Subchunk1Size = 0;  ///< size field of the last format chunk
  std::uint16_t AudioFormat = 0;    ///< format tag: 1 integer PCM, 3 IEEE float
  std::uint16_t NumChannels = 0;
  std::uint32_t SampleRate = 0;  ///< frames per second
  std::uint32_t ByteRate = 0;    ///< not recomputed
  std::uint16_t BlockAlign = 0;  ///< not used for reading
  std::uint16_t BitsPerSample = 0;
  std::uint64_t dataChunkPosition = 0;  ///< first byte of the sample data; 0: no data chunk
  std::uint64_t dataChunkLength = 0;    ///< the data chunk's size, not compared with the file
  std::uint64_t dataChunkEnd = 0;       ///< position + length; in a RIFF file modulo 2^32

  /// Whether sizes may have 64 bits, in a chunk "ds64".
  [[nodiscard]] bool isLong() const { return ChunkID == kRf64ID || ChunkID == kBw64ID; }

  /// Whether its samples decode to useful sound: 24-bit integers and 32-bit floats do, others by
  /// the recorder's own rules do not.
  [[nodiscard]] bool hasSound() const {
    return BitsPerSample == 24 || (BitsPerSample == 32 && AudioFormat == kFormatFloat);
  }
};

/// One indexed chunk.
struct ChunkInfo {
  std::uint32_t chunkID = 0;
  std::uint64_t chunkSize = 0;  ///< the size field as stored, or what "ds64" states in its place
  std::uint64_t streamPos = 0;  ///< absolute offset of the payload, after the 8-byte header
};
