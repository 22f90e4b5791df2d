// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/PlainKernels.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "SampleInputs.h"

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

float unpacked(std::uint8_t low, std::uint8_t middle, std::uint8_t high) {
  const std::array<std::byte, 3> bytes{std::byte{low}, std::byte{middle}, std::byte{high}};
  return PlainKernels::unpack24(bytes.data());
}

std::int32_t packed(float sample) {
  std::array<std::byte, 3> bytes{};
  PlainKernels::pack24({&sample, 1}, bytes);
  const auto low = std::to_integer<std::uint32_t>(bytes[0]);
  const auto middle = std::to_integer<std::uint32_t>(bytes[1]);
  const auto high = std::to_integer<std::uint32_t>(bytes[2]);
  return static_cast<std::int32_t>(low << 8 | middle << 16 | high << 24) >> 8;
}

// What is asked for, in double: the product with 8388607 is rounded to float, then cut.
std::int32_t wantedPacked(float sample) {
  const double x = static_cast<double>(sample);
  if (std::isnan(x) || x <= -1.0) return -8388608;
  if (x >= 1.0) return 8388607;
  return static_cast<std::int32_t>(std::trunc(static_cast<float>(x * 8388607.0)));
}

}  // namespace

TEST(PlainKernelsTest, Unpack24ScalesASignedLittleEndianIntegerBy2ToTheMinus23) {
  EXPECT_EQ(unpacked(0x00, 0x00, 0x80), -1.0F);
  EXPECT_EQ(unpacked(0xFF, 0xFF, 0x7F), static_cast<float>(8388607.0 / 8388608.0));
  EXPECT_EQ(unpacked(0x00, 0x00, 0x00), 0.0F);
  EXPECT_EQ(unpacked(0x01, 0x00, 0x00), 0x1.0p-23F);
  EXPECT_EQ(unpacked(0xFF, 0xFF, 0xFF), -0x1.0p-23F);
  EXPECT_EQ(unpacked(0x56, 0x34, 0x12), static_cast<float>(0x123456) * 0x1.0p-23F);
}

TEST(PlainKernelsTest, Unpack24TakesThreeBytesASample) {
  const std::array<std::byte, 6> bytes{std::byte{0}, std::byte{0}, std::byte{0x40},
                                       std::byte{0}, std::byte{0}, std::byte{0xC0}};
  std::array<float, 2> samples{};
  PlainKernels::unpack24(bytes, samples);
  EXPECT_EQ(samples[0], 0.5F);
  EXPECT_EQ(samples[1], -0.5F);
}

TEST(PlainKernelsTest, Pack24CutsTowardZeroInsideFullScale) {
  EXPECT_EQ(packed(0.0F), 0);
  EXPECT_EQ(packed(-0.0F), 0);
  EXPECT_EQ(packed(0.5F), 4194303);    // 4194303.5
  EXPECT_EQ(packed(-0.5F), -4194303);  // -4194303.5
  EXPECT_EQ(packed(1e-30F), 0);
}

TEST(PlainKernelsTest, Pack24ClipsOutsideFullScale) {
  EXPECT_EQ(packed(1.0F), 8388607);
  EXPECT_EQ(packed(1.197F), 8388607);
  EXPECT_EQ(packed(kInfinite), 8388607);
  EXPECT_EQ(packed(-1.0F), -8388608);
  EXPECT_EQ(packed(-1.5F), -8388608);
  EXPECT_EQ(packed(-kInfinite), -8388608);
  EXPECT_EQ(packed(kNaN), -8388608);
  EXPECT_EQ(packed(-kNaN), -8388608);
}

TEST(PlainKernelsTest, Pack24AgreesWithTheFormulaForAwkwardAndRandomValues) {
  SampleInputs inputs(1);
  for (const float value : SampleInputs::awkward()) EXPECT_EQ(packed(value), wantedPacked(value));
  for (int i = 0; i < 100000; ++i) {
    const float value = inputs.any();
    ASSERT_EQ(packed(value), wantedPacked(value)) << value;
  }
}

TEST(PlainKernelsTest, DecodeMidSideAddsAndSubtractsTheScaledSide) {
  std::array<float, 4> frames{0.5F, 0.25F, -0.5F, 1.0F};
  PlainKernels::decodeMidSide(frames, 0.5F);
  EXPECT_EQ(frames[0], 0.625F);
  EXPECT_EQ(frames[1], 0.375F);
  EXPECT_EQ(frames[2], 0.0F);
  EXPECT_EQ(frames[3], -1.0F);
}

TEST(PlainKernelsTest, DecodeMidSideRoundsTheProductBeforeTheSum) {
  SampleInputs inputs(2);
  for (int i = 0; i < 100000; ++i) {
    std::array<float, 2> frame{inputs.audio(), inputs.audio()};
    const float gain = 2.0F * inputs.audio();
    // Double is wide enough that rounding its result to float is rounding once.
    const double mid = frame[0];
    const double side = frame[1];
    const double product = static_cast<float>(side * static_cast<double>(gain));
    PlainKernels::decodeMidSide(frame, gain);
    ASSERT_EQ(frame[0], static_cast<float>(mid + product));
    ASSERT_EQ(frame[1], static_cast<float>(mid - product));
  }
}

TEST(PlainKernelsTest, DivideByZeroLeavesTheSampleToTheBit) {
  EXPECT_EQ(PlainKernels::divide(0.5F, 0.0F), 0.5F);
  EXPECT_EQ(PlainKernels::divide(0.5F, -0.0F), 0.5F);
  EXPECT_EQ(PlainKernels::divide(0.5F, 2.0F), 0.25F);
  EXPECT_EQ(PlainKernels::divide(-0.5F, 0.25F), -2.0F);
  const std::array<float, 2> odd{std::bit_cast<float>(0x7FC12345U), -0.0F};
  std::array<float, 2> frame = odd;
  PlainKernels::divide(frame, 0.0F, 0.0F);
  EXPECT_EQ(bitsOf(frame), bitsOf(odd));
}

TEST(PlainKernelsTest, DivideTakesEachChannelByItsOwnDivisor) {
  std::array<float, 4> frames{1.0F, 1.0F, -0.5F, -0.5F};
  PlainKernels::divide(frames, 2.0F, 4.0F);
  EXPECT_EQ(bitsOf(frames), bitsOf(std::array{0.5F, 0.25F, -0.25F, -0.125F}));
}

TEST(PlainKernelsTest, PeakMagnitudeIgnoresSignAndNaN) {
  const std::array<float, 4> samples{0.25F, -0.75F, kNaN, 0.5F};
  EXPECT_EQ(PlainKernels::peakMagnitude(samples, 0.0F), 0.75F);
  EXPECT_EQ(PlainKernels::peakMagnitude(samples, 0.875F), 0.875F);
  EXPECT_EQ(PlainKernels::peakMagnitude({}, 0.25F), 0.25F);
  EXPECT_EQ(PlainKernels::peakMagnitude(std::array{-kInfinite}, 0.0F), kInfinite);
}

TEST(PlainKernelsTest, RaiseMaximaKeepsSignsApartAndTheOldMaximumOnNaN) {
  const std::array<float, 6> frames{-0.5F, 0.25F, kNaN, -0.75F, -0.25F, kNaN};
  float left = -2.0F;
  float right = -2.0F;
  PlainKernels::raiseMaxima(frames, left, right);
  EXPECT_EQ(left, -0.25F);
  EXPECT_EQ(right, 0.25F);
  PlainKernels::raiseMaxima(std::array{-1.0F, 0.5F}, left, right);
  EXPECT_EQ(left, -0.25F);
  EXPECT_EQ(right, 0.5F);
}
