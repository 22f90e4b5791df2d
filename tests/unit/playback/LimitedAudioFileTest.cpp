// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/LimitedAudioFile.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <vector>

#include "playback/memory/MemoryAudioFile.h"

namespace {

TEST(LimitedAudioFile, SeemsToEndEarly) {
  const AudioFormat format{10, 0, 1, 1, 1, 8, SampleType::Unsigned8};
  std::vector<std::byte> packets(10);
  for (std::size_t i = 0; i < packets.size(); ++i) packets[i] = static_cast<std::byte>(i);
  const auto limited = [&](double seconds) {
    return LimitedAudioFile(std::make_unique<MemoryAudioFile>(format, packets), seconds);
  };
  EXPECT_EQ(limited(0.0).frameCount(), 0U);
  EXPECT_EQ(limited(0.5).frameCount(), 5U);
  EXPECT_EQ(limited(2.0).frameCount(), 10U);
  LimitedAudioFile half = limited(0.5);
  std::array<std::byte, 10> to{};
  EXPECT_EQ(half.readFrames(3, 10, to).frames, 2U);
  EXPECT_EQ(to[1], std::byte{4});
  EXPECT_EQ(half.readFrames(5, 10, to).frames, 0U);
  EXPECT_EQ(half.readFrames(99, 10, to).frames, 0U);
}

}  // namespace
