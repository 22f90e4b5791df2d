// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QKeyEvent>
#include <QTest>
#include <memory>
#include <utility>
#include <vector>

#include "Drawn.h"
#include "Hands.h"
#include "controls/AngleViewer.h"
#include "controls/J4Slider.h"
#include "controls/Slider.h"

namespace {

struct Steps : testing::Test {
  Steps() {
    slider.setRange(0.0, 100.0);
    slider.setSteps(1.0, 10.0);
    slider.setValue(50.0);
    Hands::show(slider, {110, 22});
    QObject::connect(&slider, &Slider::valueAdjusted,
                     [this](AdjustCause cause) { causes.push_back(cause); });
  }
  // Whether the control took the key, so that the window does not see it.
  bool key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&slider, &event);
    return event.isAccepted();
  }

  Slider slider;
  std::vector<AdjustCause> causes;
};

TEST_F(Steps, KeysMoveIt) {
  const std::pair<Qt::Key, double> cases[] = {
      {Qt::Key_Up, 51.0},     {Qt::Key_Right, 51.0},    {Qt::Key_Down, 49.0}, {Qt::Key_Left, 49.0},
      {Qt::Key_PageUp, 60.0}, {Qt::Key_PageDown, 40.0}, {Qt::Key_Home, 0.0},  {Qt::Key_End, 100.0}};
  for (const auto& [pressed, value] : cases) {
    slider.setValue(50.0);
    EXPECT_TRUE(key(pressed));
    EXPECT_EQ(value, slider.value()) << pressed;
    EXPECT_EQ(AdjustCause::Key, causes.back());
  }
  EXPECT_EQ(8U, causes.size());
}

TEST_F(Steps, ArrowsWithShiftMoveItFurther) {
  slider.setValue(50.0);
  EXPECT_TRUE(key(Qt::Key_Right, Qt::ShiftModifier));
  EXPECT_EQ(60.0, slider.value());
  EXPECT_TRUE(key(Qt::Key_Down, Qt::ShiftModifier));
  EXPECT_EQ(50.0, slider.value());
}

TEST(PositionSteps, AreASecondAndTenSeconds) {
  J4Slider position;
  position.setRange(0.0, 1.0);
  position.setDuration(40.0);
  position.setValue(0.5);
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QCoreApplication::sendEvent(&position, &event);
    return position.value() * 40.0;
  };
  EXPECT_DOUBLE_EQ(press(Qt::Key_Right), 21.0);
  EXPECT_DOUBLE_EQ(press(Qt::Key_Left, Qt::ShiftModifier), 11.0);
  EXPECT_DOUBLE_EQ(press(Qt::Key_PageUp), 21.0);
  Hands::wheel(position, -120);
  EXPECT_DOUBLE_EQ(position.value() * 40.0, 20.0);
}

TEST_F(Steps, KeysStopAtTheEnds) {
  slider.setValue(95.0);
  key(Qt::Key_PageUp);
  EXPECT_EQ(100.0, slider.value());
  key(Qt::Key_Up);
  EXPECT_EQ(100.0, slider.value());
  slider.setValue(5.0);
  key(Qt::Key_PageDown);
  EXPECT_EQ(0.0, slider.value());
}

TEST_F(Steps, AreSharesOfTheRangeUnlessSet) {
  slider.setSteps(0.0, 0.0);
  slider.setRange(0.0, 500.0);
  key(Qt::Key_Up);
  EXPECT_EQ(55.0, slider.value());
  key(Qt::Key_PageUp);
  EXPECT_EQ(105.0, slider.value());
}

TEST_F(Steps, OtherKeysAreLeftToTheWindow) {
  for (const int other : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Tab, Qt::Key_A, Qt::Key_Escape}) {
    EXPECT_FALSE(key(other)) << other;
  }
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    EXPECT_FALSE(key(Qt::Key_Up, modifier));
  }
  EXPECT_TRUE(causes.empty());
}

TEST_F(Steps, AKeyShowsTheFocus) {
  QApplication::setActiveWindow(&slider);
  slider.setFocus(Qt::MouseFocusReason);
  EXPECT_FALSE(slider.showsFocus());
  key(Qt::Key_Up);
  EXPECT_TRUE(slider.showsFocus());
}

TEST_F(Steps, TheFocusComesBackAsItWas) {
  QApplication::setActiveWindow(&slider);
  slider.clearFocus();
  slider.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(slider.showsFocus());
  slider.clearFocus();
  slider.setFocus(Qt::ActiveWindowFocusReason);
  EXPECT_TRUE(slider.showsFocus());
  slider.clearFocus();
  EXPECT_FALSE(slider.showsFocus());
}

TEST_F(Steps, TheWheelMovesItByNotches) {
  Hands::wheel(slider, 120);
  EXPECT_EQ(51.0, slider.value());
  Hands::wheel(slider, -360);
  EXPECT_EQ(48.0, slider.value());
  Hands::wheel(slider, 120, Qt::ShiftModifier);
  EXPECT_EQ(58.0, slider.value());
  Hands::wheel(slider, -120, Qt::ControlModifier);
  EXPECT_EQ(48.0, slider.value());
  EXPECT_THAT(causes, testing::Each(AdjustCause::Wheel));
}

TEST_F(Steps, PartsOfANotchAddUp) {
  for (int i = 0; i < 7; ++i) Hands::wheel(slider, 15);
  EXPECT_EQ(50.0, slider.value());
  EXPECT_TRUE(causes.empty());
  Hands::wheel(slider, 15);
  EXPECT_EQ(51.0, slider.value());
  Hands::wheel(slider, -60);
  Hands::wheel(slider, -60);
  EXPECT_EQ(50.0, slider.value());
}

TEST_F(Steps, AWheelToTheSideIsNotForIt) {
  Hands::wheel(slider, 0);
  EXPECT_TRUE(causes.empty());
}

TEST(DialSteps, KeysAndWheelTurnIt) {
  DrawnDial dial;
  Hands::show(dial, {350, 350});
  dial.setEnable(true);
  dial.setNewAngle(45.6);
  QTest::keyClick(&dial, Qt::Key_Up);
  EXPECT_EQ(46.0, dial.angle());
  QTest::keyClick(&dial, Qt::Key_PageDown);
  EXPECT_EQ(36.0, dial.angle());
  QTest::keyClick(&dial, Qt::Key_End);
  EXPECT_EQ(150.0, dial.angle());
  QTest::keyClick(&dial, Qt::Key_Right);
  EXPECT_EQ(150.0, dial.angle());
  QTest::keyClick(&dial, Qt::Key_Home);
  EXPECT_EQ(0.0, dial.angle());
  EXPECT_EQ(315.0, dial.thumbPosition().y());
  Hands::wheel(dial, 240);
  EXPECT_EQ(2.0, dial.angle());
  Hands::wheel(dial, 120, Qt::ShiftModifier);
  EXPECT_EQ(12.0, dial.angle());
}

TEST(DialSteps, DisabledStaysWhereItIs) {
  DrawnDial dial;
  Hands::show(dial, {350, 350});
  QKeyEvent event(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
  QCoreApplication::sendEvent(&dial, &event);
  EXPECT_FALSE(event.isAccepted());
  Hands::wheel(dial, 120);
  EXPECT_EQ(0.0, dial.angle());
}

}  // namespace
