// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/TakeDiagnosis.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "wav/ImageFields.h"
#include "wav/LongSizes.h"
#include "wav/RiffLayout.h"
#include "wav/WaveHeader.h"

namespace {

constexpr std::uint64_t kFormatBytes = 16;
constexpr std::uint64_t kTailOfZeros = 512;  // a sector, the least that a card writes
constexpr std::size_t kMostChunks = 1024;
constexpr std::uint64_t kMostHeader = 16 << 20;  // is held in memory
constexpr std::size_t kLookBytes = 1 << 18;

bool isZero(std::byte byte) {
  return byte == std::byte{0};
}

/// Finds where the sound begins, and what stands against it.
class Search {
 public:
  Search(const WaveImage& image, const std::atomic<bool>* cancel)
      : _image(image), _fields(image), _cancel(cancel) {}

  TakeDiagnosis run() {
    _found.whyHopeless = findData();
    if (!_found.whyHopeless.empty()) return _found;
    _held = _image.size() - _found.dataAt;
    examineData();
    examineEnd();
    if (_found.isCancelled) return _found;
    _found.state =
        _found.findings.empty() ? TakeDiagnosis::State::Sound : TakeDiagnosis::State::Broken;
    if (_found.state == TakeDiagnosis::State::Broken && _found.keptBytes == 0) giveUp();
    return _found;
  }

 private:
  std::string findData() {
    const std::uint32_t identifier = _fields.u32(0);
    const bool isLong = identifier == kRf64ID || identifier == kBw64ID;
    if (identifier != kRiffID && !isLong) return "it does not begin as a WAVE file";
    if (_fields.u32(8) != kWaveID) return "a RIFF file, but not WAVE";
    if (isLong) _sizes = LongSizes::read(_fields);
    std::string reason = walkToData();
    if (!reason.empty()) return reason;
    return _found.frameBytes > 0 ? "" : "its format has no frames";
  }

  // The chunks before the sound were written at once, so their sizes hold or nothing does.
  std::string walkToData() {
    std::uint64_t position = riff::kFirstChunk;
    const std::uint64_t end = std::min(_image.size(), kMostHeader);
    for (std::size_t i = 0; i < kMostChunks && position + riff::kChunkHeader <= end; ++i) {
      const std::uint32_t identifier = _fields.u32(position);
      const std::uint64_t payload = position + riff::kChunkHeader;
      const std::uint64_t size = sizeAt(position);
      if (identifier == kDataID) {
        _found.dataAt = payload;
        _stated = size;
        return _hasFormat ? "" : "there is no format chunk before the sound";
      }
      if (size > _image.size() - payload) break;
      if (identifier == kFmtID && size >= kFormatBytes) readFormat(payload);
      position = payload + size;
      if (_sizes && size % 2 == 1 && _fields.u8(position) == 0) ++position;
    }
    return "no sound is found in it (data chunk)";
  }

  std::uint64_t sizeAt(std::uint64_t position) {
    const std::uint32_t stated = _fields.u32(position + 4);
    return _sizes ? _sizes->chunkSize(_fields.u32(position), stated) : stated;
  }

  // A later one counts, as where a take is read.
  void readFormat(std::uint64_t payload) {
    _hasFormat = true;
    _found.channels = _fields.u16(payload + 2);
    _found.sampleRate = _fields.u32(payload + 4);
    _found.frameBytes = std::uint64_t{_fields.u16(payload + 14)} / 8 * _found.channels;
  }

  [[nodiscard]] std::uint64_t riffEnd() {
    const std::uint32_t stated = _fields.u32(4);
    const std::uint64_t size = _sizes ? _sizes->riffSize(stated) : stated;
    return size > _image.size() - riff::kChunkHeader ? _image.size() + 1
                                                     : size + riff::kChunkHeader;
  }

  // What says that the size stands elsewhere says nothing where there is no such place. An empty
  // data chunk in a file that is whole is a take without sound; a size that just fits what
  // the file holds but for a multiple of 4 GiB has passed what its field holds.
  [[nodiscard]] bool isSizeKnown() {
    if (!_sizes && _stated == LongSizes::kElsewhere) return false;
    if (_stated == 0) return riffEnd() == _image.size() && hasOnlyChunksAfter();
    const bool hasWrapped =
        !_sizes && _held > _stated && static_cast<std::uint32_t>(_held) == _stated;
    return _stated <= _held && !hasWrapped;
  }

  // Sound is no row of chunks that ends just with the file.
  bool hasOnlyChunksAfter() {
    std::uint64_t position = _found.dataAt;
    for (std::size_t i = 0; i < kMostChunks && position < _image.size(); ++i) {
      const std::uint64_t size = riff::kChunkHeader + sizeAt(position);
      if (!isName(_fields.u32(position)) || size > _image.size() - position) return false;
      position += size;
    }
    return position == _image.size();
  }

  static bool isName(std::uint32_t identifier) {
    for (int shift = 0; shift < 32; shift += 8) {
      const std::uint32_t character = identifier >> shift & 0xFF;
      if (character < 0x20 || character > 0x7E) return false;
    }
    return true;
  }

  void examineData() {
    const bool isKnown = isSizeKnown();
    const std::uint64_t bytes = isKnown ? _stated : _held;
    if (!isKnown) tell("the data chunk states {} bytes, the file holds {}", _stated, _held);
    _found.keptBytes = isKnown ? bytes : withoutZeros(bytes);
    const std::uint64_t left = _found.keptBytes % _found.frameBytes;
    if (left == 1) tell("1 byte of half a frame at the end");
    if (left > 1) tell("{} bytes of half a frame at the end", left);
    _found.keptBytes -= left;
    if (isKnown) _found.tailAt = _found.dataAt + bytes;
  }

  // Of so many bytes of sound those up to the end of the frame that holds the last one that is not
  // 0.
  std::uint64_t withoutZeros(std::uint64_t bytes) {
    const std::uint64_t loud = endOfSound(_found.dataAt + bytes) - _found.dataAt;
    const std::uint64_t frame = _found.frameBytes;
    const std::uint64_t frames = std::min((loud + frame - 1) / frame * frame, bytes);
    const std::uint64_t zeros = bytes - frames;
    if (zeros < kTailOfZeros) return bytes;
    tell("{} zero bytes at the end, where no sound was written", zeros);
    return frames;
  }

  // The end of the last byte before `end` that is not 0, and not before the sound.
  std::uint64_t endOfSound(std::uint64_t end) {
    while (end > _found.dataAt && !isCancelled()) {
      const std::uint64_t start = end - std::min<std::uint64_t>(kLookBytes, end - _found.dataAt);
      const auto block = _image.view(start, static_cast<std::size_t>(end - start), _block);
      const auto last = std::find_if_not(block.rbegin(), block.rend(), isZero);
      if (last != block.rend()) return start + static_cast<std::uint64_t>(block.rend() - last);
      end = start;
    }
    return end;
  }

  void examineEnd() {
    const std::uint64_t end = riffEnd();
    const std::uint64_t length = _image.size();
    const bool isUsable = end <= length && end >= std::max(_found.dataAt, _found.tailAt);
    if (!isUsable) tell("the file states {} bytes, and has {}", statedFileSize(), length);
    if (_found.tailAt == 0) return;
    const std::uint64_t least = isUsable ? end : _found.tailAt;
    const std::uint64_t used = length - least < kTailOfZeros ? length : endOfSound(length);
    const std::uint64_t zeros = length - std::max(used, least);
    const bool isZeros = zeros >= kTailOfZeros && (!isUsable || used <= end);
    if (isZeros) tell("{} zero bytes after the end of the take", zeros);
    const std::uint64_t otherwise = isZeros ? length - zeros : length;
    _found.tailBytes = (isUsable ? end : otherwise) - _found.tailAt;
  }

  [[nodiscard]] std::uint64_t statedFileSize() {
    const std::uint32_t stated = _fields.u32(4);
    const std::uint64_t size = _sizes ? _sizes->riffSize(stated) : stated;
    return size == 0 ? 0 : size + std::min(riff::kChunkHeader, ~size);
  }

  void giveUp() {
    _found.state = TakeDiagnosis::State::Hopeless;
    _found.whyHopeless = "no sound was written to it";
  }

  bool isCancelled() {
    _found.isCancelled = _cancel != nullptr && _cancel->load(std::memory_order_relaxed);
    return _found.isCancelled;
  }

  template <class... Values>
  void tell(fmt::format_string<Values...> text, Values&&... values) {
    _found.findings.push_back(fmt::format(text, std::forward<Values>(values)...));
  }

  const WaveImage& _image;
  ImageFields _fields;
  const std::atomic<bool>* _cancel;
  std::optional<LongSizes> _sizes;
  bool _hasFormat = false;
  std::uint64_t _stated = 0;  ///< of the data chunk
  std::uint64_t _held = 0;    ///< from the first sample byte to the end of the file
  std::vector<std::byte> _block;
  TakeDiagnosis _found;
};

}  // namespace

TakeDiagnosis TakeDiagnosis::of(const WaveImage& image, const std::atomic<bool>* cancel) {
  if (image.size() < riff::kFirstChunk) {
    TakeDiagnosis none;
    none.whyHopeless = "it does not begin as a WAVE file";
    return none;
  }
  return Search(image, cancel).run();
}
