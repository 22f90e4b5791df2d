// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <QApplication>
#include <memory>

#include "Hands.h"
#include "controls/Colors.h"
#include "controls/J4SliderCell.h"
#include "controls/Slider.h"

namespace {

const QColor kGrey(88, 88, 88);
const QColor kBlack(0, 0, 0);

TEST(J4SliderCell, StartsHorizontalAndDimmed) {
  const J4SliderCell cell;
  EXPECT_FALSE(cell.sliderEnabled());
  EXPECT_FALSE(cell.isVertical());
}

TEST(J4SliderCell, TheKnobIsTruncatedTwice) {
  EXPECT_EQ(17.0, J4SliderCell::knobDiameter(21.0, 21.0));
  EXPECT_EQ(17.0, J4SliderCell::knobDiameter(21.9, 30.0));
  EXPECT_EQ(18.0, J4SliderCell::knobDiameter(40.0, 22.0));
  EXPECT_EQ(0.0, J4SliderCell::knobDiameter(1.0, 1.0));
}

TEST(J4SliderCell, TheKnobIsCentredAndLiftedByTwo) {
  EXPECT_EQ(QRectF(12.0, 20.0, 17.0, 17.0), J4SliderCell::circleOf({10.0, 20.0, 21.0, 21.0}));
  EXPECT_EQ(QRectF(14.5, 18.0, 17.0, 17.0), J4SliderCell::circleOf({10.0, 18.0, 26.0, 21.0}));
}

struct CellOfSlider : testing::Test {
  void setUp(QSize size, bool isVertical, double value) {
    slider.cell()->setIsVertical(isVertical);
    slider.setRange(-36.0, 36.0);
    slider.setValue(value);
    Hands::show(slider, size);
  }
  Slider slider;
  const QRectF track{3.0, 5.0, 90.0, 70.0};
};

TEST_F(CellOfSlider, IsLostToTheOneThatTakesIt) {
  setUp({108, 22}, false, 0.0);
  const auto cell = slider.cell();
  Slider second;
  second.setRange(0.0, 1.0);
  second.setValue(1.0);
  second.resize(208, 22);
  {
    Slider first;
    first.setCell(cell);
    EXPECT_EQ(nullptr, slider.cell());
    second.setCell(cell);
    EXPECT_EQ(nullptr, first.cell());
  }
  EXPECT_EQ(200.0, cell->filledPartOf(track).width())
      << "the end of a former owner changes nothing";
  second.setCell(cell);
  EXPECT_EQ(200.0, cell->filledPartOf(track).width());
}

TEST(J4SliderCell, EachDirectionIsDrawnAsItIsCalled) {
  for (const bool isVertical : {false, true}) {
    J4SliderCell cell;
    cell.setIsVertical(isVertical);
    const auto drawn = [&](auto draw) {
      QImage image(20, 20, QImage::Format_RGB32);
      image.fill(kBlack);
      QPainter painter(&image);
      (cell.*draw)(painter, QRectF(0, 0, 20, 20));
      return image;
    };
    EXPECT_EQ(kGrey, drawn(&J4SliderCell::drawHorizontal).pixelColor(15, 2));
    EXPECT_EQ(kBlack, drawn(&J4SliderCell::drawHorizontal).pixelColor(2, 15));
    EXPECT_EQ(kBlack, drawn(&J4SliderCell::drawVertical).pixelColor(15, 2));
    EXPECT_EQ(kGrey, drawn(&J4SliderCell::drawVertical).pixelColor(2, 15));
  }
}

TEST_F(CellOfSlider, HorizontalBars) {
  setUp({108, 22}, false, 0.0);
  EXPECT_EQ(QRectF(3.0, 5.0, 90.0, 4.0), slider.cell()->backgroundOf(track));
  EXPECT_EQ(QRectF(3.0, 5.0, 50.0, 4.0), slider.cell()->filledPartOf(track));
  slider.setValue(36.0);
  EXPECT_EQ(QRectF(3.0, 5.0, 100.0, 4.0), slider.cell()->filledPartOf(track));
  slider.setValue(-36.0);
  EXPECT_EQ(QRectF(3.0, 5.0, 0.0, 4.0), slider.cell()->filledPartOf(track));
}

TEST_F(CellOfSlider, VerticalBarsFillFromTheLowerEnd) {
  setUp({22, 128}, true, -18.0);
  EXPECT_EQ(QRectF(3.0, 5.0, 4.0, 70.0), slider.cell()->backgroundOf(track));
  EXPECT_EQ(QRectF(3.0, 45.0, 4.0, 30.0), slider.cell()->filledPartOf(track));
  slider.setValue(36.0);
  EXPECT_EQ(QRectF(3.0, -45.0, 4.0, 120.0), slider.cell()->filledPartOf(track));
}

TEST_F(CellOfSlider, AnEmptyRangeFillsNothing) {
  setUp({108, 22}, false, 0.0);
  slider.setRange(5.0, 5.0);
  EXPECT_EQ(0.0, slider.cell()->filledPartOf(track).width());
}

TEST_F(CellOfSlider, ACellServesOneSlider) {
  const auto cell = std::make_shared<J4SliderCell>();
  {
    Slider other;
    other.setCell(cell);
    other.setValue(1.0);
    EXPECT_LT(0.0, cell->filledPartOf(track).width());
  }
  EXPECT_EQ(0.0, cell->filledPartOf(track).width());
  cell->setSliderEnabled(true);
  EXPECT_TRUE(cell->sliderEnabled());
}

struct SliderPaint : testing::TestWithParam<double> {
  void show(QSize size, bool isVertical, double value) {
    slider.cell()->setIsVertical(isVertical);
    slider.cell()->setSliderEnabled(true);
    slider.setValue(value);
    Hands::show(slider, size);
    paint();
  }
  void paint() { picture = Hands::picture(slider, GetParam()); }
  [[nodiscard]] QColor at(double x, double y) const { return Hands::colorAt(picture, {x, y}); }

  Slider slider;
  QImage picture;
};

TEST_P(SliderPaint, HorizontalIsWhiteUpToTheKnob) {
  show({110, 22}, false, 0.5);
  EXPECT_EQ(Colors::WHITE(), at(10.0, 9.0));
  EXPECT_EQ(Colors::WHITE(), at(55.0, 3.0));
  EXPECT_EQ(Colors::WHITE(), at(55.0, 15.0));
  EXPECT_EQ(kGrey, at(100.0, 9.0));
  EXPECT_EQ(kBlack, at(10.0, 4.0));
  EXPECT_EQ(kBlack, at(10.0, 14.0));
}

TEST_P(SliderPaint, TheMinimumIsAllGreyBesideTheKnob) {
  show({110, 22}, false, 0.0);
  EXPECT_EQ(Colors::WHITE(), at(9.0, 9.0));
  for (double x = 20.0; x < 107.0; x += 1.0) ASSERT_EQ(kGrey, at(x, 9.0)) << x;
}

TEST_P(SliderPaint, VerticalIsWhiteBelowTheKnob) {
  show({22, 280}, true, 0.25);
  EXPECT_EQ(Colors::WHITE(), at(11.0, 270.0));
  EXPECT_EQ(kGrey, at(11.0, 10.0));
  EXPECT_EQ(kGrey, at(11.0, 190.0));
  EXPECT_EQ(Colors::WHITE(), at(11.0, 205.5));
  EXPECT_EQ(kBlack, at(6.0, 270.0));
  EXPECT_EQ(kBlack, at(16.0, 270.0));
}

TEST_P(SliderPaint, DimmedIsAllGrey) {
  show({110, 22}, false, 0.5);
  slider.cell()->setSliderEnabled(false);
  paint();
  EXPECT_EQ(kGrey, at(10.0, 9.0));
  EXPECT_EQ(kGrey, at(55.0, 9.0));
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ASSERT_GE(88, picture.pixelColor(x, y).red());
  }
}

// Across the track every pixel is of the bar or is not: nothing in between, at any scale.
TEST_P(SliderPaint, TheTrackIsSharp) {
  for (const bool isVertical : {false, true}) {
    show(isVertical ? QSize(22, 110) : QSize(110, 22), isVertical, 0.0);
    const auto pixel = [&](int across) {
      const int along = static_cast<int>((isVertical ? 30.0 : 70.0) * GetParam());
      return isVertical ? picture.pixelColor(across, along) : picture.pixelColor(along, across);
    };
    int thick = 0;
    for (int i = 0; i < static_cast<int>(22.0 * GetParam()); ++i) {
      EXPECT_TRUE(pixel(i) == kBlack || pixel(i) == kGrey) << i;
      thick += pixel(i) == kGrey ? 1 : 0;
    }
    EXPECT_EQ(static_cast<int>(4.0 * GetParam()), thick);
  }
}

// The knob is never cut, and it lies on the line of the track.
TEST_P(SliderPaint, TheKnobStaysInTheViewOnTheTrack) {
  for (const bool isVertical : {false, true}) {
    for (const double value : {0.0, 0.3, 1.0}) {
      show(isVertical ? QSize(22, 110) : QSize(110, 22), isVertical, value);
      const QRectF circle = J4SliderCell::circleOf(slider.knobRect());
      const QRectF bar = slider.cell()->backgroundOf(slider.barRect());
      EXPECT_TRUE(QRectF(slider.rect()).contains(circle));
      EXPECT_EQ(18.0, circle.width());
      if (isVertical)
        EXPECT_EQ(bar.center().x(), circle.center().x());
      else
        EXPECT_EQ(bar.center().y(), circle.center().y());
      const QRectF filled = slider.cell()->filledPartOf(slider.barRect());
      const double end = isVertical ? filled.top() : filled.right();
      EXPECT_LE(isVertical ? circle.top() : circle.left(), end);
      EXPECT_GE(isVertical ? circle.bottom() : circle.right(), end);
    }
  }
}

TEST_P(SliderPaint, KeyboardFocusIsARingInTheKnob) {
  show({110, 22}, false, 0.5);
  QApplication::setActiveWindow(&slider);
  slider.clearFocus();
  slider.setFocus(Qt::MouseFocusReason);
  paint();
  EXPECT_EQ(Colors::WHITE(), at(47.6, 9.0));
  slider.clearFocus();
  slider.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(slider.hasFocus());
  paint();
  EXPECT_EQ(Colors::focusRing(), at(47.6, 9.0));
  EXPECT_EQ(Colors::WHITE(), at(55.0, 9.0));
}

INSTANTIATE_TEST_SUITE_P(Scales, SliderPaint, testing::Values(1.0, 1.25, 1.5, 2.0),
                         [](const auto& scale) {
                           return std::to_string(static_cast<int>(scale.param * 100));
                         });

}  // namespace
