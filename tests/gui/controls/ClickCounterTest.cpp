// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QMouseEvent>

#include "controls/ClickCounter.h"

namespace {

int press(ClickCounter& clicks, QEvent::Type type, quint64 time, QPointF at = {}) {
  QMouseEvent event(type, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  event.setTimestamp(time);
  return clicks.press(event);
}

TEST(ClickCounter, ASinglePressIsTheFirst) {
  ClickCounter clicks;
  EXPECT_EQ(0, clicks.count());
  EXPECT_EQ(1, press(clicks, QEvent::MouseButtonPress, 0));
  EXPECT_EQ(1, press(clicks, QEvent::MouseButtonPress, 0));
  EXPECT_EQ(1, clicks.count());
}

TEST(ClickCounter, CountsOnBeyondTwo) {
  ClickCounter clicks;
  EXPECT_EQ(1, press(clicks, QEvent::MouseButtonPress, 1000));
  EXPECT_EQ(2, press(clicks, QEvent::MouseButtonDblClick, 1100));
  EXPECT_EQ(3, press(clicks, QEvent::MouseButtonPress, 1200));
  EXPECT_EQ(4, press(clicks, QEvent::MouseButtonDblClick, 1300));
  EXPECT_EQ(4, clicks.count());
}

TEST(ClickCounter, APauseEndsTheRow) {
  ClickCounter clicks;
  press(clicks, QEvent::MouseButtonPress, 1000);
  press(clicks, QEvent::MouseButtonDblClick, 1100);
  EXPECT_EQ(1, press(clicks, QEvent::MouseButtonPress, 9000));
}

TEST(ClickCounter, AnotherPlaceEndsTheRow) {
  ClickCounter clicks;
  press(clicks, QEvent::MouseButtonPress, 1000);
  press(clicks, QEvent::MouseButtonDblClick, 1100);
  EXPECT_EQ(1, press(clicks, QEvent::MouseButtonPress, 1200, {100, 0}));
}

}  // namespace
