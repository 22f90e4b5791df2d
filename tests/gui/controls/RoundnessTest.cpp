// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Round caps of the dial's arcs and round ends of a slider's bars, in painted pixels.

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

#include "Hands.h"
#include "controls/AngleViewer.h"
#include "controls/Colors.h"
#include "controls/J4SliderCell.h"
#include "controls/Slider.h"

namespace {

const QColor kGrey(88, 88, 88);
const QColor kBlack(0, 0, 0);
constexpr double kScale = 8.0;  // a pixel of the picture is an eighth of a unit

struct RoundCaps : testing::Test {
  RoundCaps() {
    Hands::show(dial, {400, 400});
    dial.setEnable(true);
  }
  /// So many units past the angle along the arc of radius 160, and that far outside of it.
  [[nodiscard]] QColor colorAt(double angle, double past, double outside) {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0 + past / 160.0;
    const double radius = 160.0 + outside;
    return Hands::colorAt(Hands::picture(dial, kScale),
                          {200.0 + radius * std::cos(t), 200.0 - radius * std::sin(t)});
  }
  /// A half circle of radius 2: neither cut off at the end of the arc nor square.
  void expectRoundCap(double angle, const QColor& color) {
    const double out = angle == 0.0 ? -1.0 : 1.0;
    EXPECT_EQ(color, colorAt(angle, 1.6 * out, 0.0));
    EXPECT_EQ(color, colorAt(angle, 1.1 * out, 1.1));
    EXPECT_EQ(color, colorAt(angle, 1.1 * out, -1.1));
    EXPECT_EQ(kBlack, colorAt(angle, 1.7 * out, 1.7));
    EXPECT_EQ(kBlack, colorAt(angle, 1.7 * out, -1.7));
    EXPECT_EQ(kBlack, colorAt(angle, 2.4 * out, 0.0));
  }

  AngleViewer dial;
};

TEST_F(RoundCaps, OfTheWholeArc) {
  dial.setNewAngle(75.0);
  expectRoundCap(150.0, kGrey);
}

TEST_F(RoundCaps, OfTheActiveArc) {
  dial.setNewAngle(75.0);
  expectRoundCap(0.0, Colors::WHITE());
}

struct RoundEnds : testing::Test {
  /// `along` from the end of the track inward, `across` from its edge, both in units.
  void expectRoundEnd(bool atFarEnd, const QColor& color) {
    const QImage picture = Hands::picture(slider, kScale);
    const double top = slider.barRect().top();
    const double left = slider.barRect().left();
    const auto at = [&](double along, double across) {
      if (slider.cell()->isVertical()) {
        const double y = atFarEnd ? along : slider.height() - along;
        return Hands::colorAt(picture, {left + across, y});
      }
      const double x = atFarEnd ? slider.width() - along : along;
      return Hands::colorAt(picture, {x, top + across});
    };
    EXPECT_EQ(color, at(0.3, 2.0));
    EXPECT_EQ(color, at(0.9, 0.9));
    EXPECT_EQ(color, at(0.9, 3.1));
    EXPECT_EQ(kBlack, at(0.3, 0.3));
    EXPECT_EQ(kBlack, at(0.3, 3.7));
  }

  Slider slider;
};

TEST_F(RoundEnds, OfAHorizontalBar) {
  slider.cell()->setSliderEnabled(true);
  Hands::show(slider, {200, 24});
  expectRoundEnd(true, kGrey);
  slider.setValue(1.0);
  expectRoundEnd(false, Colors::WHITE());
}

TEST_F(RoundEnds, OfAnUprightBar) {
  slider.cell()->setSliderEnabled(true);
  slider.cell()->setIsVertical(true);
  Hands::show(slider, {24, 200});
  expectRoundEnd(true, kGrey);
  slider.setValue(1.0);
  expectRoundEnd(false, Colors::WHITE());
}

}  // namespace
