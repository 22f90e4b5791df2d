// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Peaks, scope, correlation and figures: their rules, their pixels, and how they are read.

#include <gmock/gmock.h>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "Hands.h"
#include "controls/ClipLamp.h"
#include "controls/Colors.h"
#include "controls/CorrelationBar.h"
#include "controls/FigureLine.h"
#include "controls/PeakHold.h"
#include "controls/StereoScope.h"

namespace {

QAccessibleInterface& interfaceOf(QObject& object) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&object);
  if (interface == nullptr) qFatal("a control has no accessible interface");
  return *interface;
}

// Frames whose points lie all over a scope of so many pixels.
std::vector<float> everywhere(int side) {
  std::vector<float> frames;
  for (int i = 0; i < side * side; ++i) {
    const int row = i / side;
    const int column = i % side;
    const double x = (2.0 * column + 1) / side - 1;
    const double y = (2.0 * row + 1) / side - 1;
    const double length = 2 * std::hypot(x, y);  // by the root, and turned by an eighth
    for (int again = 0; again < 3; ++again) {
      frames.push_back(static_cast<float>((y - x) * length / 2));
      frames.push_back(static_cast<float>((y + x) * length / 2));
    }
  }
  return frames;
}

TEST(PeakHold, KeepsTheGreatest) {
  PeakHold peak;
  EXPECT_EQ(peak.text(), "–");
  peak.add(0.5);
  peak.add(0.25);
  peak.add(std::nan(""));
  EXPECT_EQ(peak.text(), "-6.0");
  EXPECT_FALSE(peak.isOver());
  peak.add(1.0);
  EXPECT_EQ(peak.text(), "0.0");
  EXPECT_FALSE(peak.isOver()) << "full scale fits";
  peak.add(1.023);
  EXPECT_EQ(peak.text(), "+0.2");
  EXPECT_TRUE(peak.isOver());
  peak.add(std::numeric_limits<double>::infinity());
  EXPECT_EQ(peak.text(), "∞");
  peak.clear();
  EXPECT_EQ(peak.text(), "–");
  peak.add(0.9999);
  EXPECT_EQ(peak.text(), "0.0") << "no sign at nothing";
}

TEST(ClipLamp, IsLitOverFullScaleAndIsAButton) {
  ClipLamp lamp;
  lamp.setAccessibleName("Clip left");
  Hands::show(lamp, {40, 26});
  PeakHold peak;
  peak.add(0.9);
  lamp.setPeak(peak);
  const QPointF middle = lamp.lamp().center();
  EXPECT_EQ(Hands::colorAt(Hands::picture(lamp, 1), middle).name(), Colors::overDark().name());
  peak.add(1.5);
  lamp.setPeak(peak);
  EXPECT_TRUE(lamp.isLit());
  EXPECT_EQ(lamp.figure(), "+3.5");
  EXPECT_EQ(Hands::colorAt(Hands::picture(lamp, 1), middle).name(), Colors::over().name());
  EXPECT_EQ(interfaceOf(lamp).role(), QAccessible::Button);
  const QSignalSpy clicks(&lamp, &ClipLamp::clicked);
  QTest::mouseClick(&lamp, Qt::LeftButton);
  lamp.setFocus();
  QTest::keyClick(&lamp, Qt::Key_Space);
  EXPECT_EQ(clicks.count(), 2);
}

TEST(ClipLamp, FigureIsAButtonOfItsOwnThatClearsToo) {
  ClipLamp lamp;
  lamp.setNames("Peak left", "Clip left");
  Hands::show(lamp, {40, 26});
  PeakHold peak;
  peak.add(0.5);
  lamp.setPeak(peak);
  const QList<QAbstractButton*> inside = lamp.findChildren<QAbstractButton*>();
  ASSERT_EQ(inside.size(), 1);
  QAccessibleInterface& figure = interfaceOf(*inside.first());
  EXPECT_EQ(figure.role(), QAccessible::Button);
  EXPECT_EQ(figure.text(QAccessible::Name), "Peak left");
  EXPECT_EQ(figure.text(QAccessible::Description), "-6.0 dBFS");
  EXPECT_EQ(figure.text(QAccessible::Value), "-6.0 dBFS");
  ASSERT_NE(figure.valueInterface(), nullptr);
  EXPECT_EQ(figure.valueInterface()->currentValue().toDouble(), -6.0);
  EXPECT_EQ(interfaceOf(lamp).text(QAccessible::Name), "Clip left");
  EXPECT_EQ(interfaceOf(lamp).text(QAccessible::Description), "not over full scale");
  const QSignalSpy clicks(&lamp, &ClipLamp::clicked);
  QTest::mouseClick(inside.first(), Qt::LeftButton);
  EXPECT_EQ(clicks.count(), 1);
  figure.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  constexpr int kPatience = 60'000;  // ms; the button shows a press for a moment first
  EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks.count() == 2; }, kPatience));
  EXPECT_LT(inside.first()->geometry().bottom(), lamp.lamp().top()) << "the lamp is below it";
  lamp.setPeak(PeakHold());
  EXPECT_EQ(figure.text(QAccessible::Value), "–");
  EXPECT_TRUE(std::isnan(figure.valueInterface()->currentValue().toDouble()));
}

TEST(ScopePoints, StandWhereTheSoundIs) {
  const QPointF left = ScopePoints::placeOf(0.25F, 0);
  EXPECT_LT(left.x(), 0);
  EXPECT_NEAR(left.y(), -left.x(), 1e-12) << "the upper left diagonal";
  EXPECT_NEAR(ScopePoints::placeOf(0, 0.25F).x(), -left.x(), 1e-12);
  EXPECT_NEAR(ScopePoints::placeOf(0.3F, 0.3F).x(), 0, 1e-12) << "mid stands upright";
  EXPECT_NEAR(ScopePoints::placeOf(0.3F, -0.3F).y(), 0, 1e-12) << "side lies level";
  EXPECT_NEAR(ScopePoints::placeOf(1, 1).y(), 1, 1e-9) << "full scale reaches the edge";
  EXPECT_NEAR(ScopePoints::placeOf(0.25F, 0.25F).y(), 0.5, 1e-9) << "by the root";
  EXPECT_EQ(ScopePoints::placeOf(0, 0), QPointF());
}

TEST(ScopePoints, AddFadeAndGoDark) {
  ScopePoints points;
  points.setColor(Qt::white);
  points.resize(101, 1);
  const std::vector<float> frames = {1, 1, std::nanf(""), 1, 1e9F, 0};
  points.add(frames);
  EXPECT_GT(points.lightAt(50, 0), 0);
  EXPECT_GT(points.lightAt(0, 0), 0) << "too loud lies on the edge";
  EXPECT_EQ(points.lightAt(50, 50), 0) << "what is not a number leaves none";
  const int before = points.lightAt(50, 0);
  points.fade(0.5);
  EXPECT_EQ(points.lightAt(50, 0), before / 2);
  EXPECT_EQ(qAlpha(points.picture().pixel(50, 0)), before / 2);
  for (int i = 0; i < 10; ++i) points.fade(0.5);
  EXPECT_TRUE(points.isDark());
}

TEST(StereoScope, PaintsAPointForAFrame) {
  StereoScope scope;
  Hands::show(scope, {144, 144});
  EXPECT_EQ(interfaceOf(scope).text(QAccessible::Name), "Stereo scope");
  const std::vector<float> frames(2000, 0.25F);
  scope.advance(frames, 0.03);
  const QImage picture = Hands::picture(scope, 1);
  const QColor point = Hands::colorAt(picture, {72.0, 72 - 36.0});
  EXPECT_GT(point.green(), 150) << "mid at a quarter is half way up";
  EXPECT_LT(Hands::colorAt(picture, {72.0 - 36, 72.0 - 36}).green(), 80);
}

/// A frame and the direction of its point, counter-clockwise from the right.
struct Direction {
  const char* of;
  float left;
  float right;
  double degrees;
};

double lengthOf(const Direction& frame) {
  return std::hypot(static_cast<double>(frame.left), static_cast<double>(frame.right));
}

// Each pixel that is other than without frames. How far out they are: the length of the frame by
// that of both at full scale, and the root of it.
TEST(StereoScope, PaintsFramesWhereTheirChannelsPutThem) {
  constexpr Direction kFrames[] = {
      {"Left", 0.3F, 0, 135},
      {"Left, louder", 0.9F, 0, 135},
      {"Left, below zero", -0.3F, 0, 315},
      {"Right", 0, 0.3F, 45},
      {"Right, below zero", 0, -0.6F, 225},
      {"Mid", 0.2F, 0.2F, 90},
      {"Mid, below zero", -0.4F, -0.4F, 270},
      {"Side", 0.2F, -0.2F, 180},
      {"Side, below zero", -0.45F, 0.45F, 0},
      {"mostly Left", 0.6F, 0.2F, 116.5651},
      {"mostly Right, opposite", 0.1F, -0.45F, 212.4712},
      {"both below zero", -0.5F, -0.05F, 309.2894},
      {"soft", 0.01F, 0.004F, 113.1986},
  };
  constexpr double kSlack = 1e-3;
  StereoScope scope;
  Hands::show(scope, {144, 144});
  const QImage bare = scope.grab().toImage();
  const double half = bare.width() / 2.0;
  const auto dot = static_cast<double>(std::lround(scope.devicePixelRatioF()));
  for (const Direction& frame : kFrames) {
    scope.clear();
    scope.advance(
        std::vector{frame.left, frame.right, frame.left, frame.right, frame.left, frame.right},
        0.03);
    const QImage picture = scope.grab().toImage();
    const double far = half * std::sqrt(lengthOf(frame) / std::sqrt(2.0));
    const double turn = frame.degrees * std::numbers::pi / 180;
    const double right = half + far * std::cos(turn);
    const double down = half - far * std::sin(turn);
    int lit = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixel(x, y) == bare.pixel(x, y)) continue;
        ++lit;
        EXPECT_EQ(picture.pixelColor(x, y), Colors::safe()) << frame.of;
        EXPECT_LE(std::abs(x + 0.5 - right), dot / 2 + kSlack) << frame.of;
        EXPECT_LE(std::abs(y + 0.5 - down), dot / 2 + kSlack) << frame.of;
      }
    }
    EXPECT_EQ(lit, static_cast<int>(dot * dot)) << frame.of;
  }
}

// Points that cover all of it, brighter than any letter, and the letters read on.
TEST(StereoScope, LettersStandOutOfThePoints) {
  constexpr int kSide = 144;
  constexpr int kEdge = 2;  // pixels around a letter
  StereoScope scope;
  Hands::show(scope, {kSide, kSide});
  const QImage bare = Hands::picture(scope, 1);
  scope.advance(everywhere(kSide), 0.03);
  const QImage full = Hands::picture(scope, 1);
  const auto isLetter = [&](int x, int y) {
    return bare.rect().contains(x, y) && bare.pixelColor(x, y) == Colors::dimText();
  };
  EXPECT_GT(full.pixelColor(kSide / 3, kSide / 2).green(), 150) << "there are points";
  int letters = 0;
  for (int y = kEdge; y < kSide - kEdge; ++y) {
    for (int x = kEdge; x < kSide - kEdge; ++x) {
      if (!isLetter(x, y)) continue;
      ++letters;
      EXPECT_EQ(full.pixelColor(x, y), bare.pixelColor(x, y)) << x << ", " << y;
      for (const QPoint by : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1)}) {
        const QPoint beside = QPoint(x, y) + by;
        EXPECT_EQ(full.pixelColor(beside), bare.pixelColor(beside)) << x << ", " << y;
      }
    }
  }
  EXPECT_GT(letters, 8) << "of L, R, M and S, where a stroke fills a pixel";
}

TEST(CorrelationBar, MarksItsValue) {
  CorrelationBar bar;
  Hands::show(bar, {144, 30});
  EXPECT_EQ(interfaceOf(bar).text(QAccessible::Name), "Correlation");
  EXPECT_EQ(interfaceOf(bar).text(QAccessible::Value), "–");
  bar.setValue(0.534);
  EXPECT_EQ(interfaceOf(bar).text(QAccessible::Value), "+0.53");
  const QImage picture = Hands::picture(bar, 1);
  EXPECT_EQ(Hands::colorAt(picture, {bar.xOf(0.534), 6}).name(), Colors::WHITE().name());
  EXPECT_EQ(Hands::colorAt(picture, {bar.xOf(0.3), 6}).name(), Colors::accent().name());
  EXPECT_EQ(Hands::colorAt(picture, {bar.xOf(-0.3), 6}).name(), Colors::ControlColor().name());
  bar.setValue(-3);
  EXPECT_EQ(interfaceOf(bar).text(QAccessible::Value), "-1.00");
  EXPECT_EQ(CorrelationBar::text(-0.001), "0.00");
  EXPECT_NEAR(bar.xOf(-1) + bar.xOf(1), 144, 1e-9);
}

TEST(FigureLine, IsReadWithItsUnitAndAPlainMinus) {
  FigureLine line("Momentary", "LUFS");
  line.setAccessibleName("Momentary loudness");
  Hands::show(line, {144, 18});
  EXPECT_EQ(interfaceOf(line).text(QAccessible::Name), "Momentary loudness");
  EXPECT_EQ(interfaceOf(line).textInterface()->text(0, -1), "–");
  EXPECT_TRUE(std::isnan(interfaceOf(line).valueInterface()->currentValue().toDouble()));
  line.setFigure(-23.06);
  EXPECT_EQ(line.shownText(), "−23.1");
  EXPECT_EQ(interfaceOf(line).text(QAccessible::Value), "-23.1 LUFS");
  EXPECT_EQ(interfaceOf(line).textInterface()->text(
                0, interfaceOf(line).textInterface()->characterCount()),
            "-23.1 LUFS");
  EXPECT_EQ(interfaceOf(line).valueInterface()->currentValue().toDouble(), -23.06);
  line.setNote("43 %");
  EXPECT_EQ(line.figureText(), "-23.1 LUFS, 43 %");
  line.setFigure(-0.04);
  EXPECT_EQ(line.shownText(), "0.0");
}

TEST(FigureLine, LeavesATenthOutThatItsTitleHasTheRoomOf) {
  FigureLine line("Momentary", "LUFS");
  line.setFigure(-99.94);
  EXPECT_EQ(line.shownText(), "−99.9");
  line.setFigure(-138.46);
  EXPECT_EQ(line.shownText(), "−138");
  EXPECT_EQ(line.figureText(), "-138.5 LUFS") << "as it is read";
}

TEST(FigureLine, HasTheSignOfWhatIsOver) {
  FigureLine line("True peak", "dBTP");
  line.setFigure(2.04);
  EXPECT_EQ(line.shownText(), "+2.0") << "as the figure of a peak has";
  EXPECT_EQ(line.figureText(), "+2.0 dBTP");
  line.setFigure(0.04);
  EXPECT_EQ(line.shownText(), "0.0");
}

}  // namespace
