// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/LongSizes.h"

#include <algorithm>

#include "wav/WaveHeader.h"

namespace {

constexpr std::uint32_t kEntryBytes = 12;

}  // namespace

std::optional<LongSizes> LongSizes::read(ImageFields& fields) {
  const std::uint32_t size = fields.u32(kChunkAt + 4);
  const bool isWhole = size >= kFixedSize && fields.size() >= kEntriesAt;
  if (fields.u32(kChunkAt) != kDs64ID || !isWhole) return std::nullopt;
  LongSizes sizes;
  sizes._riff = fields.u64(kRiffAt);
  sizes._entries.push_back({kDataID, fields.u64(kDataAt)});
  const std::uint64_t held = std::min<std::uint64_t>(size - kFixedSize, fields.size() - kEntriesAt);
  const std::uint64_t stated = std::min(fields.u32(kEntryCountAt), kMostEntries);
  for (std::uint64_t i = 0; i < std::min(stated, held / kEntryBytes); ++i) {
    const std::uint64_t at = kEntriesAt + i * kEntryBytes;
    sizes._entries.push_back({fields.u32(at), fields.u64(at + 4)});
  }
  return sizes;
}

std::uint64_t LongSizes::chunkSize(std::uint32_t identifier, std::uint32_t stated) const {
  if (stated != kElsewhere) return stated;
  const auto isIt = [identifier](const Entry& entry) { return entry.identifier == identifier; };
  const auto found = std::find_if(_entries.begin(), _entries.end(), isIt);
  return found == _entries.end() ? stated : found->size;
}
