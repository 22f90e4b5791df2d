// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cmath>

#include "controls/TimeRuler.h"
#include "controls/TimeWindow.h"

namespace {

TimeWindow window(double seconds, double pixels) {
  TimeWindow made;
  made.setWidth(pixels);
  made.setLength(seconds);
  return made;
}

TEST(TimeWindow, ShowsAllOfATake) {
  const TimeWindow shown = window(300, 600);
  EXPECT_TRUE(shown.isWhole());
  EXPECT_EQ(shown.timeAt(0), 0);
  EXPECT_EQ(shown.timeAt(300), 150);
  EXPECT_EQ(shown.timeAt(900), 300) << "not beyond the end";
  EXPECT_EQ(shown.placeOf(75), 150);
}

TEST(TimeWindow, ZoomsAroundAPlace) {
  TimeWindow shown = window(300, 600);
  shown.zoom(0.5, 200);
  EXPECT_DOUBLE_EQ(shown.timeAt(200), 100);
  EXPECT_DOUBLE_EQ(shown.to() - shown.from(), 150);
  shown.zoom(2, 200);
  EXPECT_TRUE(shown.isWhole());
  shown.zoom(0.5, 600);
  shown.zoom(4, 0);
  EXPECT_EQ(shown.from(), 0);
  EXPECT_EQ(shown.to(), 300) << "no more than there is";
}

TEST(TimeWindow, ComesAsCloseAsAMillisecondAPixel) {
  TimeWindow shown = window(300, 600);
  for (int i = 0; i < 100; ++i) shown.zoom(0.5, 150);
  EXPECT_NEAR(shown.to() - shown.from(), 0.6, 1e-12);
  EXPECT_NEAR(shown.timeAt(150), 75, 1e-9) << "what is under the pointer stays there";
  TimeWindow shortTake = window(0.1, 600);
  shortTake.zoom(0.5, 0);
  EXPECT_TRUE(shortTake.isWhole()) << "closer from the start";
}

TEST(TimeWindow, ScrollsWithinTheTake) {
  TimeWindow shown = window(300, 600);
  shown.zoom(0.1, 0);
  shown.scroll(60);
  EXPECT_DOUBLE_EQ(shown.from(), 3);
  shown.scroll(-1000);
  EXPECT_EQ(shown.from(), 0);
  shown.scroll(1e9);
  EXPECT_DOUBLE_EQ(shown.to(), 300);
}

TEST(TimeWindow, FollowsWhatWasInView) {
  TimeWindow shown = window(300, 600);
  shown.zoom(0.1, 0);
  shown.follow(29.9, 29.99);
  EXPECT_EQ(shown.from(), 0);
  shown.follow(29.9, 30.1);
  EXPECT_NEAR(shown.from(), 30.1 - 0.05 * 30, 1e-9) << "turned the page";
  const double from = shown.from();
  shown.follow(100, 101);
  EXPECT_EQ(shown.from(), from) << "someone looks elsewhere";
  shown.reveal(200);
  EXPECT_TRUE(shown.holds(200));
}

TEST(TimeWindow, KeepsItsStretchWhenResized) {
  TimeWindow shown = window(300, 600);
  shown.setWidth(900);
  EXPECT_TRUE(shown.isWhole());
  shown.zoom(0.1, 450);
  const double from = shown.from();
  shown.setWidth(300);
  EXPECT_EQ(shown.from(), from);
}

TEST(TimeWindow, WithoutATakeShowsNothing) {
  TimeWindow shown = window(0, 600);
  shown.zoom(0.5, 100);
  shown.scroll(10);
  EXPECT_EQ(shown.timeAt(300), 0);
  EXPECT_EQ(shown.placeOf(5), 0);
  shown.setLength(std::nan(""));
  EXPECT_EQ(shown.length(), 0);
}

TEST(TimeRuler, MarksRoundTimesInside) {
  const auto marks = TimeRuler::marks(0, 300, 40);
  ASSERT_EQ(marks.size(), 4U);
  EXPECT_EQ(marks[0].seconds, 60);
  EXPECT_EQ(marks[3].label, "04:00");
  EXPECT_EQ(TimeRuler::marks(59.9, 120.1, 60).size(), 2U);
  EXPECT_TRUE(TimeRuler::marks(5, 5, 1).empty());
  EXPECT_TRUE(TimeRuler::marks(0, 5, 0).empty());
}

TEST(TimeRuler, ShownMarksStayUntilOthersAreAskedFor) {
  TimeRuler ruler;
  const auto* const first = ruler.shown(0, 300, 40).data();
  EXPECT_EQ(ruler.shown(0, 300, 40).data(), first);
  EXPECT_EQ(ruler.shown(0, 300, 40).size(), TimeRuler::marks(0, 300, 40).size());
  for (const double to : {200.0, 300.0}) {
    const auto wanted = TimeRuler::marks(0, to, 30);
    const auto& shown = ruler.shown(0, to, 30);
    ASSERT_EQ(shown.size(), wanted.size());
    EXPECT_EQ(shown.back().label, wanted.back().label);
  }
}

TEST(TimeRuler, StepsAreRoundAndNeverTooNarrow) {
  for (double least = 0.0004; least < 100'000; least *= 1.3) {
    const double step = TimeRuler::stepOf(least);
    EXPECT_GE(step, least);
    const auto marks = TimeRuler::marks(0.1, 0.1 + 20 * least, least);
    for (std::size_t i = 1; i < marks.size(); ++i) {
      EXPECT_NEAR(marks[i].seconds - marks[i - 1].seconds, step, 1e-9);
    }
  }
  EXPECT_EQ(TimeRuler::stepOf(0.03), 0.05);
}

TEST(TimeRuler, WritesAsManyDecimalsAsAStepNeeds) {
  EXPECT_EQ(TimeRuler::text(62.5, 0.5), "01:02.5");
  EXPECT_EQ(TimeRuler::text(62.5, 1), "01:03");
  EXPECT_EQ(TimeRuler::text(0.0625, 0.001), "00:00.063");
  EXPECT_EQ(TimeRuler::text(3723.25, 0.05), "1:02:03.25");
  EXPECT_EQ(TimeRuler::text(59.9996, 0.001), "01:00.000") << "never 60 seconds";
}

}  // namespace
