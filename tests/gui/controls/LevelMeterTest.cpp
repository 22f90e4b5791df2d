// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "Drawn.h"
#include "Hands.h"
#include "controls/Colors.h"
#include "controls/LevelMeter.h"
#include "controls/LevelMeterScale.h"

namespace {

// The first meter of a process sets the unit heights of all, so it is 280 high for all tests.
struct FirstMeter : testing::Environment {
  void SetUp() override {
    DrawnMeter first;
    Hands::show(first, {16, 280});
  }
};
const auto* const kFirstMeter = testing::AddGlobalTestEnvironment(new FirstMeter);

double shown(const DrawnMeter& meter) {
  return meter.maskFrame().y() + meter.maskFrame().height();
}

TEST(LevelMeterScale, HasTwoPieces) {
  const LevelMeterScale scale(280.0);
  EXPECT_DOUBLE_EQ(0.0, scale.visibleHeight(0, 280.0));
  EXPECT_DOUBLE_EQ(40.0, scale.visibleHeight(12, 280.0));
  EXPECT_NEAR(80.0 - 80.0 / 24.0, scale.visibleHeight(23, 280.0), 1e-9);
  EXPECT_DOUBLE_EQ(80.0, scale.visibleHeight(24, 280.0));
  EXPECT_DOUBLE_EQ(180.0, scale.visibleHeight(39, 280.0));
  EXPECT_DOUBLE_EQ(280.0, scale.visibleHeight(54, 280.0));
  EXPECT_LT(280.0, scale.visibleHeight(55, 280.0));
  EXPECT_GT(0.0, scale.visibleHeight(-1, 280.0));
}

TEST(LevelMeterScale, PlacesLevelsBetweenTheUnits) {
  const LevelMeterScale scale(280.0);
  for (std::int64_t level = 0; level <= 54; ++level) {
    EXPECT_NEAR(LevelMeterScale::place(static_cast<double>(level), 280.0),
                scale.visibleHeight(level, 280.0), 1e-9);
  }
  EXPECT_DOUBLE_EQ(LevelMeterScale::place(39.5, 280.0), 180.0 + 0.5 * 200.0 / 30.0);
  EXPECT_EQ(LevelMeterScale::place(-3, 280.0), 0);
  EXPECT_EQ(LevelMeterScale::place(99, 280.0), 280);
}

TEST(LevelMeterScale, IsSetByAHeight) {
  EXPECT_FALSE(LevelMeterScale().isSet());
  EXPECT_FALSE(LevelMeterScale(0.0).isSet());
  EXPECT_TRUE(LevelMeterScale(1.0).isSet());
}

TEST(LevelMeter, StartsAtZeroOfAHundred) {
  const DrawnMeter meter;
  EXPECT_EQ(0, meter.level());
  EXPECT_EQ(0, meter.minValue());
  EXPECT_EQ(100, meter.maxValue());
}

TEST(LevelMeter, ClampsToTheMaximumFirst) {
  DrawnMeter meter;
  meter.setLevel(150);
  EXPECT_EQ(100, meter.level());
  meter.setLevel(-5);
  EXPECT_EQ(0, meter.level());
  meter.setMaxValue(10);
  meter.setMinValue(20);
  meter.setLevel(5);
  EXPECT_EQ(20, meter.level());
  meter.setLevel(50);
  EXPECT_EQ(20, meter.level());
}

TEST(LevelMeter, NewLimitsLeaveTheLevel) {
  DrawnMeter meter;
  meter.setLevel(80);
  meter.setMaxValue(54);
  EXPECT_EQ(80, meter.level());
}

TEST(LevelMeter, ShowsALevelSetBeforeItsFirstLayout) {
  DrawnMeter meter;
  meter.setLevel(39);
  EXPECT_EQ(QRectF(), meter.maskFrame());
  Hands::show(meter, {16, 280});
  EXPECT_EQ(QRectF(0.0, -100.0, 16.0, 280.0), meter.maskFrame());
}

TEST(LevelMeter, MovesItsMask) {
  DrawnMeter meter;
  Hands::show(meter, {16, 280});
  const std::pair<int, double> cases[] = {
      {0, 0.0}, {12, 40.0}, {24, 80.0}, {39, 180.0}, {54, 280.0}};
  for (const auto& [level, height] : cases) {
    meter.setLevel(level);
    EXPECT_DOUBLE_EQ(height, shown(meter));
    EXPECT_DOUBLE_EQ(280.0, meter.maskFrame().height());
  }
}

TEST(LevelMeter, ASecondMeterUsesTheUnitsOfTheFirst) {
  DrawnMeter meter;
  Hands::show(meter, {16, 140});
  meter.setLevel(12);
  EXPECT_DOUBLE_EQ(40.0, shown(meter));
  // The knee is the meter's own, the units beyond it are not.
  meter.setLevel(27);
  EXPECT_DOUBLE_EQ(40.0 + 3.0 * 200.0 / 30.0, shown(meter));
}

TEST(LevelMeter, AResizeKeepsTheUnits) {
  DrawnMeter meter;
  Hands::show(meter, {16, 280});
  meter.setLevel(12);
  meter.resize(16, 560);
  EXPECT_DOUBLE_EQ(40.0, shown(meter));
  meter.setLevel(24);
  EXPECT_DOUBLE_EQ(160.0, shown(meter));
}

struct LevelMeterPaint : testing::TestWithParam<double> {
  LevelMeterPaint() { Hands::show(meter, {16, 280}); }

  // The brightest component at this height above the lower edge.
  [[nodiscard]] int at(double height) const {
    const QColor color = Hands::colorAt(picture, {8.0, 280.0 - height});
    return std::max({color.red(), color.green(), color.blue()});
  }
  void paint(int level) {
    meter.setLevel(level);
    picture = Hands::picture(meter, GetParam());
  }

  DrawnMeter meter;
  QImage picture;
};

TEST_P(LevelMeterPaint, IsBrightUpToTheLevel) {
  for (const int level : {12, 24, 39}) {
    paint(level);
    const double edge = shown(meter);
    EXPECT_LT(120, at(edge - 1.0)) << level;
    EXPECT_GT(70, at(edge + 2.0)) << level;
    EXPECT_LT(120, at(3.0)) << level;
    EXPECT_GT(70, at(277.0)) << level;
    EXPECT_LT(20, at(277.0)) << level;
  }
}

TEST_P(LevelMeterPaint, ZeroIsAllDim) {
  paint(0);
  for (double height = 1.0; height < 280.0; height += 1.0) ASSERT_GT(70, at(height));
}

TEST_P(LevelMeterPaint, FullStaysFullBeyondTheScale) {
  paint(54);
  const QImage full = picture;
  for (double height = 3.0; height < 278.0; height += 1.0) ASSERT_LT(120, at(height));
  for (const int level : {55, 70, 100}) {
    paint(level);
    EXPECT_EQ(full, picture) << level;
  }
}

// Both pictures come from one scale of colours: dim is bright, darkened by one factor.
TEST_P(LevelMeterPaint, TheDimPictureIsTheBrightOneDarkened) {
  paint(54);
  const QImage bright = picture;
  paint(0);
  for (double y = 5.0; y < 275.0; y += 7.0) {
    const QColor full = Hands::colorAt(bright, {8.0, y});
    const QColor dim = Hands::colorAt(picture, {8.0, y});
    EXPECT_NEAR(full.red() * 0.18, dim.red(), 1.5);
    EXPECT_NEAR(full.green() * 0.18, dim.green(), 1.5);
    EXPECT_NEAR(full.blue() * 0.18, dim.blue(), 1.5);
  }
}

TEST_P(LevelMeterPaint, GoesFromGreenToRed) {
  paint(54);
  const QColor low = Hands::colorAt(picture, {8.0, 270.0});
  const QColor high = Hands::colorAt(picture, {8.0, 5.0});
  EXPECT_GT(low.green(), 2 * low.red());
  EXPECT_GT(high.red(), 2 * high.green());
}

// Level 48 is full scale: red begins there, within a pixel.
TEST_P(LevelMeterPaint, FullScaleIsAHardEdge) {
  paint(54);
  const double full = 80.0 + 24.0 * 200.0 / 30.0;
  const QColor over = Hands::colorAt(picture, {8.0, 280.0 - full - 1.5});
  const QColor under = Hands::colorAt(picture, {8.0, 280.0 - full + 1.5});
  EXPECT_EQ(over.name(), Colors::over().name());
  EXPECT_GT(under.green(), 2 * over.green() - 10);
}

TEST_P(LevelMeterPaint, HoldIsALineAtItsLevel) {
  paint(0);
  meter.setHold(39.0);
  picture = Hands::picture(meter, GetParam());
  EXPECT_EQ(at(179.0), 255);
  EXPECT_GT(70, at(184.0));
  EXPECT_GT(70, at(174.0));
  meter.setHold(-std::numeric_limits<double>::infinity());
  picture = Hands::picture(meter, GetParam());
  EXPECT_GT(70, at(179.0));
  meter.setHold(60.0);
  picture = Hands::picture(meter, GetParam());
  EXPECT_EQ(at(279.0), 255) << "over the bar is at its end";
}

INSTANTIATE_TEST_SUITE_P(Scales, LevelMeterPaint, testing::Values(1.0, 1.25, 1.5, 2.0),
                         [](const auto& scale) {
                           return std::to_string(static_cast<int>(scale.param * 100));
                         });

TEST(LevelMeterPicture, AnotherNameDrawsNothing) {
  QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::black);
  const QImage before = image;
  QPainter painter(&image);
  LevelMeterPicture("levelmeter3").draw(painter, {0, 0, 10, 10});
  EXPECT_EQ(before, image);
  LevelMeterPicture("levelmeter2").draw(painter, {0, 0, 10, 10});
  EXPECT_NE(before, image);
}

}  // namespace
