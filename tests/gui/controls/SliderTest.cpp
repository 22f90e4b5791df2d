// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QDialog>
#include <QTest>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "Hands.h"
#include "controls/J4GainSlider.h"
#include "controls/J4Slider.h"
#include "controls/J4SliderCell.h"

namespace {

using testing::ElementsAre;
using enum AdjustCause;

struct Recorder {
  explicit Recorder(Slider& slider) {
    QObject::connect(&slider, &Slider::valueAdjusted, [this, &slider](AdjustCause cause) {
      causes.push_back(cause);
      values.push_back(slider.value());
    });
  }
  std::vector<AdjustCause> causes;
  std::vector<double> values;
};

// 110 wide: the knob's centre goes from 9 to 101.
struct PositionSlider : testing::Test {
  PositionSlider() { Hands::show(slider, {110, 22}); }
  static QPointF at(double fraction) { return {9.0 + 92.0 * fraction, 9.0}; }

  J4Slider slider;
  Recorder heard{slider};
};

TEST_F(PositionSlider, StartsAtZeroOfOne) {
  EXPECT_EQ(0.0, slider.value());
  EXPECT_EQ(0.0, slider.minimum());
  EXPECT_EQ(1.0, slider.maximum());
  EXPECT_FALSE(slider.isSeeking());
  EXPECT_EQ(Qt::StrongFocus, slider.focusPolicy());
}

TEST_F(PositionSlider, ReleaseIsWhereTheHandWasWhateverCameBetween) {
  QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5).toPoint());
  const double held = slider.value();
  slider.setValue(0.0);
  QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.5).toPoint());
  EXPECT_EQ(held, slider.value());
  EXPECT_THAT(heard.causes, ElementsAre(Press, Release));
}

TEST_F(PositionSlider, ReleaseThatADialogKeepsAwayIsMadeUpFor) {
  QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5).toPoint());
  const double held = slider.value();
  QDialog dialog;
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.show();
  EXPECT_THAT(heard.causes, ElementsAre(Press, Release));
  EXPECT_EQ(held, slider.value());
  dialog.close();
  QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.9).toPoint());
  EXPECT_EQ(2U, heard.causes.size()) << "it is over";
}

TEST_F(PositionSlider, ClampsToItsRange) {
  slider.setValue(7.0);
  EXPECT_EQ(1.0, slider.value());
  slider.setValue(-7.0);
  EXPECT_EQ(0.0, slider.value());
  slider.setRange(10.0, 20.0);
  EXPECT_EQ(10.0, slider.value());
  slider.setRange(30.0, 20.0);
  EXPECT_EQ(30.0, slider.value());
  EXPECT_EQ(30.0, slider.maximum());
  EXPECT_EQ(0.0, slider.fraction());
}

TEST_F(PositionSlider, IgnoresWhatIsNotANumber) {
  slider.setValue(0.25);
  slider.setValue(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(0.25, slider.value());
}

TEST_F(PositionSlider, SettingAValueReportsNothing) {
  slider.setValue(0.5);
  EXPECT_TRUE(heard.causes.empty());
  EXPECT_FALSE(slider.isSeeking());
}

TEST_F(PositionSlider, ADragReportsPressMovesAndRelease) {
  Hands::press(slider, at(0.25));
  EXPECT_TRUE(slider.isSeeking());
  Hands::move(slider, at(0.5));
  Hands::move(slider, at(0.5));
  Hands::move(slider, at(0.75));
  Hands::release(slider, at(0.75));
  EXPECT_THAT(heard.causes, ElementsAre(Press, Drag, Drag, Drag, Release));
  EXPECT_THAT(heard.values, ElementsAre(0.25, 0.5, 0.5, 0.75, 0.75));
}

TEST_F(PositionSlider, OnlyTheOwnerEndsSeeking) {
  Hands::click(slider, at(0.25));
  EXPECT_TRUE(slider.isSeeking());
  slider.setIsSeeking(false);
  EXPECT_FALSE(slider.isSeeking());
}

TEST_F(PositionSlider, APressOnTheKnobMovesNothing) {
  slider.setValue(0.5);
  Hands::press(slider, at(0.5) + QPointF(6.0, 3.0));
  EXPECT_EQ(0.5, slider.value());
  Hands::move(slider, at(0.75) + QPointF(6.0, 3.0));
  EXPECT_DOUBLE_EQ(0.75, slider.value());
}

TEST_F(PositionSlider, DragsBeyondTheEndsStopThere) {
  Hands::press(slider, at(0.5));
  Hands::move(slider, {-1000.0, 9.0});
  EXPECT_EQ(0.0, slider.value());
  Hands::move(slider, {1000.0, 500.0});
  EXPECT_EQ(1.0, slider.value());
}

TEST_F(PositionSlider, EveryPixelGivesItsValue) {
  for (int x = 0; x < 110; ++x) {
    // Far from the knob, which would be taken hold of.
    slider.setValue(x < 55 ? 1.0 : 0.0);
    Hands::press(slider, QPointF(x, 11.0));
    const double expected = std::min(std::max((x - 9.0) / 92.0, 0.0), 1.0);
    ASSERT_NEAR(expected, slider.value(), 1e-12) << x;
    Hands::release(slider, QPointF(x, 11.0));
  }
}

TEST_F(PositionSlider, OtherButtonsDoNothing) {
  Hands::press(slider, at(0.5), Qt::RightButton);
  Hands::release(slider, at(0.5), Qt::RightButton);
  EXPECT_TRUE(heard.causes.empty());
  EXPECT_FALSE(slider.isSeeking());
}

TEST_F(PositionSlider, DisablingEndsTheDrag) {
  Hands::press(slider, at(0.5));
  slider.setEnabled(false);
  slider.setEnabled(true);
  Hands::move(slider, at(0.75));
  Hands::release(slider, at(0.75));
  EXPECT_THAT(heard.causes, ElementsAre(Press));
  EXPECT_EQ(0.5, slider.value());
}

TEST_F(PositionSlider, DisabledTakesNoEvents) {
  slider.setEnabled(false);
  Hands::click(slider, at(0.5));
  QTest::keyClick(&slider, Qt::Key_End);
  Hands::wheel(slider, 120);
  EXPECT_TRUE(heard.causes.empty());
  EXPECT_EQ(0.0, slider.value());
}

TEST_F(PositionSlider, TheWindowSystemsMouseDrags) {
  QTest::mousePress(slider.windowHandle(), Qt::LeftButton, {}, at(0.25).toPoint());
  QTest::mouseMove(slider.windowHandle(), at(0.75).toPoint());
  QTest::mouseRelease(slider.windowHandle(), Qt::LeftButton, {}, at(0.75).toPoint());
  ASSERT_EQ(3U, heard.causes.size());
  EXPECT_EQ(Release, heard.causes.back());
  EXPECT_NEAR(0.75, slider.value(), 1.0 / 92.0);
}

TEST_F(PositionSlider, KeysAreNoSeekByMouse) {
  QTest::keyClick(&slider, Qt::Key_Right);
  EXPECT_FALSE(slider.isSeeking());
  EXPECT_THAT(heard.causes, ElementsAre(Key));
  EXPECT_DOUBLE_EQ(0.01, slider.value());
}

TEST(AdjustCause, SomeEndAMovement) {
  EXPECT_FALSE(isFinal(Press));
  EXPECT_FALSE(isFinal(Drag));
  for (const AdjustCause cause : {Release, Key, Wheel, Assistive}) EXPECT_TRUE(isFinal(cause));
}

struct Owner : J4GainSliderParent {
  void sliderGainValueChanged(J4GainSlider* slider) override {
    from = slider;
    values.push_back(slider->value());
  }
  const QWidget* from = nullptr;
  std::vector<double> values;
};

// 281 high: the knob's centre goes from 272 up to 9.
struct GainSlider : testing::Test {
  GainSlider() {
    slider.cell()->setIsVertical(true);
    slider.setRange(-36.0, 36.0);
    slider.setGainParent(owner);
    Hands::show(slider, {22, 281});
  }
  static QPointF at(double gain) { return {11.0, 272.0 - 263.0 * (gain + 36.0) / 72.0}; }

  std::shared_ptr<Owner> owner = std::make_shared<Owner>();
  J4GainSlider slider;
  Recorder heard{slider};
};

TEST_F(GainSlider, StartsInTheMiddleWithResetToZero) {
  EXPECT_EQ(0.0, slider.value());
  EXPECT_EQ(0.0, slider.valueForDoubleClick());
}

TEST_F(GainSlider, RisesUpward) {
  Hands::press(slider, at(24.0));
  EXPECT_NEAR(24.0, slider.value(), 1e-9);
  Hands::move(slider, at(-30.0));
  EXPECT_NEAR(-30.0, slider.value(), 1e-9);
}

TEST_F(GainSlider, ASingleClickIsAnyClick) {
  Hands::click(slider, at(24.0));
  EXPECT_THAT(heard.causes, ElementsAre(Press, Release));
  EXPECT_TRUE(owner->values.empty());
}

TEST_F(GainSlider, ADoubleClickResetsAndTellsTheOwnerOnce) {
  Hands::doubleClick(slider, at(24.0));
  EXPECT_EQ(0.0, slider.value());
  EXPECT_THAT(owner->values, ElementsAre(0.0));
  EXPECT_EQ(&slider, owner->from);
  EXPECT_THAT(heard.causes, ElementsAre(Press, Release));
}

TEST_F(GainSlider, TheWindowSystemsDoubleClickResets) {
  slider.setValue(12.0);
  QTest::mouseDClick(slider.windowHandle(), Qt::LeftButton, {}, at(12.0).toPoint());
  EXPECT_EQ(0.0, slider.value());
  EXPECT_THAT(owner->values, ElementsAre(0.0));
}

TEST_F(GainSlider, MovingAfterADoubleClickDragsNothing) {
  Hands::click(slider, at(24.0));
  Hands::secondPress(slider, at(24.0));
  Hands::move(slider, at(10.0));
  Hands::release(slider, at(10.0));
  EXPECT_EQ(0.0, slider.value());
}

TEST_F(GainSlider, ResetsToTheValueSet) {
  slider.setValueForDoubleClick(-6.0);
  Hands::doubleClick(slider, at(24.0));
  EXPECT_EQ(-6.0, slider.value());
  EXPECT_THAT(owner->values, ElementsAre(-6.0));
}

TEST_F(GainSlider, WithoutAnOwnerItStillResets) {
  owner.reset();
  Hands::doubleClick(slider, at(24.0));
  EXPECT_EQ(0.0, slider.value());
}

TEST_F(GainSlider, IntegersAreTruncatedTowardZero) {
  const std::pair<double, int> cases[] = {{5.9, 5}, {-5.9, -5}, {0.9, 0}, {-0.9, 0}, {6.0, 6}};
  for (const auto& [value, integer] : cases) {
    slider.setValue(value);
    EXPECT_EQ(integer, slider.integerValue());
  }
}

TEST_F(GainSlider, StepsStartFromWhatIsRead) {
  slider.setValue(5.9);
  QTest::keyClick(&slider, Qt::Key_Up);
  EXPECT_EQ(6.0, slider.value());
  QTest::keyClick(&slider, Qt::Key_PageUp);
  EXPECT_EQ(12.0, slider.value());
}

TEST_F(GainSlider, SaysItsValueInDecibels) {
  slider.setValue(6.0);
  EXPECT_EQ("+6 dB", slider.valueText());
  slider.setValue(0.0);
  EXPECT_EQ("0 dB", slider.valueText());
  slider.setValue(-36.0);
  EXPECT_EQ("-36 dB", slider.valueText());
}

}  // namespace
