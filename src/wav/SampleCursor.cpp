// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/SampleCursor.h"

#include <algorithm>
#include <utility>

SampleCursor::SampleCursor(std::shared_ptr<const WaveImage> image, const WaveHeader& header,
                           std::uint64_t encoding)
    : _image(std::move(image)),
      _decoder(header.NumChannels, header.BitsPerSample, encoding),
      _dataStart(header.dataChunkPosition),
      _dataEnd(std::min<std::uint64_t>(header.dataChunkEnd, _image ? _image->size() : 0)) {}

std::uint64_t SampleCursor::framesLeft() const {
  if (_decoder.frameBytes() == 0 || _readDataIdx >= _dataEnd) return 0;
  return (_dataEnd - _readDataIdx) / _decoder.frameBytes();
}

std::uint64_t SampleCursor::loadedEndFor(std::uint64_t count) const {
  if (count == 0 || !_image) return _readDataIdx;
  const std::uint64_t lastFrame = _readDataIdx + (count - 1) * _decoder.frameBytes();
  return std::min(lastFrame + _decoder.reach(), _image->size());
}

std::uint64_t SampleCursor::framesLoaded(std::uint64_t wanted) const {
  const std::uint64_t loaded = _image->loaded();
  if (loadedEndFor(wanted) <= loaded) return wanted;
  if (_readDataIdx + _decoder.reach() > loaded) return 0;
  return std::min(wanted, (loaded - _readDataIdx - _decoder.reach()) / _decoder.frameBytes() + 1);
}

bool SampleCursor::readNextSample(float& left, float& chanelRight) {
  left = chanelRight = FrameDecoder::kNoSample;
  if (isFinishReadSample() || framesLoaded(1) == 0) return false;
  _decoder.decode(_image->bytes().subspan(_readDataIdx), left, chanelRight);
  _readDataIdx += _decoder.frameBytes();
  return true;
}

std::uint64_t SampleCursor::readFrames(std::span<float> frames) {
  const std::uint64_t wanted = std::min<std::uint64_t>(frames.size() / 2, framesLeft());
  const std::uint64_t count = wanted == 0 ? 0 : framesLoaded(wanted);
  if (count == 0) return 0;
  _decoder.decode(_image->bytes().subspan(_readDataIdx), frames.first(2 * count));
  _readDataIdx += count * _decoder.frameBytes();
  return count;
}
