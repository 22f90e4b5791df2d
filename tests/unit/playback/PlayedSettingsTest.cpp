// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/PlayedSettings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>

namespace {

constexpr std::uint64_t kFilled = 4800;
constexpr std::uint64_t kForever = std::numeric_limits<std::uint64_t>::max();

PlayedSettings::Settings gain(std::int64_t dB) {
  return {.gain = dB};
}

void expect(const PlayedSettings& played, std::uint64_t frame,
            const std::optional<PlayedSettings::Settings>& settings, std::uint64_t end) {
  EXPECT_EQ(played.at(frame).settings, settings) << frame;
  EXPECT_EQ(played.at(frame).end, end) << frame;
}

TEST(PlayedSettingsTest, NothingIsKnownBeforeABufferIsFilled) {
  expect(PlayedSettings(), 0, std::nullopt, kForever);
}

TEST(PlayedSettingsTest, EachBufferKeepsItsOwn) {
  PlayedSettings played;
  played.add(kFilled, kFilled, {}, gain(1));
  played.add(2 * kFilled, kFilled, {}, {120, -3, Solo::Side});
  expect(played, 0, std::nullopt, kFilled);
  expect(played, kFilled, gain(1), 2 * kFilled);
  expect(played, 2 * kFilled - 1, gain(1), 2 * kFilled);
  expect(played, 2 * kFilled, PlayedSettings::Settings{120, -3, Solo::Side}, 3 * kFilled);
  expect(played, 3 * kFilled, std::nullopt, kForever);
}

TEST(PlayedSettingsTest, WhatIsFilledAnewCountsFromThereOn) {
  PlayedSettings played;
  played.add(0, kFilled, {}, gain(1));
  played.add(1000, kFilled, {}, gain(2));
  expect(played, 999, gain(1), 1000);
  expect(played, 1000, gain(2), 1000 + kFilled);
}

TEST(PlayedSettingsTest, ABufferTurnsWithTheLoop) {
  const FrameLoop loop{10'000, 40'000};
  PlayedSettings played;
  played.add(38'000, kFilled, loop, gain(1));
  expect(played, 39'999, gain(1), 40'000);
  expect(played, 40'000, std::nullopt, kForever);
  expect(played, 10'000, gain(1), 12'800);
  expect(played, 12'800, std::nullopt, 38'000);
}

TEST(PlayedSettingsTest, ALoopThatIsShorterThanABufferIsKnownWhole) {
  const FrameLoop loop{100, 1100};
  PlayedSettings played;
  played.add(1000, kFilled, loop, gain(1));
  expect(played, 100, gain(1), 1100);
  expect(played, 1099, gain(1), 1100);
}

TEST(PlayedSettingsTest, WhatIsHeardIsKnownWhileAllBuffersTurn) {
  const FrameLoop loop{0, 3 * kFilled / 2};
  PlayedSettings played;
  std::uint64_t first = 0;
  for (int dB = 0; dB < 4; ++dB) {  // one that is heard, three that wait
    played.add(first, kFilled, loop, gain(dB));
    first = (first + kFilled) % loop.end;
  }
  for (std::uint64_t frame = 0; frame < loop.end; frame += 100) {
    EXPECT_TRUE(played.at(frame).settings) << frame;
  }
}

}  // namespace
