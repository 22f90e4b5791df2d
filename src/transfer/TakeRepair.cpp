// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/TakeRepair.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <system_error>
#include <utility>
#include <vector>

#include "export/ChunkSizes.h"
#include "export/FolderSync.h"
#include "wav/ImageFields.h"
#include "wav/LongSizes.h"
#include "wav/RiffLayout.h"
#include "wav/WaveHeader.h"

namespace {

constexpr std::uint64_t kMost32 = 0xFFFFFFFF;
constexpr std::uint32_t kJunkID = 0x4B4E554A;
constexpr std::size_t kCopyBytes = 1 << 18;

}  // namespace

std::filesystem::path TakeRepair::nameFor(const std::filesystem::path& take) {
  return take.parent_path() / (take.stem().native() + "_Repaired.WAV");
}

TakeRepair::TakeRepair(std::shared_ptr<const WaveImage> image, TakeDiagnosis diagnosis)
    : _image(std::move(image)), _diagnosis(std::move(diagnosis)) {
  ImageFields fields(*_image);
  _identifier = fields.u32(0);
  _firstChunk = fields.u32(riff::kFirstChunk);
  _firstChunkSize = fields.u32(riff::kFirstChunk + 4);
}

bool TakeRepair::hasRoomForSizes() const {
  const bool isRoom = _firstChunk == kJunkID || _firstChunk == kDs64ID;
  const bool isBeforeSound =
      riff::kFirstChunk + riff::kChunkHeader + _firstChunkSize <= _diagnosis.dataAt;
  return isRoom && _firstChunkSize >= LongSizes::kFixedSize && isBeforeSound;
}

// What has its sizes in ds64 keeps them there: those of other chunks may be among them.
bool TakeRepair::isLong() const {
  const bool wasLong = _identifier == kRf64ID || _identifier == kBw64ID;
  if (wasLong && _firstChunk == kDs64ID && hasRoomForSizes()) return true;
  return _diagnosis.dataAt + _diagnosis.keptBytes + _diagnosis.tailBytes > kMost32;
}

std::uint64_t TakeRepair::size() const {
  const std::uint64_t more =
      isLong() && !hasRoomForSizes() ? riff::kChunkHeader + LongSizes::kFixedSize : 0;
  return _diagnosis.dataAt + more + _diagnosis.keptBytes + _diagnosis.tailBytes;
}

std::string TakeRepair::whyNot(const std::filesystem::path& path,
                               AtomicFile::Existing existing) const {
  return AtomicFile::whyNot(path, existing, size());
}

std::vector<std::byte> TakeRepair::header() {
  std::vector<std::byte> head(static_cast<std::size_t>(_diagnosis.dataAt));
  if (_image->readAt(0, head) < head.size()) fail("The take cannot be read: " + _image->failure());
  if (isLong() && !hasRoomForSizes()) {
    head.insert(head.begin() + riff::kFirstChunk, riff::kChunkHeader + LongSizes::kFixedSize,
                std::byte{0});
    head[riff::kFirstChunk + 4] = std::byte{LongSizes::kFixedSize};
  }
  fitSizes(head, size());
  return head;
}

void TakeRepair::fitSizes(std::vector<std::byte>& head, std::uint64_t fileSize) const {
  const std::uint32_t longID = _identifier == kBw64ID ? kBw64ID : kRf64ID;
  const auto dataSizeAt = static_cast<std::uint32_t>(head.size() - 4);
  std::memcpy(head.data(), &kRiffID, sizeof kRiffID);
  const auto sizes = ChunkSizes::patches(fileSize, _diagnosis.keptBytes,
                                         static_cast<std::uint32_t>(_diagnosis.frameBytes),
                                         dataSizeAt, isLong() ? longID : kRiffID);
  for (const auto& [position, bytes] : sizes) std::ranges::copy(bytes, head.begin() + position);
  if (!isLong() || _firstChunk == kDs64ID) return;
  std::fill_n(head.begin() + LongSizes::kEntryCountAt, sizeof(std::uint32_t), std::byte{0});
}

bool TakeRepair::save(const std::filesystem::path& path, AtomicFile::Existing existing) {
  _failure.clear();
  _wasCancelled = false;
  const std::vector<std::byte> head = header();
  if (!_failure.empty()) return false;
  _done = head.size();
  AtomicFile file(path, existing);
  const bool isWritten = file.hasRoomFor(size()) && file.write(head) &&
                         copy(file, _diagnosis.dataAt, _diagnosis.keptBytes) &&
                         copy(file, _diagnosis.tailAt, _diagnosis.tailBytes) && file.sync() &&
                         file.commit();
  if (!isWritten) return !_wasCancelled && fail(file.failure());
  const std::error_code error = FolderSync::of(AtomicFile::resolveLinks(path).parent_path());
  return !error || fail(error.message());
}

bool TakeRepair::copy(AtomicFile& file, std::uint64_t from, std::uint64_t count) {
  std::vector<std::byte> block;
  while (count > 0) {
    _wasCancelled = _cancel != nullptr && _cancel->load(std::memory_order_relaxed);
    if (_wasCancelled) return false;
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(count, kCopyBytes));
    const auto bytes = _image->view(from, wanted, block);
    if (bytes.size() < wanted) return fail("The take cannot be read: " + _image->failure());
    if (!file.write(bytes)) return false;
    from += wanted;
    count -= wanted;
    _done += wanted;
    if (_progress) _progress(static_cast<double>(_done) / static_cast<double>(size()));
  }
  return true;
}

bool TakeRepair::fail(const std::string& reason) {
  if (_failure.empty()) _failure = reason;
  return false;
}
