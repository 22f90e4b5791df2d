// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/SampleCursor.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kPiece = 1 << 16;

}  // namespace

SampleCursor::SampleCursor(std::shared_ptr<const WaveImage> image, const WaveHeader& header,
                           std::uint64_t encoding)
    : _image(std::move(image)),
      _decoder(header.NumChannels, header.BitsPerSample, encoding),
      _dataStart(header.dataChunkPosition),
      _dataEnd(std::min<std::uint64_t>(header.dataChunkEnd, _image ? _image->size() : 0)) {}

void SampleCursor::waitForMedium(const std::atomic<bool>* cancel) {
  _waits = true;
  _cancel = cancel;
}

std::uint64_t SampleCursor::framesFrom(std::uint64_t offset) const {
  if (_decoder.frameBytes() == 0 || offset >= _dataEnd) return 0;
  return (_dataEnd - offset) / _decoder.frameBytes();
}

std::uint64_t SampleCursor::endFor(std::uint64_t offset, std::uint64_t count) const {
  if (count == 0 || !_image) return offset;
  const std::uint64_t lastFrame = offset + (count - 1) * _decoder.frameBytes();
  return std::min(lastFrame + _decoder.reach(), _image->size());
}

// Of the wanted frames, those whose samples lie within so many bytes from here.
std::uint64_t SampleCursor::framesIn(std::uint64_t bytes, std::uint64_t wanted) const {
  if (endFor(_readDataIdx, wanted) <= _readDataIdx + bytes) return wanted;
  if (_decoder.reach() > bytes) return 0;
  return std::min(wanted, (bytes - _decoder.reach()) / _decoder.frameBytes() + 1);
}

bool SampleCursor::isApart() const {
  return !_image->isInMemory() && _decoder.reach() > kPiece;
}

std::size_t SampleCursor::read(std::uint64_t offset, std::span<std::byte> to) const {
  if (!_waits) return _image->readHeld(offset, to);
  const bool isCancelled = _cancel != nullptr && _cancel->load(std::memory_order_relaxed);
  return isCancelled ? 0 : _image->readAt(offset, to);
}

void SampleCursor::fetch() {
  _pieceStart = _readDataIdx;
  _piece.resize(std::min<std::uint64_t>(kPiece, _image->size() - _readDataIdx));
  _piece.resize(read(_pieceStart, _piece));
}

// At least the next frame, or as much of it as there is.
std::span<const std::byte> SampleCursor::bytesHere() {
  if (_image->isInMemory()) {
    const std::span<const std::byte> all = _image->bytes();
    return all.subspan(std::min<std::uint64_t>(_readDataIdx, all.size()));
  }
  const bool startsHere = _readDataIdx >= _pieceStart;
  if (!startsHere || endFor(_readDataIdx, 1) > _pieceStart + _piece.size()) fetch();
  return std::span(_piece).subspan(_readDataIdx - _pieceStart);
}

bool SampleCursor::readApart(float& left, float& right) {
  const auto readAt = [this](std::uint64_t offset, std::span<std::byte> to) {
    return read(_readDataIdx + offset, to) == to.size();
  };
  return _decoder.decodeApart(_image->size() - _readDataIdx, readAt, left, right);
}

bool SampleCursor::readNextSample(float& left, float& chanelRight) {
  left = chanelRight = FrameDecoder::kNoSample;
  std::array<float, 2> frame{};
  if (readFrames(frame) == 0) return false;
  left = frame[0];
  chanelRight = frame[1];
  return true;
}

std::uint64_t SampleCursor::readFrames(std::span<float> frames) {
  const std::uint64_t wanted = std::min<std::uint64_t>(frames.size() / 2, framesLeft());
  std::uint64_t done = 0;
  while (done < wanted) {
    const std::uint64_t count = readPiece(frames.subspan(2 * done, 2 * (wanted - done)));
    if (count == 0) break;
    _readDataIdx += count * _decoder.frameBytes();
    done += count;
  }
  return done;
}

std::uint64_t SampleCursor::readPiece(std::span<float> frames) {
  if (isApart()) {
    frames[0] = frames[1] = FrameDecoder::kNoSample;
    return readApart(frames[0], frames[1]) ? 1 : 0;
  }
  const std::span<const std::byte> bytes = bytesHere();
  const std::uint64_t count = framesIn(bytes.size(), frames.size() / 2);
  if (count > 0) _decoder.decode(bytes, frames.first(2 * count));
  return count;
}
