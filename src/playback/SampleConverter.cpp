// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/SampleConverter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "dsp/Kernels.h"

namespace {

constexpr float kFrom8Bit = 0x1p-7F;
constexpr float kFrom16Bit = 0x1p-15F;
constexpr float kFrom32Bit = 0x1p-31F;

template <class Stored>
void scale(std::span<const std::byte> bytes, std::span<float> samples, float factor, float offset) {
  for (std::size_t i = 0; i < samples.size(); ++i) {
    Stored value;
    std::memcpy(&value, &bytes[i * sizeof value], sizeof value);
    samples[i] = (static_cast<float>(value) - offset) * factor;
  }
}

}  // namespace

void SampleConverter::toFloats(SampleType type, std::span<const std::byte> bytes,
                               std::span<float> samples) {
  if (samples.empty()) return;
  switch (type) {
    case SampleType::Unsigned8:
      return scale<std::uint8_t>(bytes, samples, kFrom8Bit, 128.0F);
    case SampleType::Signed16:
      return scale<std::int16_t>(bytes, samples, kFrom16Bit, 0.0F);
    case SampleType::Signed24:
      return Kernels::unpack24(bytes, samples);
    case SampleType::Signed32:
      return scale<std::int32_t>(bytes, samples, kFrom32Bit, 0.0F);
    case SampleType::Float32:
      std::memcpy(samples.data(), bytes.data(), samples.size_bytes());
      return;
    case SampleType::None:
      break;
  }
  std::fill(samples.begin(), samples.end(), 0.0F);
}
