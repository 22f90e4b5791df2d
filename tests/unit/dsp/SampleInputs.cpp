// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "SampleInputs.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace {

void addBits(std::vector<float>& values, std::initializer_list<std::uint32_t> patterns) {
  for (const std::uint32_t bits : patterns) values.push_back(std::bit_cast<float>(bits));
}

void addWithNeighbours(std::vector<float>& values, float value) {
  constexpr float kFar = std::numeric_limits<float>::infinity();
  for (const float x : {value, -value}) {
    values.push_back(x);
    values.push_back(std::nextafter(x, kFar));
    values.push_back(std::nextafter(x, -kFar));
  }
}

std::vector<float> makeAwkward() {
  std::vector<float> values;
  addBits(values, {0x7FC00000, 0xFFC00000, 0x7FC12345, 0xFFFFFFFF, 0x7FFFFFFF});  // quiet NaN
  addBits(values, {0x7F800001, 0xFF800001, 0x7FA00000, 0xFFABCDEF, 0x7FBFFFFF});  // signalling NaN
  addBits(values, {0x7F800000, 0xFF800000, 0x7F7FFFFF, 0xFF7FFFFF});  // infinities, extremes
  addBits(values, {0x00000000, 0x80000000});                          // both zeros
  addBits(values, {0x00000001, 0x80000001, 0x007FFFFF, 0x807FFFFF});  // denormals
  addBits(values, {0x00800000, 0x80800000});                          // smallest normal numbers
  addWithNeighbours(values, 1.0F);
  addWithNeighbours(values, 2.0F);
  for (const double step : {1.0, 2.0, 3.0, 4095.0, 4194304.0, 8388605.0, 8388606.0}) {
    addWithNeighbours(values, static_cast<float>(step / 8388607.0));
    addWithNeighbours(values, static_cast<float>(step / 8388608.0));
  }
  return values;
}

}  // namespace

const std::vector<float>& SampleInputs::awkward() {
  static const std::vector<float> kValues = makeAwkward();
  return kValues;
}

std::size_t SampleInputs::upTo(std::size_t last) {
  return std::uniform_int_distribution<std::size_t>(0, last)(_random);
}

float SampleInputs::audio() {
  return std::uniform_real_distribution<float>(-1.0F, 1.0F)(_random);
}

float SampleInputs::any() {
  switch (upTo(3)) {
    case 0:
      return awkward()[upTo(awkward().size() - 1)];
    case 1:
      return std::bit_cast<float>(static_cast<std::uint32_t>(_random()));
    default:
      return 1.25F * audio();
  }
}

float SampleInputs::anyNumber() {
  float value = any();
  while (std::isnan(value)) value = any();
  return value;
}

std::vector<float> SampleInputs::any(std::size_t count) {
  std::vector<float> values(count);
  std::generate(values.begin(), values.end(), [this] { return any(); });
  return values;
}

std::vector<float> SampleInputs::audio(std::size_t count) {
  std::vector<float> values(count);
  std::generate(values.begin(), values.end(), [this] { return audio(); });
  return values;
}

std::vector<std::byte> SampleInputs::bytes(std::size_t count) {
  std::vector<std::byte> values(count);
  std::generate(values.begin(), values.end(), [this] { return static_cast<std::byte>(upTo(255)); });
  return values;
}

std::vector<std::uint32_t> bitsOf(std::span<const float> values) {
  std::vector<std::uint32_t> bits(values.size());
  std::transform(values.begin(), values.end(), bits.begin(),
                 [](float value) { return std::bit_cast<std::uint32_t>(value); });
  return bits;
}
