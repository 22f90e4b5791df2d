// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/DemoScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr std::size_t kSecond = 2 * DemoScene::kRate;  // floats

std::vector<float> wholeScene() {
  DemoScene scene;
  std::vector<float> frames(2 * DemoScene::kFrames);
  scene.fill(frames);
  return frames;
}

struct Energy {
  double left = 0;
  double right = 0;
};

// Of plain left and right, which are mid plus and minus side.
Energy energyOf(const std::vector<float>& frames, std::size_t begin, std::size_t end) {
  Energy energy;
  for (std::size_t i = begin; i < end; i += 2) {
    const double mid = static_cast<double>(frames[i]);
    const double side = static_cast<double>(frames[i + 1]);
    energy.left += (mid + side) * (mid + side);
    energy.right += (mid - side) * (mid - side);
  }
  return energy;
}

TEST(DemoSceneTest, LastsTwentySeconds) {
  EXPECT_EQ(DemoScene::kRate, 48000U);
  EXPECT_EQ(DemoScene::kFrames, 960000U);
}

TEST(DemoSceneTest, IsTheSameOnEveryRunAndInAnyPieces) {
  const std::vector<float> whole = wholeScene();
  DemoScene scene;
  std::vector<float> pieces(whole.size());
  std::size_t done = 0;
  for (std::size_t piece = 2; done < pieces.size(); piece = piece * 3 % 9998 + 2) {
    const std::size_t count = std::min(piece / 2 * 2, pieces.size() - done);
    scene.fill(std::span(pieces).subspan(done, count));
    done += count;
  }
  EXPECT_TRUE(whole == pieces);
}

TEST(DemoSceneTest, StaysInsideFullScale) {
  const std::vector<float> whole = wholeScene();
  float loudest = 0;
  for (std::size_t i = 0; i < whole.size(); i += 2) {
    loudest = std::max(loudest, std::fabs(whole[i]) + std::fabs(whole[i + 1]));
  }
  EXPECT_LT(loudest, 1.0F);
  EXPECT_GT(loudest, 0.25F);
}

TEST(DemoSceneTest, WalksFromLeftToRight) {
  const std::vector<float> whole = wholeScene();
  double lastShare = 1.0;
  for (std::size_t second = 0; second + 4 <= 20; second += 4) {
    const Energy energy = energyOf(whole, second * kSecond, (second + 4) * kSecond);
    const double share = energy.left / (energy.left + energy.right);
    EXPECT_LT(share, lastShare) << second;
    lastShare = share;
  }
  const Energy start = energyOf(whole, 0, 2 * kSecond);
  const Energy end = energyOf(whole, 18 * kSecond, 20 * kSecond);
  EXPECT_GT(start.left, 10 * start.right);
  EXPECT_GT(end.right, 10 * end.left);
}

TEST(DemoSceneTest, IsNeverSilent) {
  const std::vector<float> whole = wholeScene();
  for (std::size_t begin = 0; begin < whole.size(); begin += kSecond / 10) {
    const Energy energy = energyOf(whole, begin, begin + kSecond / 10);
    EXPECT_GT(energy.left + energy.right, 1e-3);
  }
}

TEST(DemoSceneTest, LeavesAHalfFrameAlone) {
  DemoScene scene;
  std::vector<float> frames(3, 9.0F);
  scene.fill(frames);
  EXPECT_EQ(frames[2], 9.0F);
}

}  // namespace
