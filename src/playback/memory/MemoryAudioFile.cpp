// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/memory/MemoryAudioFile.h"

#include <algorithm>
#include <utility>

MemoryAudioFile::MemoryAudioFile(const AudioFormat& format, std::vector<std::byte> packets)
    : _format(format), _packets(std::move(packets)) {}

void MemoryAudioFile::failAt(std::uint64_t frame, int error) {
  _badFrame = frame;
  _error = error;
}

bool MemoryAudioFile::open(const std::string& /*path*/) {
  return true;
}

std::uint64_t MemoryAudioFile::frameCount() const {
  return _format.bytesPerPacket > 0 ? _packets.size() / _format.bytesPerPacket : 0;
}

AudioFile::Read MemoryAudioFile::readFrames(std::uint64_t first, std::uint32_t frames,
                                            std::span<std::byte> to) {
  if (first <= _badFrame && _badFrame < first + frames) {
    _failure = "The memory is bad";
    return {0, _error};
  }
  const std::uint64_t left = frameCount() - std::min(first, frameCount());
  const std::uint64_t count = std::min<std::uint64_t>(frames, left);
  const std::span from = std::span(_packets).subspan(first * _format.bytesPerPacket * (count > 0));
  std::copy_n(from.begin(), count * _format.bytesPerPacket, to.begin());
  return {static_cast<std::uint32_t>(count), 0};
}
