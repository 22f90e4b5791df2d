// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <vector>

#include "Drawn.h"
#include "Hands.h"
#include "controls/AngleViewer.h"

namespace {

constexpr int kSide = 350;
constexpr double kRadius = 140.0;
constexpr double kThumb = 17.5;
constexpr double kStart = 75.0;

struct Count : AngleViewerDelegate {
  void angleViewer(AngleViewer* /*dial*/, double angleChanged) override {
    angles.push_back(angleChanged);
  }
  std::vector<double> angles;
};

struct AngleViewerMouse : testing::Test {
  AngleViewerMouse() {
    Hands::show(dial, {kSide, kSide});
    dial.setEnable(true);
    dial.setNewAngle(kStart);
    dial.setDelegate(count);
  }

  // On the arc, y downward as the events count it.
  static QPointF at(double angle, double radius = kRadius) {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0;
    return {kSide / 2.0 + radius * std::cos(t), kSide / 2.0 - radius * std::sin(t)};
  }
  [[nodiscard]] QRectF label(std::size_t index) const {
    const QRectF f = dial.angleTextList()[index].frame();
    return {f.x(), kSide - f.y() - f.height(), f.width(), f.height()};
  }
  // The label that a pixel selects, first in the list.
  [[nodiscard]] std::optional<double> labelAt(int x, int y) const {
    for (std::size_t i = 0; i < dial.angleTextList().size(); ++i) {
      const QRectF text = label(i);
      const bool isIn = x >= text.left() - 10.0 && x < text.right() && y >= text.top() &&
                        y < text.bottom() + 10.0;
      if (isIn) return dial.angleTextList()[i].angle();
    }
    return std::nullopt;
  }
  // The angle that a click on the dial gives: the share of a turn from the top, leftward.
  static double angleAt(int x, int y) {
    const double left = kSide / 2.0 - x;
    const double up = kSide / 2.0 - y;
    const double angle = std::atan2(left, up) * 180.0 / std::numbers::pi;
    // The centre itself has no direction.
    const bool isOnDial =
        left >= 0.0 && (left > 0.0 || up != 0.0) && angle >= 0.0 && angle <= 150.0;
    return isOnDial ? angle : kStart;
  }

  std::shared_ptr<Count> count = std::make_shared<Count>();
  DrawnDial dial;
};

TEST_F(AngleViewerMouse, EveryPixelDoesWhatLiesUnderIt) {
  const QPointF thumb = at(kStart);
  int labelPixels = 0;
  int wrong = 0;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      dial.setNewAngle(kStart);
      Hands::click(dial, QPointF(x, y));
      const bool isOnThumb = x >= thumb.x() - kThumb / 2 && x < thumb.x() + kThumb / 2 &&
                             y >= thumb.y() - kThumb / 2 && y < thumb.y() + kThumb / 2;
      const auto title = isOnThumb ? std::nullopt : labelAt(x, y);
      labelPixels += title.has_value() ? 1 : 0;
      wrong += std::abs(title.value_or(angleAt(x, y)) - dial.angle()) > 1e-9 ? 1 : 0;
    }
  }
  EXPECT_EQ(0, wrong);
  EXPECT_LT(2000, labelPixels);
}

TEST_F(AngleViewerMouse, EveryPixelOfTheThumbTakesHold) {
  int wrong = 0;
  const QPointF thumb = at(kStart);
  for (int y = 80; y < 220; ++y) {
    for (int x = 0; x < 120; ++x) {
      dial.setNewAngle(kStart);
      Hands::press(dial, QPointF(x, y));
      const double before = dial.angle();
      Hands::move(dial, at(20.0));
      Hands::release(dial, at(20.0));
      const bool isOnThumb = x >= thumb.x() - kThumb / 2 && x < thumb.x() + kThumb / 2 &&
                             y >= thumb.y() - kThumb / 2 && y < thumb.y() + kThumb / 2;
      const bool didMoveFromStart = isOnThumb && std::abs(dial.angle() - 20.0) < 1e-9;
      // A press elsewhere ends as a click where the button comes up, unless it hit a label.
      const double expected = before != kStart || labelAt(x, y) ? before : 20.0;
      wrong += didMoveFromStart || std::abs(dial.angle() - expected) < 1e-9 ? 0 : 1;
    }
  }
  EXPECT_EQ(0, wrong);
}

TEST_F(AngleViewerMouse, DraggingFollowsThePointerInAnyDistance) {
  Hands::press(dial, at(kStart));
  for (const double angle : {60.0, 33.3, 0.0, 149.5}) {
    Hands::move(dial, at(angle, 33.0));
    EXPECT_NEAR(angle, dial.angle(), 1e-9);
    EXPECT_NEAR(at(angle).x(), dial.thumbPosition().x(), 1e-9);
    EXPECT_NEAR(kSide - at(angle).y(), dial.thumbPosition().y(), 1e-9);
  }
  Hands::release(dial, at(10.0));
  EXPECT_NEAR(149.5, dial.angle(), 1e-9);
}

TEST_F(AngleViewerMouse, DraggingStopsAtTheEnds) {
  Hands::press(dial, at(kStart));
  Hands::move(dial, {kSide - 10.0, 20.0});
  EXPECT_EQ(0.0, dial.angle());
  Hands::move(dial, {kSide - 10.0, kSide - 20.0});
  EXPECT_EQ(150.0, dial.angle());
  Hands::move(dial, {-500.0, kSide / 2.0});
  EXPECT_EQ(90.0, dial.angle());
  EXPECT_EQ(3U, count->angles.size());
}

TEST_F(AngleViewerMouse, MovingWithoutTheThumbDoesNothing) {
  Hands::press(dial, at(120.0, 60.0));
  Hands::move(dial, at(10.0));
  EXPECT_EQ(kStart, dial.angle());
  EXPECT_TRUE(count->angles.empty());
}

TEST_F(AngleViewerMouse, ClicksOutsideTheArcChangeNothing) {
  for (const QPointF outside : {QPointF(kSide - 20.0, 20.0), QPointF(kSide - 20.0, kSide - 20.0),
                                QPointF(kSide / 2.0 - 5.0, kSide - 5.0)}) {
    Hands::click(dial, outside);
    EXPECT_EQ(kStart, dial.angle());
  }
}

TEST_F(AngleViewerMouse, AClickStraightAboveTheCentreIsMono) {
  Hands::click(dial, {kSide / 2.0, kSide / 2.0 - 50.0});
  EXPECT_EQ(0.0, dial.angle());
}

TEST_F(AngleViewerMouse, AReleaseOutsideTheViewIsNoClick) {
  Hands::press(dial, at(100.0, 60.0));
  Hands::release(dial, {-1.0, kSide / 2.0});
  EXPECT_EQ(kStart, dial.angle());
}

TEST_F(AngleViewerMouse, ALabelActsOnThePressAlone) {
  const QPointF ninety = label(3).center();
  Hands::press(dial, ninety);
  EXPECT_EQ(90.0, dial.angle());
  Hands::move(dial, at(10.0));
  Hands::release(dial, at(10.0));
  EXPECT_EQ(90.0, dial.angle());
  EXPECT_THAT(count->angles, testing::ElementsAre(90.0));
}

TEST_F(AngleViewerMouse, LabelsReachLeftAndDownOnly) {
  const QRectF text = label(1);
  Hands::press(dial, {text.left() - 5.0, text.center().y()});
  EXPECT_EQ(30.0, dial.angle());
  dial.setNewAngle(kStart);
  Hands::press(dial, {text.right() + 5.0, text.center().y()});
  EXPECT_EQ(kStart, dial.angle());
  Hands::press(dial, {text.center().x(), text.top() - 5.0});
  EXPECT_EQ(kStart, dial.angle());
  Hands::press(dial, {text.center().x(), text.bottom() + 5.0});
  EXPECT_EQ(30.0, dial.angle());
}

TEST_F(AngleViewerMouse, ADoubleClickOnTheArcCountsOnce) {
  Hands::click(dial, at(100.0, 60.0));
  ASSERT_NEAR(100.0, dial.angle(), 1e-9);
  Hands::secondPress(dial, at(40.0, 60.0));
  Hands::release(dial, at(40.0, 60.0));
  EXPECT_NEAR(100.0, dial.angle(), 1e-9);
}

TEST_F(AngleViewerMouse, TheWindowSystemsDoubleClickCountsOnce) {
  QTest::mouseDClick(dial.windowHandle(), Qt::LeftButton, {}, at(100.0, 60.0).toPoint());
  EXPECT_EQ(1U, count->angles.size());
  EXPECT_NEAR(100.0, dial.angle(), 1.0);
}

TEST_F(AngleViewerMouse, TheWindowSystemsDragMovesIt) {
  QTest::mousePress(dial.windowHandle(), Qt::LeftButton, {}, at(kStart).toPoint());
  QTest::mouseMove(dial.windowHandle(), at(40.0).toPoint());
  EXPECT_NEAR(40.0, dial.angle(), 0.5);
  QTest::mouseRelease(dial.windowHandle(), Qt::LeftButton, {}, at(40.0).toPoint());
  EXPECT_NEAR(40.0, dial.angle(), 0.5);
}

TEST_F(AngleViewerMouse, OtherButtonsDoNothing) {
  Hands::press(dial, at(100.0, 60.0), Qt::RightButton);
  Hands::release(dial, at(100.0, 60.0), Qt::RightButton);
  EXPECT_EQ(kStart, dial.angle());
}

TEST_F(AngleViewerMouse, DisabledIgnoresPresses) {
  dial.setEnable(false);
  Hands::click(dial, at(100.0, 60.0));
  Hands::click(dial, label(2).center());
  Hands::press(dial, at(kStart));
  Hands::move(dial, at(20.0));
  Hands::release(dial, at(20.0));
  EXPECT_EQ(kStart, dial.angle());
  EXPECT_TRUE(count->angles.empty());
}

TEST_F(AngleViewerMouse, ADialogThatKeepsTheReleaseAwayEndsTheDrag) {
  Hands::press(dial, at(kStart));
  Hands::move(dial, at(60.0));
  QDialog dialog;
  dialog.setWindowModality(Qt::ApplicationModal);
  dialog.show();
  dialog.close();
  Hands::hover(dial, at(20.0));
  EXPECT_NEAR(60.0, dial.angle(), 1e-9);
}

TEST_F(AngleViewerMouse, DisablingEndsTheDrag) {
  Hands::press(dial, at(kStart));
  Hands::move(dial, at(60.0));
  dial.setEnable(false);
  Hands::move(dial, at(40.0));
  EXPECT_NEAR(60.0, dial.angle(), 1e-9) << "it takes no input";
  Hands::release(dial, at(40.0));
  dial.setEnable(true);
  Hands::hover(dial, at(20.0));
  EXPECT_NEAR(60.0, dial.angle(), 1e-9) << "nobody holds it any more";
}

TEST(AngleViewer, ItsLabelsAreNowhereBeforeTheFirstDrawing) {
  DrawnDial dial;
  dial.setEnable(true);
  dial.resize(350, 350);
  for (int y = -20; y < 350; ++y) dial.detectClickTitle(QPointF(0.0, y));
  EXPECT_EQ(0.0, dial.angle());
}

TEST_F(AngleViewerMouse, TellsTheDegreeThatThePointerIsAt) {
  int told = 0;
  QObject::connect(&dial, &AngleViewer::pointedChanged, &dial, [&] { ++told; });
  EXPECT_EQ(dial.pointedAngle(), std::nullopt);
  Hands::move(dial, at(100.5));
  EXPECT_EQ(dial.pointedAngle(), 100);
  Hands::move(dial, at(100.7, kRadius + 12));
  EXPECT_EQ(told, 1) << "the same degree";
  Hands::move(dial, at(20.5, kRadius - 12));
  EXPECT_EQ(dial.pointedAngle(), 20);
  Hands::move(dial, label(2).center());
  EXPECT_EQ(dial.pointedAngle(), 60);
  for (const QPointF elsewhere : {at(20.5, kRadius - 20), at(170), at(-10), at(90, 10)}) {
    Hands::move(dial, elsewhere);
    EXPECT_EQ(dial.pointedAngle(), std::nullopt);
  }
  Hands::move(dial, at(20.5));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&dial, &leave);
  EXPECT_EQ(dial.pointedAngle(), std::nullopt);
  Hands::move(dial, at(20.5));
  dial.setEnable(false);
  EXPECT_EQ(dial.pointedAngle(), std::nullopt);
  Hands::move(dial, at(40.5));
  EXPECT_EQ(dial.pointedAngle(), std::nullopt);
}

TEST_F(AngleViewerMouse, WhileItIsDraggedThePointerIsAtItsAngle) {
  int turns = 0;
  double atTurn = 0;
  QObject::connect(&dial, &AngleViewer::turned, &dial, [&] {
    ++turns;
    atTurn = dial.angle();
  });
  Hands::press(dial, at(kStart));
  Hands::move(dial, at(100.5, 60));
  EXPECT_EQ(turns, 1);
  EXPECT_EQ(atTurn, dial.angle()) << "it is stored by then";
  EXPECT_EQ(dial.pointedAngle(), 100) << "wherever it is";
  Hands::release(dial, at(100.5, 60));
  EXPECT_EQ(dial.pointedAngle(), std::nullopt);
  dial.setNewAngle(dial.angle());
  EXPECT_EQ(turns, 1) << "the same angle is no turn";
}

}  // namespace
