// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveIndex.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::uint64_t kSmallestFile = 48;
constexpr std::uint32_t kSmallestWalk = 20;
constexpr std::uint32_t kFirstChunk = 12;
constexpr std::uint32_t kChunkHeader = 8;

// Little-endian integers of an image, fetched through a small window. Bytes past the end are 0.
class Fields {
 public:
  explicit Fields(const WaveImage& image) : _image(image) {}

  std::uint16_t u16(std::uint64_t offset) {
    return static_cast<std::uint16_t>(byte(offset) | byte(offset + 1) << 8);
  }
  std::uint32_t u32(std::uint64_t offset) {
    return u16(offset) | static_cast<std::uint32_t>(u16(offset + 2)) << 16;
  }

 private:
  std::uint32_t byte(std::uint64_t offset) {
    if (offset < _start || offset - _start >= _held) fetch(offset);
    return offset - _start < _held ? std::to_integer<std::uint32_t>(_window[offset - _start]) : 0;
  }
  void fetch(std::uint64_t offset) {
    _start = offset;
    _held = _image.readAt(offset, _window);
  }

  const WaveImage& _image;
  std::array<std::byte, 4096> _window{};
  std::uint64_t _start = 0;
  std::size_t _held = 0;
};

void readFormat(Fields& fields, std::uint32_t size, std::uint32_t payload, WaveIndex& index) {
  const std::uint64_t q = payload;
  index.header.Subchunk1ID = kFmtID;
  index.header.Subchunk1Size = size;
  index.header.AudioFormat = fields.u16(q);
  index.header.NumChannels = fields.u16(q + 2);
  index.header.SampleRate = fields.u32(q + 4);
  index.header.ByteRate = fields.u32(q + 8);
  index.header.BlockAlign = fields.u16(q + 12);
  index.header.BitsPerSample = fields.u16(q + 14);
  index.encoding = index.header.AudioFormat;
}

void readData(std::uint32_t size, std::uint32_t payload, WaveHeader& header) {
  header.dataChunkPosition = payload;
  header.dataChunkLength = size;
  header.dataChunkEnd = payload + size;  // wraps on purpose
}

// Takes in the chunk; false when it is one too many, or it runs past the end of the image and ends
// the walk.
bool readChunk(Fields& fields, const ChunkInfo& chunk, std::uint64_t length, WaveIndex& index) {
  index.hasTooManyChunks = index.chunks.size() == WaveIndex::kMostChunks;
  if (index.hasTooManyChunks) return false;
  if (chunk.chunkID == kFmtID) {
    readFormat(fields, chunk.chunkSize, chunk.streamPos, index);
  } else if (chunk.chunkID == kDataID) {
    readData(chunk.chunkSize, chunk.streamPos, index.header);
  } else if (length - chunk.streamPos < chunk.chunkSize) {
    return false;
  }
  index.chunks.push_back(chunk);
  return true;
}

void walk(Fields& fields, std::uint64_t length, std::uint64_t limit, WaveIndex& index) {
  std::uint64_t position = kFirstChunk;
  while (position + kChunkHeader <= limit) {
    const ChunkInfo chunk{fields.u32(position), fields.u32(position + 4),
                          static_cast<std::uint32_t>(position + kChunkHeader)};
    if (!readChunk(fields, chunk, length, index)) return;
    // In 64 bits: a size that wraps a 32-bit position would walk in circles, so it ends the walk.
    position += kChunkHeader + std::uint64_t{chunk.chunkSize};
  }
}

}  // namespace

void WaveIndex::parse(const WaveImage& image) {
  isValidFile = false;
  hasTooManyChunks = false;
  const std::uint64_t length = image.size();
  if (length < kSmallestFile) return;
  Fields fields(image);
  header.ChunkID = fields.u32(0);
  header.ChunkSize = fields.u32(4);
  header.Format = fields.u32(8);
  if (header.ChunkID != kRiffID || header.Format != kWaveID) return;
  chunks.clear();
  const std::uint32_t riffEnd = header.ChunkSize + kChunkHeader;  // wraps on purpose
  const std::uint64_t limit = std::min<std::uint64_t>(length, riffEnd);
  if (limit >= kSmallestWalk) walk(fields, length, limit, *this);
  const bool isComplete = header.dataChunkPosition != 0 && header.Subchunk1ID == kFmtID;
  isValidFile = isComplete && !hasTooManyChunks;
}

std::optional<ChunkInfo> WaveIndex::find(std::string_view identifier) const {
  const auto matches = [identifier](const ChunkInfo& chunk) {
    for (std::size_t i = 0; i < 4; ++i) {
      if (static_cast<char>(chunk.chunkID >> (8 * i)) != identifier[i]) return false;
    }
    return true;
  };
  if (identifier.size() != 4) return std::nullopt;
  const auto found = std::find_if(chunks.begin(), chunks.end(), matches);
  return found == chunks.end() ? std::nullopt : std::optional(*found);
}

std::string_view WaveIndex::whyInvalid(std::uint64_t imageSize) const {
  if (isValidFile) return "";
  if (imageSize < kSmallestFile) return "shorter than 48 bytes";
  if (header.ChunkID != kRiffID) return "not a RIFF file";
  if (header.Format != kWaveID) return "a RIFF file, but not WAVE";
  if (hasTooManyChunks) return "more chunks than a recording has";
  if (header.Subchunk1ID != kFmtID) return "no format chunk";
  return "no data chunk";
}
