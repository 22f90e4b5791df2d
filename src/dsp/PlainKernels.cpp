// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/PlainKernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr float kFrom24Bit = 1.1920928955078125e-07F;  // 2^-23
constexpr float kTo24Bit = 8388607.0F;                 // for both signs, on purpose
constexpr std::size_t kFrame24 = 6;                    // bytes
constexpr std::int32_t kMax24Bit = 8388607;
constexpr std::int32_t kMin24Bit = -8388608;

std::int32_t to24Bit(float sample) {
  if (sample > -1.0F && sample < 1.0F) return static_cast<std::int32_t>(sample * kTo24Bit);
  return sample > 0.0F ? kMax24Bit : kMin24Bit;
}

}  // namespace

float PlainKernels::unpack24(const std::byte* bytes) {
  const auto low = std::to_integer<std::uint32_t>(bytes[0]);
  const auto middle = std::to_integer<std::uint32_t>(bytes[1]);
  const auto high = std::to_integer<std::uint32_t>(bytes[2]);
  const auto shifted = static_cast<std::int32_t>(low << 8 | middle << 16 | high << 24);
  return static_cast<float>(shifted >> 8) * kFrom24Bit;
}

void PlainKernels::unpack24(std::span<const std::byte> bytes, std::span<float> samples) {
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = unpack24(&bytes[3 * i]);
}

void PlainKernels::pack24(std::span<const float> samples, std::span<std::byte> bytes) {
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const auto value = static_cast<std::uint32_t>(to24Bit(samples[i]));
    bytes[3 * i] = static_cast<std::byte>(value);
    bytes[3 * i + 1] = static_cast<std::byte>(value >> 8);
    bytes[3 * i + 2] = static_cast<std::byte>(value >> 16);
  }
}

void PlainKernels::decodeMidSide(std::span<float> frames, float sideGain) {
  for (std::size_t i = 0; i < frames.size(); i += 2) {
    const float mid = frames[i];
    const float side = frames[i + 1] * sideGain;
    frames[i] = mid + side;
    frames[i + 1] = mid - side;
  }
}

float PlainKernels::divide(float sample, float divisor) {
  return divisor == 0.0F ? sample : sample / divisor;
}

float PlainKernels::divide(std::span<float> frames, float left, float right) {
  for (std::size_t i = 0; i < frames.size(); i += 2) {
    frames[i] = divide(frames[i], left);
    frames[i + 1] = divide(frames[i + 1], right);
  }
  return peakMagnitude(frames, 0.0F);
}

float PlainKernels::decodeAndDivide(std::span<float> frames, float sideGain, float left,
                                    float right) {
  decodeMidSide(frames, sideGain);
  return divide(frames, left, right);
}

float PlainKernels::recode24(std::span<const std::byte> from, float sideGain, float left,
                             float right, std::span<std::byte> to) {
  float peak = 0;
  std::array<float, 2> frame{};
  for (std::size_t i = 0; i < from.size(); i += kFrame24) {
    unpack24(from.subspan(i, kFrame24), frame);
    peak = std::max(peak, decodeAndDivide(frame, sideGain, left, right));
    pack24(frame, to.subspan(i, kFrame24));
  }
  return peak;
}

float PlainKernels::peakMagnitude(std::span<const float> samples, float peak) {
  for (const float sample : samples) {
    const float magnitude = std::fabs(sample);
    if (magnitude > peak) peak = magnitude;
  }
  return peak;
}

float PlainKernels::decodedPeak24(std::span<const std::byte> frames, float sideGain, float peak) {
  std::array<float, 2> frame{};
  for (std::size_t i = 0; i < frames.size(); i += kFrame24) {
    unpack24(frames.subspan(i, kFrame24), frame);
    decodeMidSide(frame, sideGain);
    peak = peakMagnitude(frame, peak);
  }
  return peak;
}

void PlainKernels::raiseMaxima(std::span<const float> frames, float& left, float& right) {
  for (std::size_t i = 0; i < frames.size(); i += 2) {
    if (frames[i] > left) left = frames[i];
    if (frames[i + 1] > right) right = frames[i + 1];
  }
}
