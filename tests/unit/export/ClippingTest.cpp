// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/Clipping.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "dsp/PlainKernels.h"

namespace {

constexpr float kLoud = 1.5F;
constexpr std::uint32_t kRate = 1000;  // places are 100 frames apart

/// Frames of silence with loud samples of the left channel at these frames.
std::vector<float> loudAt(std::size_t count, std::initializer_list<std::size_t> frames) {
  std::vector<float> samples(2 * count);
  for (const std::size_t frame : frames) samples[2 * frame] = kLoud;
  return samples;
}

void look(Clipping& clipping, const std::vector<float>& samples) {
  clipping.look(samples, PlainKernels::peakMagnitude(samples, 0.0F));
}

TEST(ClippingTest, FindsNothingUpToARoundingOverFullScale) {
  Clipping clipping(kRate);
  const std::vector<float> samples{1.0F, -1.0F, std::nextafter(1.0F, 2.0F),
                                   std::nextafter(-1.0F, -2.0F)};
  look(clipping, samples);
  EXPECT_EQ(clipping.samples(), 0U);
  EXPECT_EQ(clipping.placeCount(), 0U);
  EXPECT_EQ(clipping.peak(), 0.0F);
}

TEST(ClippingTest, CountsBothSignsAndBothChannels) {
  Clipping clipping(kRate);
  const float step = 1.0F + 0x1p-22F;
  look(clipping, std::vector<float>{step, 0, 0, -step, -2.0F, 2.5F, 0.5F, 0});
  EXPECT_EQ(clipping.samples(), 4U);
  EXPECT_EQ(clipping.peak(), 2.5F);
  ASSERT_EQ(clipping.placeCount(), 1U);
  EXPECT_EQ(clipping.places()[0].first, 0U);
  EXPECT_EQ(clipping.places()[0].last, 2U);
}

TEST(ClippingTest, WhatIsNoNumberDoesNotClip) {
  Clipping clipping(kRate);
  look(clipping, std::vector<float>{std::numeric_limits<float>::quiet_NaN(), 0});
  EXPECT_EQ(clipping.samples(), 0U);
  look(clipping, std::vector<float>{0, -std::numeric_limits<float>::infinity()});
  EXPECT_EQ(clipping.samples(), 1U);
  EXPECT_TRUE(std::isinf(clipping.peak()));
}

TEST(ClippingTest, PutsWhatIsCloseTogetherIntoOnePlaceAcrossBlocks) {
  Clipping clipping(kRate);
  look(clipping, loudAt(500, {10, 110, 211, 450}));
  look(clipping, loudAt(100, {40, 99}));
  EXPECT_EQ(clipping.samples(), 6U);
  ASSERT_EQ(clipping.placeCount(), 3U);
  EXPECT_EQ(clipping.places()[0].first, 10U);
  EXPECT_EQ(clipping.places()[0].last, 110U);
  EXPECT_EQ(clipping.places()[1].first, 211U);
  EXPECT_EQ(clipping.places()[2].first, 450U);
  EXPECT_EQ(clipping.places()[2].last, 599U);
}

TEST(ClippingTest, KeepsTheFirstPlacesAndCountsTheOthers) {
  Clipping clipping(kRate);
  for (std::size_t i = 0; i < Clipping::kMostPlaces + 5; ++i) look(clipping, loudAt(200, {0}));
  EXPECT_EQ(clipping.placeCount(), Clipping::kMostPlaces + 5);
  ASSERT_EQ(clipping.places().size(), Clipping::kMostPlaces);
  EXPECT_EQ(clipping.places().back().first, 200 * (Clipping::kMostPlaces - 1));
  EXPECT_EQ(clipping.places().back().last, clipping.places().back().first);
}

}  // namespace
