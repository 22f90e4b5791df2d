// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/SoloStage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "dsp/MidSideDecoder.h"

namespace {

/// Mid and Side that differ from frame to frame.
std::vector<float> raw(std::size_t frames) {
  std::vector<float> samples;
  for (std::size_t i = 0; i < frames; ++i) {
    samples.push_back(0.5F + 0.0001F * static_cast<float>(i));
    samples.push_back(-0.25F + 0.0002F * static_cast<float>(i));
  }
  return samples;
}

TEST(SoloStage, PutsOneMicrophoneOnBothSides) {
  std::vector<float> mid = raw(3);
  SoloStage::apply(mid, Solo::Mid);
  std::vector<float> side = raw(3);
  SoloStage::apply(side, Solo::Side);
  std::vector<float> none = raw(3);
  SoloStage::apply(none, Solo::None);
  const std::vector<float> wanted = raw(3);
  EXPECT_EQ(none, wanted);
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(mid[i], wanted[i / 2 * 2]);
    EXPECT_EQ(side[i], wanted[i / 2 * 2 + 1]);
  }
}

TEST(SoloStage, WithoutSoloDecodesToTheBit) {
  for (const std::size_t frames : {0U, 1U, 127U, 128U, 129U, 4800U}) {
    std::vector<float> glided = raw(frames);
    std::vector<float> wanted = glided;
    const AdjustAngleInfo info{.curAngle = 120, .prevAngle = 7};
    SoloStage::glide(glided, info, Solo::None, Solo::None);
    MidSideDecoder::glide(wanted, info);
    EXPECT_EQ(glided, wanted) << frames;
  }
}

TEST(SoloStage, HoldsToTheBitWhereNothingChanges) {
  std::vector<float> held = raw(1000);
  std::vector<float> wanted = held;
  SoloStage::glide(held, {.curAngle = 150, .prevAngle = 0}, Solo::Side, Solo::Side);
  SoloStage::apply(wanted, Solo::Side);
  EXPECT_EQ(held, wanted) << "whatever the width";
}

TEST(SoloStage, FadesFromWhatIsDecodedWhileTheWidthGlides) {
  std::vector<float> faded = raw(4800);
  std::vector<float> decoded = faded;
  std::vector<float> mid = faded;
  const AdjustAngleInfo info{.curAngle = 150, .prevAngle = 0};
  SoloStage::glide(faded, info, Solo::None, Solo::Mid);
  MidSideDecoder::glide(decoded, info);
  SoloStage::apply(mid, Solo::Mid);
  for (std::size_t i = 0; i < faded.size(); ++i) {
    const float share = std::min(1.0F, static_cast<float>(i / 2) / 960.0F);
    EXPECT_NEAR(faded[i], decoded[i] + (mid[i] - decoded[i]) * share, 1e-6F) << i;
  }
  for (std::size_t i = 2 * SoloStage::kFadeFrames; i < faded.size(); ++i) {
    EXPECT_EQ(faded[i], mid[i]);
  }
  EXPECT_EQ(faded[0], decoded[0]);
}

TEST(SoloStage, GoesBackToWhatIsDecodedExactly) {
  std::vector<float> faded = raw(2000);
  std::vector<float> decoded = faded;
  const AdjustAngleInfo info{.curAngle = 90, .prevAngle = 90};
  SoloStage::glide(faded, info, Solo::Side, Solo::None);
  MidSideDecoder::glide(decoded, info);
  EXPECT_NE(faded[0], decoded[0]);
  for (std::size_t i = 2 * SoloStage::kFadeFrames; i < faded.size(); ++i) {
    EXPECT_EQ(faded[i], decoded[i]);
  }
}

TEST(SoloStage, FadesOverTheWholeOfAShortBuffer) {
  std::vector<float> faded(20, 1.0F);
  for (std::size_t i = 1; i < faded.size(); i += 2) faded[i] = 0.0F;
  SoloStage::glide(faded, {}, Solo::Side, Solo::Mid);
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_FLOAT_EQ(faded[2 * i], 0.1F * static_cast<float>(i));
    EXPECT_FLOAT_EQ(faded[2 * i + 1], 0.1F * static_cast<float>(i));
  }
}

}  // namespace
