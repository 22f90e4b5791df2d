// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/LimitedAudioFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

LimitedAudioFile::LimitedAudioFile(std::unique_ptr<AudioFile> file, double seconds)
    : _file(std::move(file)), _seconds(seconds) {}

std::uint64_t LimitedAudioFile::frameCount() const {
  const double limit = std::round(_seconds * format().sampleRate);
  const std::uint64_t whole = _file->frameCount();
  return limit < static_cast<double>(whole) ? static_cast<std::uint64_t>(limit) : whole;
}

AudioFile::Read LimitedAudioFile::readFrames(std::uint64_t first, std::uint32_t frames,
                                             std::span<std::byte> to) {
  const std::uint64_t left = frameCount() - std::min(first, frameCount());
  if (left == 0) return {};
  const auto count = static_cast<std::uint32_t>(std::min<std::uint64_t>(frames, left));
  return _file->readFrames(first, count, to);
}
