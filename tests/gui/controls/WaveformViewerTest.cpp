// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <cmath>

#include "Hands.h"
#include "controls/Colors.h"
#include "controls/WaveformPicture.h"
#include "controls/WaveformViewer.h"

namespace {

class Viewer : public testing::Test {
 protected:
  static constexpr double kInset = 9;

  Viewer() {
    Hands::show(viewer, {618, 64});  // 600 between the insets
    viewer.setLength(300);
    QObject::connect(&viewer, &WaveformViewer::valueAdjusted, &viewer,
                     [this](AdjustCause cause) { causes.push_back(cause); });
  }
  /// A ramp of Left, a steady Right, silence in the last quarter.
  void fill(float left = 1.0F, float right = 0.25F) {
    WaveformColumns made;
    made.from = viewer.stretch().from();
    made.to = viewer.stretch().to();
    const int count = viewer.columnsWanted();
    for (int i = 0; i < count; ++i) {
      const float share = static_cast<float>(i) / static_cast<float>(count);
      const bool isSilent = share >= 0.75F;
      made.columns.push_back({isSilent ? 0 : left * share, isSilent ? 0 : right, true});
    }
    viewer.setColumns(made);
  }
  void wheel(double x, int eighths, Qt::KeyboardModifiers modifiers = {}) {
    const QPointF at(x, 40);
    QWheelEvent event(at, viewer.mapToGlobal(at), {}, {0, eighths}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&viewer, &event);
  }
  /// Two fingers on a touchpad; 1 is twice as large.
  void pinch(double x, double value) {
    const QPointF at(x, 40);
    QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                              at, at, viewer.mapToGlobal(at), value, {});
    QApplication::sendEvent(&viewer, &event);
  }

  static void openAndCloseADialog() {
    QDialog dialog;
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    dialog.close();
  }

  WaveformViewer viewer;
  std::vector<AdjustCause> causes;
};

TEST_F(Viewer, EndsOfTheTakeStandWhereASlidersKnobDoes) {
  EXPECT_EQ(viewer.xOf(0), 9);
  EXPECT_EQ(viewer.xOf(300), 609);
  EXPECT_EQ(viewer.timeAt(309), 150);
  EXPECT_EQ(viewer.columnsWanted(), std::lround(600 * viewer.devicePixelRatioF()));
}

// Each pixel of the body by the rule in words: the root of the magnitude, up for Left.
TEST_F(Viewer, PaintsWhatTheColumnsSay) {
  fill();
  viewer.setPosition(150);
  const QImage image = Hands::picture(viewer, 1.0);
  const QRectF body = viewer.body();
  const double middle = body.top() + std::floor(body.height() / 2);
  const double up = middle - body.top();
  const double down = body.bottom() - middle;
  int checked = 0;
  for (int i = 3; i < 597; ++i) {
    const double x = kInset + i;
    if (std::abs(x - viewer.xOf(150)) < 3) continue;  // the play head
    const double share = i / 600.0;
    const QColor wave = x < viewer.xOf(150) ? Colors::wavePlayed() : Colors::waveAhead();
    const double left = share < 0.75 ? std::sqrt(share) * up : 0;
    const double right = share < 0.75 ? 0.5 * down : 1;
    for (double y = body.top(); y < body.bottom(); ++y) {
      const double above = middle - y - 0.5;
      const bool isNearAnEdge = std::abs(above - left) < 1.6 || std::abs(-above - right) < 1.6;
      if (isNearAnEdge || std::abs(above) < 1) continue;
      const bool isWave = above > 0 ? above < left : -above < right;
      const QColor painted = Hands::colorAt(image, {x + 0.5, y + 0.5});
      ASSERT_EQ(painted.name(), (isWave ? wave : Colors::AppBG()).name()) << x << " " << y;
      ++checked;
    }
  }
  EXPECT_GT(checked, 15'000);
}

TEST_F(Viewer, OverFullScaleIsRed) {
  fill(1.0F, 1.001F);
  viewer.setPosition(100);
  const QImage image = Hands::picture(viewer, 1.0);
  EXPECT_EQ(Hands::colorAt(image, {50.5, 50.5}).name(), Colors::over().name());
  EXPECT_EQ(Hands::colorAt(image, {300.5, 50.5}).name(), Colors::overAhead().name());
  EXPECT_EQ(Hands::colorAt(image, {300.5, 30.5}).name(), Colors::waveAhead().name())
      << "only Right";
  fill(1.0F, 1.0F);
  const QImage full = Hands::picture(viewer, 1.0);
  EXPECT_EQ(Hands::colorAt(full, {300.5, 50.5}).name(), Colors::waveAhead().name());
}

TEST_F(Viewer, HeightsAreRootsUpToFullScale) {
  EXPECT_EQ(WaveformPicture::share(0), 0);
  EXPECT_EQ(WaveformPicture::share(0.25F), 0.5);
  EXPECT_EQ(WaveformPicture::share(4), 1);
  EXPECT_EQ(WaveformPicture::share(std::nanf("")), 0);
}

TEST_F(Viewer, WhatIsNotKnownIsALine) {
  WaveformColumns half;
  half.to = 300;
  half.columns.assign(600, {});
  for (int i = 0; i < 300; ++i) half.columns[static_cast<std::size_t>(i)] = {0.5F, 0.5F, true};
  viewer.setColumns(half);
  const QImage image = Hands::picture(viewer, 1.0);
  EXPECT_EQ(Hands::colorAt(image, {200.5, 30.5}).name(), Colors::waveAhead().name());
  EXPECT_EQ(Hands::colorAt(image, {500.5, 30.5}).name(), Colors::AppBG().name());
}

TEST_F(Viewer, PressAndDragMoveTheHead) {
  Hands::press(viewer, {309, 40});
  EXPECT_TRUE(viewer.isHeld());
  EXPECT_EQ(viewer.position(), 150);
  Hands::move(viewer, {409, 40});
  EXPECT_EQ(viewer.position(), 200);
  Hands::move(viewer, {2000, 40});
  Hands::release(viewer, {2000, 40});
  EXPECT_FALSE(viewer.isHeld());
  EXPECT_EQ(viewer.position(), 300);
  EXPECT_THAT(causes, testing::ElementsAre(AdjustCause::Press, AdjustCause::Drag, AdjustCause::Drag,
                                           AdjustCause::Release));
  Hands::press(viewer, {309, 40}, Qt::RightButton);
  EXPECT_EQ(viewer.position(), 300);
}

TEST_F(Viewer, ReleaseThatADialogKeepsAwayIsMadeUpFor) {
  Hands::press(viewer, {309, 40});
  Hands::move(viewer, {409, 40});
  openAndCloseADialog();
  EXPECT_FALSE(viewer.isHeld());
  EXPECT_THAT(causes,
              testing::ElementsAre(AdjustCause::Press, AdjustCause::Drag, AdjustCause::Release));
  Hands::hover(viewer, {509, 40});
  EXPECT_EQ(viewer.position(), 200) << "nobody holds it any more";
}

TEST_F(Viewer, StretchThatADialogBreaksOffIsWhatWasDrawn) {
  const QSignalSpy marked(&viewer, &WaveformViewer::stretchMarked);
  Hands::press(viewer, {109, 4});
  Hands::move(viewer, {209, 4});
  openAndCloseADialog();
  ASSERT_EQ(marked.count(), 1);
  EXPECT_EQ(marked[0][0].toDouble(), 50);
  EXPECT_EQ(marked[0][1].toDouble(), 100);
  Hands::hover(viewer, {309, 4});
  Hands::release(viewer, {309, 4});
  EXPECT_EQ(marked.count(), 1);
}

TEST_F(Viewer, PointerReadsTimeAndLevel) {
  EXPECT_TRUE(viewer.reading().isEmpty());
  fill(1.0F, 0.1F);
  QTest::mouseMove(&viewer, {159, 40});
  Hands::move(viewer, {159, 40});
  const QStringList read = viewer.reading();
  ASSERT_EQ(read.size(), 3);
  EXPECT_EQ(read[0], "01:15.0");
  EXPECT_TRUE(read[1].startsWith("L −12.")) << "a quarter: " << read[1].toStdString();
  EXPECT_EQ(read[2], "R −20.0");
  Hands::move(viewer, {559, 40});
  EXPECT_EQ(viewer.reading()[1], "L –");
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&viewer, &leave);
  EXPECT_TRUE(viewer.reading().isEmpty());
}

TEST_F(Viewer, WheelZoomsAroundThePointer) {
  const QSignalSpy stretches(&viewer, &WaveformViewer::stretchChanged);
  wheel(209, 120);
  EXPECT_NEAR(viewer.timeAt(209), 100, 1e-9);
  EXPECT_LT(viewer.stretch().to() - viewer.stretch().from(), 300);
  EXPECT_EQ(stretches.count(), 1);
  for (int i = 0; i < 50; ++i) wheel(209, 120);
  EXPECT_NEAR(viewer.stretch().to() - viewer.stretch().from(), 0.6, 1e-9);
  EXPECT_NEAR(viewer.timeAt(209), 100, 1e-6);
  const double from = viewer.stretch().from();
  wheel(209, -120, Qt::ShiftModifier);
  EXPECT_GT(viewer.stretch().from(), from) << "Shift scrolls";
  Hands::doubleClick(viewer, {209, 40});
  EXPECT_TRUE(viewer.stretch().isWhole());
  wheel(209, -120);
  EXPECT_TRUE(viewer.stretch().isWhole());
}

TEST_F(Viewer, PinchZoomsAroundItsPlace) {
  pinch(209, 1);
  EXPECT_NEAR(viewer.stretch().to() - viewer.stretch().from(), 150, 1e-9) << "twice as large";
  EXPECT_NEAR(viewer.timeAt(209), 100, 1e-9);
  pinch(409, 1);
  EXPECT_NEAR(viewer.stretch().to() - viewer.stretch().from(), 75, 1e-9);
  EXPECT_NEAR(viewer.timeAt(409), 150, 1e-9);
  pinch(209, -0.5);
  EXPECT_NEAR(viewer.stretch().to() - viewer.stretch().from(), 150, 1e-9) << "half as large";
  viewer.setEnabled(false);
  pinch(209, 1);
  EXPECT_NEAR(viewer.stretch().to() - viewer.stretch().from(), 150, 1e-9);
}

TEST_F(Viewer, FollowsTheHeadWhileZoomed) {
  for (int i = 0; i < 6; ++i) wheel(9, 120);
  const double end = viewer.stretch().to();
  viewer.setPosition(end - 0.1);
  EXPECT_EQ(viewer.stretch().to(), end);
  viewer.setPosition(end + 0.1);
  EXPECT_TRUE(viewer.stretch().holds(end + 0.1));
  EXPECT_GT(viewer.stretch().to(), end);
}

TEST_F(Viewer, KeysMoveTheHead) {
  viewer.setPosition(100);
  QTest::keyClick(&viewer, Qt::Key_Right);
  EXPECT_EQ(viewer.position(), 101);
  QTest::keyClick(&viewer, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(viewer.position(), 91);
  QTest::keyClick(&viewer, Qt::Key_PageUp);
  EXPECT_EQ(viewer.position(), 101);
  QTest::keyClick(&viewer, Qt::Key_Home);
  EXPECT_EQ(viewer.position(), 0);
  QTest::keyClick(&viewer, Qt::Key_End);
  EXPECT_EQ(viewer.position(), 300);
  EXPECT_EQ(causes.size(), 5U);
  QTest::keyClick(&viewer, Qt::Key_Left, Qt::ControlModifier);
  QTest::keyClick(&viewer, Qt::Key_Up);
  EXPECT_EQ(viewer.position(), 300) << "left to the window";
  QTest::keyClick(&viewer, Qt::Key_Plus);
  EXPECT_FALSE(viewer.stretch().isWhole());
  QTest::keyClick(&viewer, Qt::Key_Minus);
  EXPECT_TRUE(viewer.stretch().isWhole());
}

TEST_F(Viewer, ReadsAsASliderOfTime) {
  QAccessibleInterface* const read = QAccessible::queryAccessibleInterface(&viewer);
  ASSERT_NE(read, nullptr);
  viewer.setPosition(102.9);
  EXPECT_EQ(read->role(), QAccessible::Slider);
  EXPECT_EQ(read->text(QAccessible::Name), "Waveform");
  EXPECT_EQ(read->text(QAccessible::Value), "00:01:42");
  read->valueInterface()->setCurrentValue(30.5);
  EXPECT_EQ(viewer.position(), 30.5);
  EXPECT_THAT(causes, testing::ElementsAre(AdjustCause::Assistive));
}

TEST_F(Viewer, WithoutATakeTakesNoInput) {
  viewer.setLength(0);
  Hands::press(viewer, {309, 40});
  QTest::keyClick(&viewer, Qt::Key_End);
  wheel(309, 120);
  EXPECT_TRUE(causes.empty());
  EXPECT_FALSE(viewer.isHeld());
}

TEST_F(Viewer, NewTakeStartsAtItsBeginning) {
  wheel(209, 120);
  viewer.setPosition(20);
  viewer.setLength(60);
  EXPECT_TRUE(viewer.stretch().isWhole());
  EXPECT_EQ(viewer.position(), 0);
  EXPECT_TRUE(viewer.columns().columns.empty());
}

}  // namespace
