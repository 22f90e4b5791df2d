// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FrameStream.h"

#include <algorithm>

namespace {

constexpr std::size_t kBlockBytes = 245760;

std::uint64_t framesIn(const WaveFileReader& reader) {
  SampleCursor cursor = WaveFileReader(reader).cursor();
  cursor.beginReadSample();
  return cursor.framesLeft();
}

}  // namespace

FrameStream::FrameStream(const WaveFileReader& reader, const std::atomic<bool>* cancel)
    : _image(reader.image()),
      _decoder(reader.header().NumChannels, reader.header().BitsPerSample, reader.encoding()),
      _cancel(cancel),
      _needsWhole(_decoder.reach() > _decoder.frameBytes()),
      _position(reader.header().dataChunkPosition),
      _framesLeft(framesIn(reader)),
      _frames(_framesLeft) {}

void FrameStream::seek(std::uint64_t frame) {
  _position -= (_frames - _framesLeft) * _decoder.frameBytes();
  _framesLeft = _frames - std::min(frame, _frames);
  _position += (_frames - _framesLeft) * _decoder.frameBytes();
  _held = {};
}

std::uint64_t FrameStream::read(std::span<float> frames) {
  const std::uint64_t wanted = std::min<std::uint64_t>(frames.size() / 2, _framesLeft);
  std::uint64_t done = 0;
  while (done < wanted) {
    if (_held.size() < _decoder.frameBytes() && !fetch()) return 0;
    const auto count = std::min(wanted - done, _held.size() / _decoder.frameBytes());
    _decoder.decode(_held, frames.subspan(2 * done, 2 * count));
    _held = _held.subspan(count * _decoder.frameBytes());
    _position += count * _decoder.frameBytes();
    _framesLeft -= count;
    done += count;
  }
  return done;
}

bool FrameStream::fetch() {
  if (_needsWhole) return fetchWhole();
  const std::uint64_t frame = _decoder.frameBytes();
  const std::uint64_t most = std::max<std::uint64_t>(1, kBlockBytes / frame);
  const auto count = static_cast<std::size_t>(std::min(_framesLeft, most) * frame);
  _held = _image->view(_position, count, _block);
  if (_held.size() == count) return true;
  _failure = _image->failure().empty() ? "The file became shorter" : _image->failure();
  return false;
}

// Later channels lie beyond their frame, as far as the end of the image.
bool FrameStream::fetchWhole() {
  _image->startLoading();
  const bool isLoaded = _image->waitUntilLoaded(_image->size(), _cancel);
  if (isLoaded) _held = _image->bytes().subspan(_position);
  _failure = _image->failure();
  return isLoaded;
}
