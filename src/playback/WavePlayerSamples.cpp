// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// The samples' way through the wave player.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <span>
#include <utility>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/PlainKernels.h"
#include "dsp/SoloStage.h"
#include "playback/WavePlayer.h"

namespace {

constexpr std::uint64_t kPairBytes24 = 6;
constexpr std::uint64_t kPairBytes32 = 8;
constexpr double kFullScale24 = 8388608.0;
constexpr std::int64_t kMost24 = 0x7FFFFF;
constexpr std::int64_t kLeast24 = 0x800000;

// Two channels are assumed. With fewer the buffer is shorter, and must not be left.
std::uint64_t pairsIn(const AudioQueueBuffer& buffer, std::uint64_t pairBytes) {
  return std::min<std::uint64_t>(buffer.packetDescriptionCount, buffer.byteSize / pairBytes);
}

std::uint64_t pairsInScratch(const AudioQueueBuffer& buffer) {
  const std::uint64_t scratch = (WavePlayer::floatScratch().length + 1) / 2;
  return std::min<std::uint64_t>(buffer.packetDescriptionCount, scratch);
}

// Toward zero. What no 64-bit integer holds becomes the least one, whose low bits are 0.
std::int64_t truncated(double value) {
  constexpr double kBeyond = 0x1p63;
  return std::abs(value) < kBeyond ? static_cast<std::int64_t>(value) : INT64_MIN;
}

std::int64_t clipped24(float sample) {
  const double scaled = static_cast<double>(sample) * kFullScale24;
  if (std::abs(scaled) > kFullScale24) return sample > 0.0F ? kMost24 : kLeast24;
  return truncated(scaled);
}

std::int64_t wrapped24(float sample) {
  return truncated(static_cast<double>(sample) * kFullScale24);
}

void write24(std::int64_t value, std::byte* to) {
  for (int i = 0; i < 3; ++i) to[i] = static_cast<std::byte>(value >> (8 * i));
}

}  // namespace

WavArrayFloat32& WavePlayer::floatScratch() {
  static auto* const kOnly = new WavArrayFloat32;
  return *kOnly;
}

void WavePlayer::prepareFloatBuffer(const AudioQueueBuffer& buffer) {
  WavArrayFloat32& scratch = floatScratch();
  const std::uint64_t needed = std::uint64_t{2} * buffer.packetDescriptionCount;
  if (scratch.length < needed) {
    void* const grown = std::realloc(scratch.bytes, needed * sizeof(float));
    if (grown == nullptr) return;
    scratch.bytes = static_cast<float*>(grown);
    scratch.length = needed;
  }
  // A quarter of it, on purpose: the count of floats is taken for one of bytes. All floats in use
  // are overwritten anyway.
  if (scratch.bytes != nullptr) std::memset(scratch.bytes, 0, scratch.length);
}

void WavePlayer::convertByte24bit2Float(const AudioQueueBuffer& buffer) const {
  WavArrayFloat32& scratch = floatScratch();
  const std::uint64_t stride = _reader ? _reader->header().BitsPerSample / 8 : 0;
  std::uint64_t pairs = pairsInScratch(buffer);
  if (stride == 3) {
    pairs = std::min(pairs, pairsIn(buffer, kPairBytes24));
    return Kernels::unpack24({buffer.data, pairs * kPairBytes24}, {scratch.bytes, 2 * pairs});
  }
  for (std::uint64_t i = 0; i < 2 * pairs; ++i) {
    const std::uint64_t offset = i * stride;
    if (offset + 3 > buffer.byteSize) return;
    scratch.bytes[i] = PlainKernels::unpack24(buffer.data + offset);
  }
}

void WavePlayer::convertFloat2Byte24Bit(AudioQueueBuffer& buffer) {
  const float* const scratch = floatScratch().bytes;
  const std::uint64_t pairs = std::min(pairsInScratch(buffer), pairsIn(buffer, kPairBytes24));
  for (std::uint64_t i = 0; i < pairs; ++i) {
    std::byte* const to = buffer.data + i * kPairBytes24;
    write24(clipped24(scratch[2 * i]), to);
    write24(wrapped24(scratch[2 * i + 1]), to + 3);
  }
}

void WavePlayer::processFrames(std::span<float> frames) {
  if (_reader && _reader->isBoMSFormat()) {
    _angleinfo.prevAngle = _angleinfo.curAngle;
    _angleinfo.curAngle = _angle;
    SoloStage::glide(frames, _angleinfo, std::exchange(_soloBefore, _solo), _solo);
  }
  _dbinfo.prevGain = _dbinfo.curGain;
  _dbinfo.curGain = -_gain;
  GainStage::glide(frames, _dbinfo);
}

void WavePlayer::processSampleBuffer(AudioQueueBuffer& buffer, const AudioFormat& info,
                                     std::int64_t curPackage) {
  if (buffer.data == nullptr) return;
  _played.add(static_cast<std::uint64_t>(curPackage), buffer.packetDescriptionCount, _loop,
              {_angle, _gain, _solo});
  if (info.bitsPerChannel == 24) {
    prepareFloatBuffer(buffer);
    convertByte24bit2Float(buffer);
    processFrames({floatScratch().bytes, 2 * pairsInScratch(buffer)});
    convertFloat2Byte24Bit(buffer);
  } else if (info.bitsPerChannel == 32 && (info.formatFlags & kAudioFormatFlagIsFloat) != 0) {
    auto* const samples = reinterpret_cast<float*>(buffer.data);
    processFrames({samples, 2 * pairsIn(buffer, kPairBytes32)});
  }
}
