// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FrameStream.h"

#include <algorithm>

FrameStream::FrameStream(const WaveFileReader& reader, std::size_t blockBytes)
    : _image(reader.image()),
      _decoder(reader.header().NumChannels, reader.header().BitsPerSample, reader.encoding()),
      _blockBytes(blockBytes),
      _isApart(_decoder.reach() > blockBytes),
      _position(reader.header().dataChunkPosition),
      _framesLeft(reader.frameCount()),
      _frames(_framesLeft) {}

void FrameStream::seek(std::uint64_t frame) {
  _position -= (_frames - _framesLeft) * _decoder.frameBytes();
  _framesLeft = _frames - std::min(frame, _frames);
  _position += (_frames - _framesLeft) * _decoder.frameBytes();
  _held = {};
  _heldFrames = 0;
}

void FrameStream::stopAt(std::uint64_t frame) {
  const std::uint64_t here = _frames - _framesLeft;
  _frames = std::max(here, std::min(frame, _frames));
  _framesLeft = _frames - here;
  _heldFrames = std::min(_heldFrames, _framesLeft);
}

std::uint64_t FrameStream::read(std::span<float> frames) {
  const std::uint64_t wanted = std::min<std::uint64_t>(frames.size() / 2, _framesLeft);
  if (_isApart) return readApart(frames.first(2 * wanted));
  std::uint64_t done = 0;
  while (done < wanted) {
    if (_heldFrames == 0 && !fetch()) return fail();
    const std::uint64_t count = std::min(wanted - done, _heldFrames);
    _decoder.decode(_held, frames.subspan(2 * done, 2 * count));
    pass(count);
    done += count;
  }
  return done;
}

std::span<const std::byte> FrameStream::readPacked(std::uint64_t frames) {
  const std::uint64_t wanted = std::min(frames, _framesLeft);
  if (wanted > 0 && _heldFrames == 0 && !fetch()) fail();
  const std::uint64_t count = std::min(wanted, _heldFrames);
  const auto packed = _held.first(static_cast<std::size_t>(count * _decoder.frameBytes()));
  pass(count);
  return packed;
}

void FrameStream::pass(std::uint64_t frames) {
  const std::uint64_t bytes = frames * _decoder.frameBytes();
  _held = _held.subspan(static_cast<std::size_t>(bytes));
  _heldFrames -= frames;
  _position += bytes;
  _framesLeft -= frames;
}

// Later channels lie beyond their frame, but not beyond the end of the image.
bool FrameStream::fetch() {
  const std::uint64_t frame = _decoder.frameBytes();
  const std::uint64_t most = std::max<std::uint64_t>(1, _blockBytes / frame);
  const std::uint64_t count = std::min(_framesLeft, most);
  const std::uint64_t bytes =
      std::min((count - 1) * frame + _decoder.reach(), _image->size() - _position);
  _held = _image->view(_position, static_cast<std::size_t>(bytes), _block);
  if (_held.size() < bytes) return false;
  _heldFrames = count;
  return true;
}

std::uint64_t FrameStream::readApart(std::span<float> frames) {
  const auto readAt = [this](std::uint64_t offset, std::span<std::byte> to) {
    return _image->readAt(_position + offset, to) == to.size();
  };
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    frames[i] = frames[i + 1] = FrameDecoder::kNoSample;
    const std::uint64_t available = _image->size() - _position;
    if (!_decoder.decodeApart(available, readAt, frames[i], frames[i + 1])) return fail();
    _position += _decoder.frameBytes();
    --_framesLeft;
  }
  return frames.size() / 2;
}

std::uint64_t FrameStream::fail() {
  _failure = _image->failure();
  return 0;
}
