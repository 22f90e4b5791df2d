// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeLayout.h"

#include <gtest/gtest.h>

#include "analysis/TakeAnalyzer.h"
#include "analysis/UnitPass.h"
#include "analysis/WidthGrid.h"

TEST(TakeLayoutTest, BlocksAreATenthOfASecond) {
  EXPECT_EQ(TakeLayout(48000, 1, true).blockFrames(), 4800U);
  EXPECT_EQ(TakeLayout(44100, 1, true).blockFrames(), 4410U);
  EXPECT_EQ(TakeLayout(11025, 1, true).blockFrames(), 1103U);
  EXPECT_EQ(TakeLayout(768000, 1, true).blockFrames(), 76800U);
}

TEST(TakeLayoutTest, WhereLoudnessIsNotDefinedABlockIsNominal) {
  for (const std::uint32_t rate : {0U, 1U, 7999U, 768001U, 4294967295U}) {
    EXPECT_FALSE(TakeLayout(rate, 1, true).hasLoudness());
    EXPECT_EQ(TakeLayout(rate, 1, true).blockFrames(), 4800U);
  }
  EXPECT_EQ(TakeLayout(0, 100, true).seconds(), 0);
}

TEST(TakeLayoutTest, BinsCoverEveryFrameOnce) {
  for (const std::uint32_t rate : {8000U, 11025U, 48000U}) {
    for (const std::uint64_t frames : {1U, 551U, 552U, 1103U, 2400U, 4801U, 100000U}) {
      const TakeLayout layout(rate, frames, true);
      EXPECT_EQ(layout.binStart(0), 0U);
      EXPECT_EQ(layout.binStart(layout.bins()), frames);
      for (std::size_t bin = 0; bin < layout.bins(); ++bin) {
        ASSERT_LT(layout.binStart(bin), layout.binStart(bin + 1));
        ASSERT_EQ(layout.binOf(layout.binStart(bin)), bin);
        ASSERT_EQ(layout.binOf(layout.binStart(bin + 1) - 1), bin);
      }
    }
  }
}

TEST(TakeLayoutTest, UnitsHaveEveryBlockAndBinOnce) {
  for (const std::uint32_t rate : {0U, 8000U, 11025U, 48000U, 192000U}) {
    for (const std::uint64_t frames : {1U, 551U, 4801U, 32000U, 192000U, 192001U, 1000000U}) {
      const TakeLayout layout(rate, frames, true);
      std::size_t blocks = 0;
      std::size_t bins = 0;
      for (std::size_t unit = 0; unit < layout.units(); ++unit) {
        ASSERT_GT(layout.blocksOf(unit), 0U);
        blocks += layout.blocksOf(unit);
        bins += layout.binsOf(unit);
      }
      EXPECT_EQ(blocks, layout.blocks()) << rate << ' ' << frames;
      EXPECT_EQ(bins, layout.bins()) << rate << ' ' << frames;
    }
  }
}

TEST(TakeLayoutTest, NothingHasNoParts) {
  const TakeLayout layout(48000, 0, true);
  EXPECT_EQ(layout.blocks() + layout.bins() + layout.units() + layout.wholeBlocks(), 0U);
}

// A tenth of a second of a medium of 20 MB/s.
TEST(TakeLayoutTest, AUnitIsSoonRead) {
  for (const std::uint32_t rate : {8000U, 48000U, 96000U, 192000U}) {
    EXPECT_LE(TakeLayout(rate, 1, true).framesPerUnit() * 2 * sizeof(float), 2'000'000U) << rate;
  }
}

TEST(TakeLayoutTest, ThePassesOfSeveralWorkersFitTheMemory) {
  constexpr std::uint64_t kMost = 28U << 20;
  EXPECT_EQ(TakeAnalyzer::Options().workersMemory, kMost);
  for (const std::uint32_t rate :
       {0U, 8000U, 16000U, 44100U, 48000U, 96000U, 192000U, 384000U, 768000U}) {
    const std::uint64_t memory = UnitPass::memory(TakeLayout(rate, 1, true));
    const std::uint64_t workers = kMost / memory;
    EXPECT_GE(workers, 4U) << rate;
    EXPECT_LE(workers * memory, kMost) << rate;
    EXPECT_GE(TakeAnalyzer::kSmallMemory / memory, 1U) << rate;
  }
}

TEST(WidthGridTest, PlacesAreOnTheLineBetweenTheirNodes) {
  for (int angle = 0; angle <= 150; ++angle) {
    const auto [node, weight] = WidthGrid::locate(angle);
    const float low = WidthGrid::nodeGains()[node];
    const float high = weight > 0 ? WidthGrid::nodeGains()[node + 1] : low;
    EXPECT_NEAR(low + weight * (high - low), SideGain::factor(angle), 1e-6) << angle;
    EXPECT_GE(weight, 0.0F);
    EXPECT_LT(weight, 1.0F);
  }
  EXPECT_EQ(WidthGrid::locate(-5).node, 0U);
  EXPECT_EQ(WidthGrid::locate(500).node, WidthGrid::kNodes.size() - 1);
}

// No width from 15 on lies between nodes that are more than 9 degrees apart.
TEST(WidthGridTest, NodesOfPeaksAreCloseUpToWhereThoseOfExtremesAre) {
  const auto& peaks = WidthGrid::kPeakNodes;
  for (std::size_t i = 3; i + 1 < peaks.size(); ++i) EXPECT_LE(peaks[i + 1] - peaks[i], 9);
  const auto& nodes = WidthGrid::kNodes;
  const auto last = std::ranges::find(nodes, peaks.back());
  ASSERT_NE(last, nodes.end());
  for (auto node = last; node + 1 != nodes.end(); ++node) EXPECT_LE(node[1] - node[0], 9);
  EXPECT_TRUE(WidthGrid::locatePeak(peaks.back()));
  EXPECT_FALSE(WidthGrid::locatePeak(peaks.back() + 1));
}

TEST(WidthGridTest, PlacesOfPeaksAreOnTheLineBetweenTheirNodes) {
  for (int angle = 0; angle <= WidthGrid::kPeakNodes.back(); ++angle) {
    const auto place = WidthGrid::locatePeak(angle);
    ASSERT_TRUE(place) << angle;
    const float low = WidthGrid::peakNodeGains()[place->node];
    const float high = place->weight > 0 ? WidthGrid::peakNodeGains()[place->node + 1] : low;
    EXPECT_NEAR(low + place->weight * (high - low), SideGain::factor(angle), 1e-6) << angle;
  }
}
