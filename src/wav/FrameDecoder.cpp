// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FrameDecoder.h"

#include <array>
#include <bit>
#include <cstring>

#include "dsp/Kernels.h"
#include "dsp/PlainKernels.h"

static_assert(std::endian::native == std::endian::little, "samples are little-endian");

namespace {

constexpr float kFrom16Bit = 3.0517578125e-05F;       // 2^-15
constexpr float kFrom32Bit = 5.421010862427522e-20F;  // 2^-64, on purpose
constexpr std::uint64_t kFloatEncoding = 3;

template <class Value>
Value load(const std::byte* bytes) {
  Value value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

}  // namespace

FrameDecoder::FrameDecoder(std::uint16_t numChannels, std::uint16_t bitsPerSample,
                           std::uint64_t encoding)
    : _numChannels(numChannels), _frameBytes(std::uint64_t{bitsPerSample} / 8 * numChannels) {
  switch (bitsPerSample) {
    case 16:
      _sample = Sample::Unsigned16;
      _sampleBytes = 2;
      break;
    case 24:
      _sample = Sample::Signed24;
      _sampleBytes = 3;
      break;
    case 32:
      _sample = encoding == kFloatEncoding ? Sample::Float32 : Sample::Signed32;
      _sampleBytes = 4;
      break;
    default:
      break;
  }
  const std::uint64_t n = numChannels;
  if (n > 0) _reach = _sampleBytes * ((n - 1) * n / 2 + 1);
  if (_reach < _frameBytes) _reach = _frameBytes;
}

float FrameDecoder::sampleAt(const std::byte* bytes) const {
  switch (_sample) {
    case Sample::Unsigned16:
      return static_cast<float>(load<std::uint16_t>(bytes)) * kFrom16Bit;
    case Sample::Signed24:
      return PlainKernels::unpack24(bytes);
    case Sample::Signed32:
      return static_cast<float>(load<std::int32_t>(bytes)) * kFrom32Bit;
    case Sample::Float32:
      return load<float>(bytes);
    case Sample::None:
      break;
  }
  return kNoSample;
}

void FrameDecoder::decode(std::span<const std::byte> bytes, float& left, float& right) const {
  if (_sample == Sample::None) return;
  std::uint64_t offset = 0;
  for (std::uint64_t channel = 0; channel < _numChannels; ++channel) {
    offset += channel * _sampleBytes;
    if (offset + _sampleBytes > bytes.size()) return;
    (channel == 0 ? left : right) = sampleAt(bytes.data() + offset);
  }
}

// Where the last sample lies that is all there; 0 where there is none but the first.
std::uint64_t FrameDecoder::lastSampleWithin(std::uint64_t available) const {
  std::uint64_t offset = 0;
  std::uint64_t last = 0;
  for (std::uint64_t channel = 1; channel < _numChannels; ++channel) {
    offset += channel * _sampleBytes;
    if (offset + _sampleBytes > available) break;
    last = offset;
  }
  return last;
}

bool FrameDecoder::decodeApart(std::uint64_t available, const ReadAt& read, float& left,
                               float& right) const {
  if (_sample == Sample::None || _sampleBytes > available) return true;
  std::array<std::byte, sizeof(float)> sample{};
  const std::span<std::byte> bytes = std::span(sample).first(_sampleBytes);
  if (!read(0, bytes)) return false;
  left = sampleAt(sample.data());
  const std::uint64_t last = lastSampleWithin(available);
  if (last == 0) return true;
  if (!read(last, bytes)) return false;
  right = sampleAt(sample.data());
  return true;
}

void FrameDecoder::decode(std::span<const std::byte> bytes, std::span<float> frames) const {
  if (_numChannels == 2 && _sample != Sample::None) return decodePairs(bytes.data(), frames);
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    frames[i] = frames[i + 1] = kNoSample;
    decode(bytes.subspan(i / 2 * _frameBytes), frames[i], frames[i + 1]);
  }
}

void FrameDecoder::decodePairs(const std::byte* bytes, std::span<float> frames) const {
  if (_sample == Sample::Signed24) {
    return Kernels::unpack24({bytes, 3 * frames.size()}, frames);
  }
  if (_sample == Sample::Float32) {
    if (!frames.empty()) std::memcpy(frames.data(), bytes, frames.size_bytes());
    return;
  }
  for (std::size_t i = 0; i < frames.size(); ++i) frames[i] = sampleAt(bytes + i * _sampleBytes);
}
