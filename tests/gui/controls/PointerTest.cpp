// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What a control shows of a pointer over it: a hand where a press does something, the knob marked.

#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "Drawn.h"
#include "Hands.h"
#include "controls/ClipLamp.h"
#include "controls/Colors.h"
#include "controls/GainTickTitle.h"
#include "controls/J4SliderCell.h"
#include "controls/Slider.h"

namespace {

void leave(QWidget& control) {
  QEvent event(QEvent::Leave);
  QApplication::sendEvent(&control, &event);
}

struct PointerOverSlider : testing::Test {
  PointerOverSlider() {
    slider.cell()->setSliderEnabled(true);
    Hands::show(slider, {110, 22});
  }
  [[nodiscard]] QColor knob() {
    return Hands::colorAt(Hands::picture(slider, 1.0),
                          J4SliderCell::circleOf(slider.knobRect()).center());
  }
  Slider slider;
};

TEST_F(PointerOverSlider, ShowsAHandAndMarksTheKnob) {
  EXPECT_EQ(slider.cursor().shape(), Qt::PointingHandCursor);
  EXPECT_EQ(knob(), Colors::WHITE());
  Hands::hover(slider, {100.0, 9.0});
  EXPECT_EQ(knob(), Colors::WHITE()) << "far from it";
  Hands::hover(slider, {9.0, 9.0});
  EXPECT_EQ(knob(), Colors::primaryHover());
  leave(slider);
  EXPECT_EQ(knob(), Colors::WHITE());
}

TEST_F(PointerOverSlider, MarksAKnobThatComesAndLeavesOneThatGoes) {
  Hands::hover(slider, {9.0, 9.0});
  slider.setValue(0.5);
  EXPECT_EQ(knob(), Colors::WHITE()) << "it went by itself";
  slider.setValue(0.0);
  EXPECT_EQ(knob(), Colors::primaryHover());
  Hands::press(slider, {9.0, 9.0});
  Hands::move(slider, {55.0, 40.0});
  EXPECT_EQ(knob(), Colors::primaryHover()) << "held";
  Hands::release(slider, {55.0, 40.0});
  EXPECT_EQ(knob(), Colors::WHITE());
}

TEST_F(PointerOverSlider, MarksNothingThatCannotBeMoved) {
  slider.setEnabled(false);
  Hands::hover(slider, {9.0, 9.0});
  EXPECT_EQ(knob(), Colors::WHITE()) << "drawn bright, but it takes no press";
  slider.setEnabled(true);
  slider.cell()->setSliderEnabled(false);
  EXPECT_NE(knob(), Colors::primaryHover()) << "drawn grey";
}

struct PointerOverDial : testing::Test {
  PointerOverDial() {
    dial.setEnable(true);
    Hands::show(dial, {400, 400});
    dial.setNewAngle(90.0);  // straight to the left of the middle
  }
  [[nodiscard]] QPointF thumb() const { return {200.0 - dial.radius(), 200.0}; }
  [[nodiscard]] QColor thumbColor() { return Hands::colorAt(Hands::picture(dial, 1.0), thumb()); }
  [[nodiscard]] Qt::CursorShape shape() const { return dial.cursor().shape(); }
  DrawnDial dial;
};

TEST_F(PointerOverDial, ShowsAHandOverArcLabelsAndThumb) {
  Hands::hover(dial, {300.0, 300.0});
  EXPECT_EQ(shape(), Qt::ArrowCursor);
  Hands::hover(dial, thumb());
  EXPECT_EQ(shape(), Qt::PointingHandCursor);
  Hands::hover(dial, {300.0, 300.0});
  EXPECT_EQ(shape(), Qt::ArrowCursor);
  const QRectF label = dial.angleTextList()[1].frame();
  Hands::hover(dial, {label.center().x(), 400.0 - label.center().y()});
  EXPECT_EQ(shape(), Qt::PointingHandCursor);
  dial.setEnable(false);
  EXPECT_EQ(shape(), Qt::ArrowCursor);
  Hands::hover(dial, thumb());
  EXPECT_EQ(shape(), Qt::ArrowCursor);
}

TEST_F(PointerOverDial, MarksTheThumbAlone) {
  EXPECT_EQ(thumbColor(), Colors::WHITE());
  Hands::hover(dial, thumb());
  EXPECT_EQ(thumbColor(), Colors::primaryHover());
  Hands::hover(dial, thumb() + QPointF(0.0, -60.0));
  EXPECT_EQ(thumbColor(), Colors::WHITE());
  dial.setNewAngle(30.0);
  Hands::hover(dial, thumb());
  EXPECT_NE(thumbColor(), Colors::primaryHover()) << "it is elsewhere";
  dial.setNewAngle(90.0);
  EXPECT_EQ(thumbColor(), Colors::primaryHover()) << "it came by itself";
  leave(dial);
  EXPECT_EQ(thumbColor(), Colors::WHITE());
}

struct Answers : GainTickTitleDelegate {};

TEST(PointerOverScale, ShowsAHandOverALabelThatSomebodyHears) {
  ::GainTickTitle scale;
  scale.setTexts({QStringLiteral("+24"), QStringLiteral("0"), QStringLiteral("-24")});
  scale.initTick();
  Hands::show(scale, {40, 260});
  const QRectF label = scale.textRectList()[1].frame();
  const QPointF on{label.center().x(), 260.0 - label.center().y()};
  Hands::hover(scale, on);
  EXPECT_EQ(scale.cursor().shape(), Qt::ArrowCursor) << "nobody hears a click";
  const auto answers = std::make_shared<Answers>();
  scale.setDelegate(answers);
  Hands::hover(scale, on);
  EXPECT_EQ(scale.cursor().shape(), Qt::ArrowCursor) << "nothing can be set";
  scale.setEnable(true);
  Hands::hover(scale, on);
  EXPECT_EQ(scale.cursor().shape(), Qt::PointingHandCursor);
  scale.setEnable(false);
  EXPECT_EQ(scale.cursor().shape(), Qt::ArrowCursor);
  scale.setEnable(true);
  Hands::hover(scale, {on.x(), 90.0});
  EXPECT_EQ(scale.cursor().shape(), Qt::ArrowCursor) << "between two labels";
}

TEST(PointerOverLamp, ShowsAHand) {
  EXPECT_EQ(ClipLamp().cursor().shape(), Qt::PointingHandCursor);
}

}  // namespace
