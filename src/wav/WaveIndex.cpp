// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveIndex.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "wav/ImageFields.h"
#include "wav/LongSizes.h"
#include "wav/RiffLayout.h"

namespace {

constexpr std::uint64_t kSmallestFile = 48;
constexpr std::uint32_t kSmallestWalk = 20;

void readFormat(ImageFields& fields, std::uint32_t size, std::uint64_t q, WaveIndex& index) {
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

// Of a RIFF file in 32 bits, on purpose; of a longer one to the last that there is.
std::uint64_t endOf(const ChunkInfo& data, bool isLong) {
  const std::uint64_t end = data.streamPos + data.chunkSize;
  if (!isLong) return static_cast<std::uint32_t>(end);
  return end < data.streamPos ? std::numeric_limits<std::uint64_t>::max() : end;
}

void readData(const ChunkInfo& chunk, WaveHeader& header) {
  header.dataChunkPosition = chunk.streamPos;
  header.dataChunkLength = chunk.chunkSize;
  header.dataChunkEnd = endOf(chunk, header.isLong());
}

/// The chunks of one image, one after the other.
class Walk {
 public:
  Walk(ImageFields& fields, const std::optional<LongSizes>& sizes, WaveIndex& index)
      : _fields(fields), _sizes(sizes), _index(index) {}

  void run(std::uint64_t limit) {
    std::uint64_t position = riff::kFirstChunk;
    while (position + riff::kChunkHeader <= limit) {
      const ChunkInfo chunk = chunkAt(position);
      // A size beyond the limit would wrap a position, which could go in circles.
      if (!take(chunk) || chunk.chunkSize > limit - chunk.streamPos) return;
      position = chunk.streamPos + chunk.chunkSize + padAfter(chunk);
    }
  }

 private:
  ChunkInfo chunkAt(std::uint64_t position) {
    const std::uint32_t identifier = _fields.u32(position);
    const std::uint32_t stated = _fields.u32(position + 4);
    const std::uint64_t size = _sizes ? _sizes->chunkSize(identifier, stated) : stated;
    return {identifier, size, position + riff::kChunkHeader};
  }

  // The recorder writes none, other programs that write long files do, and no identifier begins
  // with a zero.
  std::uint64_t padAfter(const ChunkInfo& chunk) {
    if (!_sizes || chunk.chunkSize % 2 == 0) return 0;
    return _fields.u8(chunk.streamPos + chunk.chunkSize) == 0 ? 1 : 0;
  }

  // False when it is one too many, or it runs past the end of the image and ends the walk.
  bool take(const ChunkInfo& chunk) {
    _index.hasTooManyChunks = _index.chunks.size() == WaveIndex::kMostChunks;
    if (_index.hasTooManyChunks) return false;
    if (chunk.chunkID == kFmtID) {
      const auto size = static_cast<std::uint32_t>(chunk.chunkSize);
      readFormat(_fields, size, chunk.streamPos, _index);
    } else if (chunk.chunkID == kDataID) {
      readData(chunk, _index.header);
    } else if (_fields.size() - chunk.streamPos < chunk.chunkSize) {
      return false;
    }
    _index.chunks.push_back(chunk);
    return true;
  }

  ImageFields& _fields;
  const std::optional<LongSizes>& _sizes;
  WaveIndex& _index;
};

// Where the last chunk may end.
std::uint64_t walkLimit(std::uint32_t stated, const std::optional<LongSizes>& sizes,
                        std::uint64_t length) {
  const auto riffEnd = static_cast<std::uint32_t>(stated + riff::kChunkHeader);  // wraps on purpose
  if (!sizes) return std::min<std::uint64_t>(length, riffEnd);
  return std::min(length - riff::kChunkHeader, sizes->riffSize(stated)) + riff::kChunkHeader;
}

}  // namespace

void WaveIndex::parse(const WaveImage& image) {
  isValidFile = false;
  hasTooManyChunks = false;
  lacksLongSizes = false;
  const std::uint64_t length = image.size();
  if (length < kSmallestFile) return;
  ImageFields fields(image);
  header.ChunkID = fields.u32(0);
  header.ChunkSize = fields.u32(4);
  header.Format = fields.u32(8);
  if ((header.ChunkID != kRiffID && !header.isLong()) || header.Format != kWaveID) return;
  chunks.clear();
  const auto sizes = header.isLong() ? LongSizes::read(fields) : std::nullopt;
  lacksLongSizes = header.isLong() && !sizes;
  if (lacksLongSizes) return;
  const std::uint64_t limit = walkLimit(header.ChunkSize, sizes, length);
  if (limit >= kSmallestWalk) Walk(fields, sizes, *this).run(limit);
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
  if (header.ChunkID != kRiffID && !header.isLong()) return "not a RIFF file";
  if (header.Format != kWaveID) return "a RIFF file, but not WAVE";
  if (lacksLongSizes) return "an RF64 file without its sizes (ds64 chunk)";
  if (hasTooManyChunks) return "more chunks than a recording has";
  if (header.Subchunk1ID != kFmtID) return "no format chunk";
  return "no data chunk";
}
