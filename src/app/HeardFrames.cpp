// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/HeardFrames.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"

namespace {

constexpr double kMostFrames = 1e15;

}  // namespace

HeardFrames::HeardFrames(std::unique_ptr<WaveFileReader> reader) : _reader(std::move(reader)) {}

std::uint64_t HeardFrames::frameAt(double seconds) const {
  const double frame = std::ceil(seconds * _reader->header().SampleRate);
  return frame > 0 ? static_cast<std::uint64_t>(std::min(frame, kMostFrames)) : 0;
}

double HeardFrames::secondsAt(std::uint64_t frame) const {
  const double rate = _reader->header().SampleRate;
  return rate > 0 ? static_cast<double>(frame) / rate : 0;
}

HeardFrames::Stretch HeardFrames::stretch(double from, double to, const HeardSound& sound) const {
  const std::uint64_t first = std::min(frameAt(from), _reader->frameCount());
  const std::uint64_t wanted = frameAt(to) - std::min(frameAt(to), first);
  const std::uint64_t inOrder = FrameLoop::untilTurn(sound.loop, first);
  const std::uint64_t count = std::min({wanted, inOrder, _reader->frameCount() - first});
  if (count < inOrder) return {first, count, 0};
  return {first, count, std::min(wanted - count, sound.loop->end - sound.loop->first)};
}

double HeardFrames::heardAt(double from, double to, const HeardSound& sound) const {
  const Stretch wanted = stretch(from, to, sound);
  const bool hasTurned = wanted.count == FrameLoop::untilTurn(sound.loop, wanted.first);
  return hasTurned ? to - secondsAt(sound.loop->end - sound.loop->first) : to;
}

double HeardFrames::secondsUntil(double from, double time, const HeardSound& sound) const {
  const double ahead = time - from;
  if (ahead >= 0 || !sound.loop) return ahead;
  const double first = secondsAt(sound.loop->first);
  const double end = secondsAt(sound.loop->end);
  const bool isInside = time >= first && from <= end;
  const double turned = ahead + (end - first);
  return isInside && turned < -ahead ? turned : ahead;
}

bool HeardFrames::followFrames(std::uint64_t first, std::uint64_t count) {
  return _reader->follow(secondsAt(first), secondsAt(first + count));
}

std::size_t HeardFrames::readFrames(std::uint64_t first, std::uint64_t count, std::size_t at) {
  SampleCursor& cursor = _reader->cursor();
  cursor.setReadDataIdx(_reader->header().dataChunkPosition + first * cursor.frameBytes());
  return cursor.readFrames(std::span(_frames).subspan(2 * at, 2 * count));
}

std::optional<std::span<const float>> HeardFrames::read(double from, double to,
                                                        const HeardSound& sound) {
  const Stretch wanted = stretch(from, to, sound);
  if (!followFrames(wanted.first, wanted.count)) return std::nullopt;
  _frames.resize(std::max<std::size_t>(_frames.size(), 2 * (wanted.count + wanted.turned)));
  std::size_t count = readFrames(wanted.first, wanted.count, 0);
  if (wanted.turned > 0 && followFrames(sound.loop->first, wanted.turned)) {
    count += readFrames(sound.loop->first, wanted.turned, count);
  }
  const std::span<float> frames = std::span(_frames).first(2 * count);
  const std::size_t inOrder = std::min<std::size_t>(count, wanted.count);
  decode(wanted.first, frames.first(2 * inOrder), sound);
  if (count > inOrder) decode(sound.loop->first, frames.subspan(2 * inOrder), sound);
  return frames;
}

// What is set may have been turned since a part of them was filled.
void HeardFrames::decode(std::uint64_t first, std::span<float> frames,
                         const HeardSound& sound) const {
  const PlayedSettings::Settings set{sound.width, std::lround(sound.gain), sound.solo};
  while (!frames.empty()) {
    const PlayedSettings::Piece piece = sound.played.at(first);
    const std::size_t count = std::min<std::uint64_t>(frames.size() / 2, piece.end - first);
    decodePiece(frames.first(2 * count), piece.settings.value_or(set));
    frames = frames.subspan(2 * count);
    first += count;
  }
}

void HeardFrames::decodePiece(std::span<float> frames,
                              const PlayedSettings::Settings& settings) const {
  const float divisor = GainStage::factor(-static_cast<double>(settings.gain));
  if (_reader->isBoMSFormat() && settings.solo == Solo::None) {
    Kernels::decodeAndDivide(frames, SideGain::factor(settings.angle), divisor, divisor);
  } else {
    if (_reader->isBoMSFormat()) SoloStage::apply(frames, settings.solo);
    Kernels::divide(frames, divisor, divisor);
  }
}
