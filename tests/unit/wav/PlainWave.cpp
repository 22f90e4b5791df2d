// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "PlainWave.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <string_view>
#include <utility>

namespace {

constexpr std::uint32_t id(std::string_view text) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(text[i]);
  return value;
}

float sideFactor(int angle) {
  if (angle <= 0) return 0.0F;
  const double i = std::min(angle, 150);
  const double dB = i <= 15 ? -48.0 + (i - 1.0) * 27.0 / 14.0 : (i - 120.0) * 0.2;
  return static_cast<float>(std::pow(10.0, dB / 20.0));
}

float divided(float value, float divisor) {
  return divisor == 0.0F ? value : value / divisor;
}

}  // namespace

PlainWave::PlainWave(std::vector<std::byte> file) : _file(std::move(file)) {
  if (_file.size() < 48) return;
  header.ChunkID = number(0, 4);
  header.ChunkSize = number(4, 4);
  header.Format = number(8, 4);
  if (header.ChunkID != id("RIFF") || header.Format != id("WAVE")) return;
  const std::uint32_t end = header.ChunkSize + 8;
  const std::int64_t limit = std::min(static_cast<std::int64_t>(_file.size()), std::int64_t{end});
  if (limit >= 20) walk(limit);
  isValid = header.dataChunkPosition != 0 && header.Subchunk1ID == id("fmt ");
}

std::uint32_t PlainWave::number(std::uint64_t offset, int count) const {
  std::uint32_t value = 0;
  for (int i = count - 1; i >= 0; --i) {
    const std::uint64_t at = offset + static_cast<std::uint64_t>(i);
    value = value << 8 | (at < _file.size() ? std::to_integer<std::uint32_t>(_file[at]) : 0);
  }
  return value;
}

void PlainWave::readFormat(std::uint32_t size, std::uint32_t payload) {
  header.Subchunk1ID = id("fmt ");
  header.Subchunk1Size = size;
  header.AudioFormat = static_cast<std::uint16_t>(number(payload, 2));
  header.NumChannels = static_cast<std::uint16_t>(number(payload + 2, 2));
  header.SampleRate = number(payload + 4, 4);
  header.ByteRate = number(payload + 8, 4);
  header.BlockAlign = static_cast<std::uint16_t>(number(payload + 12, 2));
  header.BitsPerSample = static_cast<std::uint16_t>(number(payload + 14, 2));
  encoding = header.AudioFormat;
}

void PlainWave::walk(std::int64_t limit) {
  const auto length = static_cast<std::int64_t>(_file.size());
  std::int64_t p = 12;
  do {
    const auto at = static_cast<std::uint64_t>(p);
    const std::uint32_t identifier = number(at, 4);
    const std::uint32_t size = number(at + 4, 4);
    const auto payload = static_cast<std::uint32_t>(at + 8);
    if (identifier == id("fmt ")) {
      readFormat(size, payload);
    } else if (identifier == id("data")) {
      header.dataChunkPosition = payload;
      header.dataChunkLength = size;
      header.dataChunkEnd = payload + size;
    } else if (length - std::int64_t{payload} < std::int64_t{size}) {
      return;
    }
    chunks.push_back({identifier, size, payload});
    p += 8 + std::int64_t{size};  // a size that would wrap 32 bits ends the walk
  } while (limit - 8 >= p);
}

std::uint64_t PlainWave::frameBytes() const {
  return std::uint64_t{header.BitsPerSample} / 8 * header.NumChannels;
}

bool PlainWave::isFinished(std::uint64_t position) const {
  if (frameBytes() == 0) return true;
  const std::uint64_t end = position + frameBytes();
  return end > header.dataChunkEnd || end > _file.size();
}

bool PlainWave::sampleAt(std::uint64_t offset, std::uint64_t width, float& value) const {
  if (offset + width > _file.size()) return false;
  const std::uint32_t bits = number(offset, static_cast<int>(width));
  if (width == 2) {
    value = static_cast<float>(bits / 32768.0);
  } else if (width == 3) {
    const std::int32_t high = bits >= 1U << 23 ? 1 << 24 : 0;
    value = static_cast<float>((static_cast<std::int32_t>(bits) - high) / 8388608.0);
  } else if (encoding == 3) {
    value = std::bit_cast<float>(bits);
  } else {
    value = static_cast<float>(static_cast<std::int32_t>(bits)) * 0x1.0p-64F;
  }
  return true;
}

PlainWave::Frame PlainWave::frameAt(std::uint64_t position) const {
  Frame frame{-2.0F, -2.0F};
  const std::uint64_t bits = header.BitsPerSample;
  const std::uint64_t width = bits == 16 || bits == 24 || bits == 32 ? bits / 8 : 0;
  std::uint64_t skip = 0;
  for (int channel = 0; width > 0 && channel < header.NumChannels; ++channel) {
    if (!sampleAt(position, width, frame[channel == 0 ? 0 : 1])) break;
    skip += width;
    position += skip;
  }
  return frame;
}

std::vector<PlainWave::Frame> PlainWave::frames() const {
  std::vector<Frame> frames;
  for (std::uint64_t at = header.dataChunkPosition; !isFinished(at); at += frameBytes()) {
    frames.push_back(frameAt(at));
  }
  return frames;
}

PlainWave::Frame PlainWave::level(double from, double to, double gain, double angle, bool isRaw,
                                  std::uint64_t& position) const {
  Frame pair{-2.0F, -2.0F};
  const std::uint64_t frame = frameBytes();
  if (frame == 0) return pair;
  const double rate = header.SampleRate;
  auto s = static_cast<std::uint64_t>(rate * from * static_cast<double>(frame));
  if (s % frame != 0) s = (s / frame + 1) * frame;
  position = s + header.dataChunkPosition;
  const auto start = static_cast<double>(header.dataChunkPosition);
  auto e = static_cast<std::uint64_t>(rate * to * static_cast<double>(frame) + start);
  e = std::min<std::uint64_t>(e, header.dataChunkLength);
  while (position < e && !isFinished(position)) {
    const Frame next = frameAt(position);
    if (next[0] > pair[0]) pair[0] = next[0];
    if (next[1] > pair[1]) pair[1] = next[1];
    position += frame;
  }
  if (isRaw) {
    const float side = pair[1] * sideFactor(static_cast<int>(angle));
    pair = {pair[0] + side, pair[0] - side};
  }
  const auto divisor = static_cast<float>(std::pow(10.0, gain / 20.0));
  return {divided(pair[0], divisor), divided(pair[1], divisor)};
}
