// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include "controls/Upward.h"

namespace {

TEST(Upward, TurnsThereAndBack) {
  EXPECT_EQ(QPointF(3.0, 90.0), Upward::point({3.0, 10.0}, 100.0));
  EXPECT_EQ(QRectF(3.0, 70.0, 5.0, 20.0), Upward::rect({3.0, 10.0, 5.0, 20.0}, 100.0));
  const QRectF any(3.25, 10.5, 5.0, 20.0);
  EXPECT_EQ(any, Upward::rect(Upward::rect(any, 100.0), 100.0));
}

TEST(Upward, AnAreaHoldsItsLeftAndTopEdgesOnly) {
  const QRectF area(10.0, 20.0, 30.0, 40.0);
  EXPECT_TRUE(Upward::covers(area, {10.0, 60.0}));
  EXPECT_TRUE(Upward::covers(area, {39.9, 20.1}));
  EXPECT_FALSE(Upward::covers(area, {9.9, 40.0}));
  EXPECT_FALSE(Upward::covers(area, {40.0, 40.0}));
  EXPECT_FALSE(Upward::covers(area, {20.0, 20.0}));
  EXPECT_FALSE(Upward::covers(area, {20.0, 60.1}));
}

TEST(Upward, AnEmptyAreaHoldsNothing) {
  for (const QRectF& empty : {QRectF(), QRectF(0.0, -10.0, 0.0, 10.0)}) {
    EXPECT_FALSE(Upward::covers(empty, {0.0, 0.0}));
    EXPECT_FALSE(Upward::covers(empty, {0.0, -5.0}));
  }
}

}  // namespace
