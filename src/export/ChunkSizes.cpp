// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/ChunkSizes.h"

#include "wav/LongSizes.h"
#include "wav/RiffLayout.h"
#include "wav/WaveHeader.h"

namespace {

constexpr std::uint32_t kRiffSizePosition = 4;

template <class Value>
ChunkSizes::Patch patch(std::uint32_t position, Value value) {
  ChunkSizes::Patch made{position, {}};
  for (std::size_t i = 0; i < sizeof value; ++i) {
    made.bytes.push_back(static_cast<std::byte>(value >> (8 * i)));
  }
  return made;
}

}  // namespace

// The room of JUNK is just that of ds64 without a table, whose entry count stays 0.
std::vector<ChunkSizes::Patch> ChunkSizes::patches(std::uint64_t fileSize, std::uint64_t dataSize,
                                                   std::uint32_t frameBytes,
                                                   std::uint32_t dataSizePosition) {
  return patches(fileSize, dataSize, frameBytes, dataSizePosition,
                 isRf64(fileSize) ? kRf64ID : kRiffID);
}

std::vector<ChunkSizes::Patch> ChunkSizes::patches(std::uint64_t fileSize, std::uint64_t dataSize,
                                                   std::uint32_t frameBytes,
                                                   std::uint32_t dataSizePosition,
                                                   std::uint32_t identifier) {
  const std::uint64_t riffSize = fileSize - riff::kChunkHeader;
  if (identifier == kRiffID) {
    return {patch(kRiffSizePosition, static_cast<std::uint32_t>(riffSize)),
            patch(dataSizePosition, static_cast<std::uint32_t>(dataSize))};
  }
  return {patch(0, identifier),
          patch(kRiffSizePosition, LongSizes::kElsewhere),
          patch(LongSizes::kChunkAt, kDs64ID),
          patch(LongSizes::kRiffAt, riffSize),
          patch(LongSizes::kDataAt, dataSize),
          patch(LongSizes::kFrameCountAt, frameBytes == 0 ? 0 : dataSize / frameBytes),
          patch(dataSizePosition, LongSizes::kElsewhere)};
}
