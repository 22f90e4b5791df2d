// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/KeptMetadata.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "export/Recognition.h"
#include "wav/BextLayout.h"
#include "wav/RiffLayout.h"

namespace {

constexpr std::array<std::string_view, 3> kIdentifiers{"cue ", "LIST", "iXML"};
constexpr std::string_view kDecodedMark = "MSRAW=DECODED";

// A chunk of marks: how many, then of each its number, its place in the order of playing, where its
// samples are, and the frame that it marks.
constexpr std::size_t kFirstMark = 4;
constexpr std::size_t kMarkBytes = 24;
constexpr std::size_t kPlaceInMark = 4;
constexpr std::size_t kFrameInMark = 20;

std::string textAt(std::span<const std::uint8_t> bext, BextField field) {
  return WaveFileReader::DecodeAsString(bext.data() + field.offset, field.size);
}

std::string asciiOf(const std::uint8_t* bytes, std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < length && bytes[i] != 0; ++i) {
    text += bytes[i] < 0x80 ? static_cast<char>(bytes[i]) : '?';
  }
  return text;
}

std::string keptHistory(std::span<const std::uint8_t> bext) {
  std::string text = asciiOf(bext.data() + bext::kFixedSize, bext.size() - bext::kFixedSize);
  while (!text.empty() && std::string_view(" \t\r\n").find(text.back()) != std::string_view::npos) {
    text.pop_back();
  }
  for (std::size_t at = text.find(Recognition::kRawMark); at != std::string::npos;
       at = text.find(Recognition::kRawMark, at)) {
    text.replace(at, Recognition::kRawMark.size(), kDecodedMark);
  }
  return text;
}

std::uint32_t numberAt(const std::vector<std::byte>& bytes, std::size_t offset) {
  std::uint32_t number = 0;
  std::memcpy(&number, &bytes[offset], sizeof number);
  return number;
}

void putNumber(std::vector<std::byte>& bytes, std::size_t offset, std::uint32_t number) {
  std::memcpy(&bytes[offset], &number, sizeof number);
}

// The marks inside of the range, counted from its beginning; nothing where there are none.
std::vector<std::byte> marksWithin(const std::vector<std::byte>& bytes, const FrameRange& range) {
  if (bytes.size() < kFirstMark) return {};
  std::vector<std::byte> kept(kFirstMark);
  const std::size_t held = (bytes.size() - kFirstMark) / kMarkBytes;
  const auto first = static_cast<std::uint32_t>(range.first);
  for (std::size_t i = 0; i < std::min<std::size_t>(numberAt(bytes, 0), held); ++i) {
    const std::size_t at = kFirstMark + i * kMarkBytes;
    const std::uint32_t frame = numberAt(bytes, at + kFrameInMark);
    if (frame < range.first || frame >= range.end) continue;
    const std::size_t to = kept.size();
    kept.insert(kept.end(), &bytes[at], &bytes[at] + kMarkBytes);
    putNumber(kept, to + kFrameInMark, frame - first);
    putNumber(
        kept, to + kPlaceInMark,
        numberAt(bytes, at + kPlaceInMark) - std::min(numberAt(bytes, at + kPlaceInMark), first));
  }
  const std::size_t count = (kept.size() - kFirstMark) / kMarkBytes;
  putNumber(kept, 0, static_cast<std::uint32_t>(count));
  return count == 0 ? std::vector<std::byte>() : kept;
}

std::string identifierOf(const ChunkInfo& chunk) {
  std::string text;
  for (int shift = 0; shift < 32; shift += 8) text += static_cast<char>(chunk.chunkID >> shift);
  return text;
}

}  // namespace

KeptMetadata::KeptMetadata(const WaveFileReader& source, std::span<const std::uint8_t> bext,
                           const FrameRange& range) {
  if (bext.size() >= bext::kFixedSize) takeExtension(bext, range);
  for (const ChunkInfo& chunk : source.chunks()) {
    const bool isKept = std::find(kIdentifiers.begin(), kIdentifiers.end(), identifierOf(chunk)) !=
                        kIdentifiers.end();
    if (!isKept) continue;
    if (chunk.chunkSize <= kMostBytes) {
      takeChunk(source, chunk, range);
    } else {
      _leftOut.push_back({identifierOf(chunk), chunk.chunkSize});
    }
  }
}

void KeptMetadata::takeExtension(std::span<const std::uint8_t> bext, const FrameRange& range) {
  _date = textAt(bext, bext::kOriginationDate);
  _time = textAt(bext, bext::kOriginationTime);
  _history = keptHistory(bext);
  std::uint64_t reference = 0;
  std::memcpy(&reference, &bext[bext::kTimeReference.offset], sizeof reference);
  _timeReference = static_cast<std::int64_t>(reference + range.first);
}

void KeptMetadata::takeChunk(const WaveFileReader& source, const ChunkInfo& chunk,
                             const FrameRange& range) {
  const WavArray data = source.getChunkData(chunk);
  _isCutShort |= data.length < chunk.chunkSize;
  const auto held = std::as_bytes(std::span(data.bytes, data.length));
  Chunk kept{identifierOf(chunk), {held.begin(), held.end()}};
  const bool isStretch = range.first > 0 || range.end < source.frameCount();
  if (isStretch && kept.identifier == kIdentifiers[0]) kept.bytes = marksWithin(kept.bytes, range);
  if (kept.bytes.empty()) return;
  if (kept.bytes.size() % 2 == 1) kept.bytes.push_back(std::byte{0});
  _chunks.push_back(std::move(kept));
}

void KeptMetadata::putInto(BextChunkInfo& info) const {
  info.keptDate = _date;
  info.keptTime = _time;
  info.TimeReference = _timeReference;
  if (!_history.empty()) info.CodingHistory = _history + "\r\n" + info.CodingHistory;
}

std::uint64_t KeptMetadata::size() const {
  std::uint64_t sum = 0;
  for (const Chunk& chunk : _chunks) sum += riff::kChunkHeader + chunk.bytes.size();
  return sum;
}
