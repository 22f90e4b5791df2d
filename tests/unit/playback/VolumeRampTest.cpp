// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/VolumeRamp.h"

#include <gmock/gmock.h>

#include <cmath>
#include <utility>

#include <vector>

namespace {

TEST(VolumeRamp, OneLeavesEveryBit) {
  VolumeRamp ramp(48000, 2);
  std::vector<float> frames{1e-40F, -0.0F, 0.3F, 5.0F};
  const std::vector<float> before = frames;
  ramp.apply(frames, 1.0F);
  EXPECT_EQ(frames, before);
  EXPECT_TRUE(std::signbit(frames[1]));
}

TEST(VolumeRamp, BeginsWithTheVolumeItHas) {
  VolumeRamp ramp(48000, 2);
  std::vector<float> frames(8, 1.0F);
  ramp.apply(frames, 0.25F);
  EXPECT_THAT(frames, testing::Each(0.25F));
}

TEST(VolumeRamp, AChangeGlidesOverTenMilliseconds) {
  VolumeRamp ramp(48000, 2);
  std::vector<float> frames(2, 1.0F);
  ramp.apply(frames, 1.0F);
  frames.assign(2000, 1.0F);
  ramp.apply(frames, 0.0F);
  for (std::size_t i = 2; i < frames.size(); ++i) {
    EXPECT_LE(frames[i], frames[i - 2]);
    EXPECT_LE(frames[i - 2] - frames[i], 1.0F / 480 + 1e-6F);
  }
  EXPECT_GT(frames[2 * 478], 0.0F);
  EXPECT_EQ(frames[2 * 480], 0.0F);
  frames.assign(2000, 1.0F);
  ramp.apply(frames, 1.0F);
  EXPECT_EQ(frames.back(), 1.0F);
  EXPECT_LT(frames.front(), 0.01F);
}

TEST(VolumeRamp, ANewPieceHasItsVolumeFromTheStart) {
  VolumeRamp ramp(48000, 1);
  std::vector<float> frames(4, 1.0F);
  ramp.apply(frames, 1.0F);
  ramp.restart();
  ramp.apply(frames, 0.5F);
  EXPECT_THAT(frames, testing::Each(0.5F));
}

}  // namespace
