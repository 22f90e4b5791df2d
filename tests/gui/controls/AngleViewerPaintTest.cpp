// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QApplication>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <vector>

#include "Drawn.h"
#include "Hands.h"
#include "controls/AngleViewer.h"
#include "controls/Colors.h"

namespace {

const QColor kGrey(88, 88, 88);
const QColor kBlack(0, 0, 0);

// Where a thin line is nearly as wide as a pixel, some of its ground is in it.
bool isAlmost(const QColor& color, const QColor& wanted) {
  constexpr int kMost = 24;
  return std::abs(color.red() - wanted.red()) <= kMost &&
         std::abs(color.green() - wanted.green()) <= kMost &&
         std::abs(color.blue() - wanted.blue()) <= kMost;
}

struct AngleViewerPaint : testing::TestWithParam<double> {
  AngleViewerPaint() {
    Hands::show(dial, {400, 400});
    dial.setEnable(true);
  }

  [[nodiscard]] QColor colorAt(double angle, double radius = 160.0) const {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0;
    return Hands::colorAt(picture, {200.0 + radius * std::cos(t), 200.0 - radius * std::sin(t)});
  }
  void paint() { picture = Hands::picture(dial, GetParam()); }
  // Pixels that are not black around a label, and the brightest of them.
  [[nodiscard]] int brightest(std::size_t index) const {
    const QRectF f = dial.angleTextList()[index].frame();
    int most = 0;
    for (double y = 400.0 - f.y() - f.height(); y < 400.0 - f.y(); y += 0.5) {
      for (double x = f.x(); x < f.x() + f.width(); x += 0.5) {
        most = std::max(most, Hands::colorAt(picture, {x, y}).green());
      }
    }
    return most;
  }

  DrawnDial dial;
  QImage picture;
};

TEST_P(AngleViewerPaint, TheActiveArcEndsAtTheThumb) {
  dial.setNewAngle(90.0);
  paint();
  EXPECT_EQ(Colors::WHITE(), colorAt(10.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(80.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(90.0));
  EXPECT_EQ(kGrey, colorAt(100.0));
  EXPECT_EQ(kGrey, colorAt(149.0));
  EXPECT_EQ(kBlack, colorAt(155.0));
  EXPECT_EQ(kBlack, colorAt(-5.0));
}

TEST_P(AngleViewerPaint, TheArcIsFourWideAndTheThumbATwentiethOfTheView) {
  dial.setNewAngle(90.0);
  paint();
  EXPECT_EQ(Colors::WHITE(), colorAt(45.0, 161.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(45.0, 159.0));
  EXPECT_EQ(kBlack, colorAt(45.0, 163.5));
  EXPECT_EQ(kBlack, colorAt(45.0, 156.5));
  EXPECT_EQ(Colors::WHITE(), colorAt(90.0, 168.5));
  EXPECT_EQ(kBlack, colorAt(90.0, 171.5));
}

TEST_P(AngleViewerPaint, MonoShowsNoActiveArc) {
  paint();
  EXPECT_EQ(kGrey, colorAt(10.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(0.0));
  dial.setNewAngle(90.0);
  dial.resetTo0();
  paint();
  EXPECT_EQ(kGrey, colorAt(10.0));
}

TEST_P(AngleViewerPaint, TheEndIsAllWhite) {
  dial.setNewAngle(75.0);
  dial.moveTheThumb({300.0, 20.0}, false);
  paint();
  EXPECT_EQ(Colors::WHITE(), colorAt(100.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(148.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(150.0));
}

TEST_P(AngleViewerPaint, ANewSizeHidesTheActiveArc) {
  dial.setNewAngle(90.0);
  dial.resize(390, 400);
  dial.grab();
  dial.resize(400, 400);
  dial.grab();
  paint();
  EXPECT_EQ(kGrey, colorAt(45.0));
  EXPECT_EQ(Colors::WHITE(), colorAt(0.0));
}

TEST_P(AngleViewerPaint, SetAngleShowsNothingNew) {
  dial.setAngle(90.0);
  paint();
  EXPECT_EQ(kGrey, colorAt(45.0));
}

TEST_P(AngleViewerPaint, DisabledIsGreyWithDimmedLabels) {
  dial.setNewAngle(90.0);
  paint();
  for (std::size_t i = 0; i < 6; ++i) EXPECT_LT(200, brightest(i));
  dial.setEnable(false);
  paint();
  EXPECT_EQ(kGrey, colorAt(45.0));
  EXPECT_EQ(kGrey, colorAt(90.0, 168.0));
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_LT(90, brightest(i));
    EXPECT_GE(129, brightest(i));
  }
}

// Each pixel beside what the place of its centre asks for; those that an edge crosses may be mixed.
TEST_P(AngleViewerPaint, CostsAreAThinLineInsideTheArc) {
  using Cost = CostRing::Cost;
  std::vector<Cost> costs(151, Cost::None);
  std::fill(costs.begin() + 80, costs.begin() + 110, Cost::Near);
  std::fill(costs.begin() + 110, costs.end(), Cost::Over);
  dial.setCosts(costs);
  paint();
  int drawn = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QPointF arm((x + 0.5) / GetParam() - 200.0, 200.0 - (y + 0.5) / GetParam());
      const double radius = std::hypot(arm.x(), arm.y());
      double angle = std::atan2(arm.y(), arm.x()) * 180.0 / std::numbers::pi - 90.0;
      if (angle < -90.0) angle += 360.0;
      const double in = std::fabs(radius - (160.0 - 14.0)) - 1.0;
      const bool isInside = in < -0.8 && angle > 80.5 && angle < 149.5;
      const bool isOutside = in > 0.8 || angle < 79.5 || angle > 150.5;
      const bool isRing = std::fabs(radius - 146.0) < 8.0 && angle > 10.0 && angle < 170.0;
      if (!isRing || std::fabs(angle - 110.0) < 0.5) continue;
      const QColor color = picture.pixelColor(x, y);
      const QColor wanted = angle < 110.0 ? Colors::warning() : Colors::over();
      ASSERT_TRUE(!isInside || isAlmost(color, wanted))
          << angle << " at " << radius << " is " << color.name().toStdString();
      ASSERT_TRUE(!isOutside || color == kBlack)
          << angle << " at " << radius << " is " << color.name().toStdString();
      drawn += isInside ? 1 : 0;
    }
  }
  EXPECT_GT(drawn, 40);
}

TEST_P(AngleViewerPaint, CostsOfTheLastDegreeAloneAreSeen) {
  std::vector<CostRing::Cost> costs(151, CostRing::Cost::None);
  costs.back() = CostRing::Cost::Over;
  dial.setCosts(costs);
  paint();
  EXPECT_EQ(Colors::over(), colorAt(149.5, 146.0));
  EXPECT_EQ(kBlack, colorAt(148.0, 146.0));
}

TEST_P(AngleViewerPaint, WithoutCostsOrDisabledThereIsNoLine) {
  paint();
  const QImage none = picture;
  dial.setCosts(std::vector<CostRing::Cost>(151, CostRing::Cost::None));
  paint();
  EXPECT_EQ(none, picture);
  dial.setEnable(false);
  paint();
  const QImage disabled = picture;
  dial.setCosts(std::vector<CostRing::Cost>(151, CostRing::Cost::Over));
  paint();
  EXPECT_EQ(disabled, picture);
  dial.setEnable(true);
  paint();
  EXPECT_NE(none, picture);
}

TEST_P(AngleViewerPaint, KeyboardFocusIsARingInTheThumb) {
  dial.setNewAngle(90.0);
  QApplication::setActiveWindow(&dial);
  dial.clearFocus();
  dial.setFocus(Qt::MouseFocusReason);
  paint();
  EXPECT_EQ(Colors::WHITE(), colorAt(90.0, 168.4));
  dial.clearFocus();
  dial.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(dial.hasFocus());
  paint();
  EXPECT_EQ(Colors::focusRing(), colorAt(90.0, 168.4));
  EXPECT_EQ(Colors::WHITE(), colorAt(90.0, 160.0));
}

TEST_P(AngleViewerPaint, DisablingGivesTheFocusAway) {
  QApplication::setActiveWindow(&dial);
  dial.setFocus(Qt::TabFocusReason);
  dial.setEnable(false);
  EXPECT_EQ(Qt::NoFocus, dial.focusPolicy());
  paint();
  EXPECT_EQ(kGrey, colorAt(0.0, 168.0));
}

INSTANTIATE_TEST_SUITE_P(Scales, AngleViewerPaint, testing::Values(1.0, 1.25, 1.5, 2.0),
                         [](const auto& scale) {
                           return std::to_string(static_cast<int>(scale.param * 100));
                         });

}  // namespace
