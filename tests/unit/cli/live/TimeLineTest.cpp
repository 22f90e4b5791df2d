// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/TimeLine.h"

#include <gtest/gtest.h>

namespace {

constexpr TimeLine::State kState{"R0001.WAV", "00:00:01", "00:00:20", 120, 6, false};

TimeLine::State named(std::string_view name) {
  TimeLine::State state = kState;
  state.name = name;
  return state;
}

TEST(TimeLineTest, TellsAllWhereThereIsRoom) {
  EXPECT_EQ(TimeLine::of(kState, 80), "R0001.WAV  00:00:01 / 00:00:20  width 120  gain +6 dB");
  TimeLine::State paused = kState;
  paused.isPaused = true;
  EXPECT_EQ(TimeLine::of(paused, 80),
            "R0001.WAV  00:00:01 / 00:00:20  width 120  gain +6 dB  paused");
}

TEST(TimeLineTest, CutsTheNameInItsMiddle) {
  EXPECT_EQ(TimeLine::of(named("Concert in the park, first half.WAV"), 60),
            "Concert...lf.WAV  00:00:01 / 00:00:20  width 120  gain +6 dB");
  EXPECT_EQ(TimeLine::of(named("R0001_Decode.WAV"), 54),
            "R000...WAV  00:00:01 / 00:00:20  width 120  gain +6 dB");
}

TEST(TimeLineTest, LeavesTheNameOutThenTheWordsThenTheEnd) {
  EXPECT_EQ(TimeLine::of(kState, 48), "00:00:01 / 00:00:20  width 120  gain +6 dB");
  EXPECT_EQ(TimeLine::of(kState, 40), "00:00:01 / 00:00:20  120  +6 dB");
  EXPECT_EQ(TimeLine::of(kState, 10), "00:00:01 /");
  EXPECT_EQ(TimeLine::of(kState, 0), "");
}

TEST(TimeLineTest, FitsAtEveryWidth) {
  TimeLine::State widest{"a name that is longer than any terminal is wide, at least here",
                         "100:00:00",
                         "100:00:00",
                         150,
                         -36,
                         true};
  for (std::size_t columns = 0; columns < 130; ++columns) {
    EXPECT_LE(TimeLine::of(widest, columns).size(), columns);
  }
  EXPECT_LE(TimeLine::of({"x", "00:00:00", "00:00:00", 150, -36, true}, 40).size(), 40U);
}

TEST(TimeLineTest, CutsNoCharacterInTwo) {
  const std::string name = "\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4\u00e4.WAV";
  EXPECT_EQ(TimeLine::of(named(name), 54),
            "\u00e4\u00e4\u00e4\u00e4...WAV  00:00:01 / 00:00:20  width 120  gain +6 dB");
  const std::string wide = "\u6c34\u6c34\u6c34\u6c34\u6c34\u6c34.WAV";
  EXPECT_EQ(TimeLine::of(named(wide), 54),
            "\u6c34\u6c34...WAV  00:00:01 / 00:00:20  width 120  gain +6 dB");
}

}  // namespace
