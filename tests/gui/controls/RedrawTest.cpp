// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What changes the look of a control has it painted again; what does not, leaves it alone.

#include <gmock/gmock.h>

#include <QApplication>
#include <QBackingStore>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "Hands.h"
#include "Repaints.h"
#include "controls/AngleViewer.h"
#include "controls/ClipLamp.h"
#include "controls/CorrelationBar.h"
#include "controls/FigureLine.h"
#include "controls/GainTickTitle.h"
#include "controls/J4GainSlider.h"
#include "controls/J4SliderCell.h"
#include "controls/KeyRings.h"
#include "controls/LevelMeter.h"
#include "controls/PathViewer.h"
#include "controls/StereoScope.h"
#include "controls/WaveformViewer.h"

namespace {

template <class Action>
bool repaints(QWidget& control, const Action& action) {
  return !Repaints::of(control, action).isEmpty();
}

/// What the control looks like on the screen, put together of what was painted by and by.
QImage pictureOf(QWidget& control) {
  return static_cast<const QImage*>(control.backingStore()->paintDevice())->copy();
}

/// Whether painting all of it would change nothing.
bool isWhole(QWidget& control) {
  Repaints::flush(control);
  const QImage parts = pictureOf(control);
  control.repaint();
  return parts == pictureOf(control);
}

template <class Control>
class Redraw : public testing::Test {
 protected:
  explicit Redraw(QSize size) { Hands::show(control, size); }
  template <class Action>
  bool repaints(const Action& action) {
    return ::repaints(control, action);
  }
  /// Sets it to what it is not; the toolkit asks for nothing where the font stays the same.
  bool repaintsForAFont() {
    QFont font = control.font();
    font.setPixelSize(font.pixelSize() + 5);
    return repaints([&] { control.setFont(font); });
  }

  Control control;
};

struct RedrawOfDial : Redraw<AngleViewer> {
  RedrawOfDial() : Redraw({400, 400}) { control.setEnable(true); }
  static QPointF onArc(double angle) {
    const double t = (angle + 90.0) * std::numbers::pi / 180.0;
    return {200.0 + 160.0 * std::cos(t), 200.0 + 160.0 * std::sin(t)};  // y upward
  }
};

TEST_F(RedrawOfDial, ForAnAngle) {
  EXPECT_TRUE(repaints([this] { control.setNewAngle(30.0); }));
  EXPECT_TRUE(repaints([this] { control.adjust(40.0, AdjustCause::Assistive); }));
  EXPECT_TRUE(repaints([this] { control.moveTheThumb(onArc(60.0), false); }));
  EXPECT_TRUE(repaints([this] { control.detectClick(onArc(70.0)); }));
}

TEST_F(RedrawOfDial, ForAPointerOverTheThumb) {
  control.setNewAngle(90.0);
  EXPECT_TRUE(repaints([this] { Hands::hover(control, {40.0, 200.0}); }));
  EXPECT_FALSE(repaints([this] { Hands::hover(control, {41.0, 200.0}); }));
  EXPECT_TRUE(repaints([this] { Hands::hover(control, {200.0, 200.0}); }));
}

TEST_F(RedrawOfDial, ForAnEndOfTheArc) {
  control.setNewAngle(30.0);
  EXPECT_TRUE(repaints([this] { control.moveTheThumb({210.0, 350.0}, false); }));
  EXPECT_EQ(0.0, control.angle());
  EXPECT_TRUE(repaints([this] { control.moveTheThumb(onArc(152.0), false); }));
  EXPECT_EQ(150.0, control.angle());
  EXPECT_TRUE(repaints([this] { control.resetTo0(); }));
}

TEST_F(RedrawOfDial, ForWhetherItIsEnabled) {
  EXPECT_TRUE(repaints([this] { control.setEnable(false); }));
  EXPECT_TRUE(repaints([this] { control.setEnable(true); }));
}

TEST_F(RedrawOfDial, ForAFontAndForTheFocusRing) {
  EXPECT_TRUE(repaintsForAFont());
  EXPECT_TRUE(repaints([this] { QTest::keyClick(&control, Qt::Key_Home); }));
}

TEST_F(RedrawOfDial, ForWhatAWidthCosts) {
  const std::vector<CostRing::Cost> costs(151, CostRing::Cost::Over);
  EXPECT_TRUE(repaints([&] { control.setCosts(costs); }));
  EXPECT_FALSE(repaints([&] { control.setCosts(costs); }));
  EXPECT_TRUE(repaints([this] { control.setCosts({}); }));
  EXPECT_FALSE(repaints([this] { Hands::hover(control, {40, 200}); })) << "pointing shows nothing";
}

// While it is held it is marked wherever the pointer is.
TEST_F(RedrawOfDial, ForAThumbThatIsLetGoBesideIt) {
  const QPointF thumb(200, 40);  // at no angle
  const QPointF beside(200, 120);
  Hands::press(control, thumb);
  Hands::move(control, beside);
  EXPECT_TRUE(repaints([&] { Hands::release(control, beside); }));
  EXPECT_FALSE(repaints([&] { Hands::hover(control, beside); }));
  Hands::press(control, thumb);
  Hands::move(control, beside);
  EXPECT_TRUE(repaints([this] {
    QEvent dialog(QEvent::WindowBlocked);
    QApplication::sendEvent(&control, &dialog);
  }));
}

TEST_F(RedrawOfDial, NotForAnAngleThatIsOnlyStored) {
  EXPECT_FALSE(repaints([this] { control.setAngle(50.0); }));
}

struct RedrawOfSlider : Redraw<J4GainSlider> {
  RedrawOfSlider() : Redraw({24, 200}) { control.setRange(-36.0, 36.0); }
};

TEST_F(RedrawOfSlider, ForAPointerOverTheKnob) {
  const QPointF knob = control.knobRect().center();
  EXPECT_TRUE(repaints([&] { Hands::hover(control, knob); }));
  EXPECT_FALSE(repaints([&] { Hands::hover(control, knob + QPointF(1, 0)); }));
  EXPECT_TRUE(repaints([&] { Hands::hover(control, {12, 20}); }));
}

TEST_F(RedrawOfSlider, ForAValue) {
  EXPECT_TRUE(repaints([this] { control.setValue(3.0); }));
  EXPECT_TRUE(repaints([this] { control.adjust(4.0, AdjustCause::Assistive); }));
  EXPECT_FALSE(repaints([this] { control.setValue(4.0); }));
  EXPECT_FALSE(repaints([this] { control.setValue(std::nan("")); }));
}

TEST_F(RedrawOfSlider, ForARange) {
  EXPECT_EQ(0.0, control.value());
  EXPECT_TRUE(repaints([this] { control.setRange(-36.0, 10.0); }));
  EXPECT_EQ(0.0, control.value());
}

TEST_F(RedrawOfSlider, ForTheFocusRingAfterAKeyThatMovesNothing) {
  control.setValue(36.0);
  EXPECT_TRUE(repaints([this] { QTest::keyClick(&control, Qt::Key_End); }));
  EXPECT_EQ(36.0, control.value());
}

TEST_F(RedrawOfSlider, ForItsCell) {
  EXPECT_TRUE(repaints([this] { control.cell()->setSliderEnabled(true); }));
  EXPECT_TRUE(repaints([this] { control.cell()->setIsVertical(true); }));
  EXPECT_TRUE(repaints([this] { control.setCell(std::make_shared<J4SliderCell>()); }));
  J4GainSlider other;
  EXPECT_TRUE(repaints([&] { other.setCell(control.cell()); })) << "it has gone";
  EXPECT_EQ(nullptr, control.cell());
  control.setCell(std::make_shared<J4SliderCell>());
  EXPECT_TRUE(repaints([this] { control.setCell(nullptr); }));
}

// While it is held it is marked wherever the pointer is.
TEST_F(RedrawOfSlider, ForAReleaseBesideTheKnob) {
  control.cell()->setIsVertical(true);
  const QPointF knob = control.knobRect().center();
  const QPointF beside = knob + QPointF(40, 0);
  Hands::press(control, knob);
  Hands::move(control, beside);
  EXPECT_TRUE(repaints([&] { Hands::release(control, beside); }));
  EXPECT_FALSE(repaints([&] { Hands::hover(control, beside); }));
}

struct RedrawOfScale : Redraw<GainTickTitle> {
  RedrawOfScale() : Redraw({50, 300}) {}
};

TEST_F(RedrawOfScale, ForItsLabelsAndLook) {
  control.setTexts({"36", "0", "-36"});
  EXPECT_TRUE(repaints([this] { control.initTick(); }));
  EXPECT_TRUE(repaints([this] { control.setEnable(true); }));
  EXPECT_TRUE(repaintsForAFont());
  EXPECT_FALSE(repaints([this] { control.setTexts({"1", "2"}); }));
}

struct RedrawOfMeter : Redraw<LevelMeter> {
  RedrawOfMeter() : Redraw({16, 260}) {}
};

TEST_F(RedrawOfMeter, ForALevelThatShows) {
  EXPECT_TRUE(repaints([this] { control.setLevel(24); }));
  EXPECT_FALSE(repaints([this] { control.setLevel(24); }));
  EXPECT_TRUE(repaints([this] { control.setLevel(0); }));
}

TEST_F(RedrawOfMeter, OfPartsMakesTheWhole) {
  control.setMaxValue(54);
  for (const int level : {10, 54, 3, 37, 36, 90, 80, 24, 48, 49, 0, -5, 1}) {
    control.setLevel(level);
    EXPECT_TRUE(isWhole(control)) << level;
    control.setHold(level % 7 == 3 ? level + 0.4 : 50);
    EXPECT_TRUE(isWhole(control)) << level;
  }
}

struct RedrawOfPath : Redraw<PathViewer> {
  RedrawOfPath() : Redraw({200, 30}) {}
};

TEST_F(RedrawOfPath, ForItsTextAndFont) {
  EXPECT_TRUE(repaints([this] { control.setText("/takes/today"); }));
  EXPECT_TRUE(repaintsForAFont());
}

struct RedrawOfWaveform : Redraw<WaveformViewer> {
  RedrawOfWaveform() : Redraw({618, 64}) { control.setLength(300); }
};

TEST_F(RedrawOfWaveform, ForAPlayHeadThatMovesByAPixel) {
  EXPECT_TRUE(repaints([this] { control.setPosition(10); }));
  EXPECT_FALSE(repaints([this] { control.setPosition(10.001); })) << "too little to be seen";
  EXPECT_FALSE(repaints([this] { control.setPosition(std::nan("")); }));
  EXPECT_TRUE(repaints([this] { control.adjust(20, AdjustCause::Assistive); }));
}

TEST_F(RedrawOfWaveform, ForColumnsStretchAndTake) {
  WaveformColumns columns;
  columns.to = 300;
  columns.columns.assign(600, {0.5F, 0.5F, true});
  EXPECT_TRUE(repaints([&] { control.setColumns(columns); }));
  EXPECT_TRUE(repaints([this] { control.zoom(0.5, 309); }));
  EXPECT_TRUE(repaints([this] { control.scroll(10); }));
  EXPECT_TRUE(repaints([this] { control.showAll(); }));
  EXPECT_FALSE(repaints([this] { control.showAll(); }));
  EXPECT_TRUE(repaints([this] { control.setLength(20); }));
  EXPECT_TRUE(repaints([this] { control.setEnabled(false); }));
}

TEST_F(RedrawOfWaveform, ForMarks) {
  const LoopMarks::Marks marks{100, 200};
  EXPECT_TRUE(repaints([&] { control.setMarks(marks); }));
  EXPECT_FALSE(repaints([&] { control.setMarks(marks); }));
  EXPECT_TRUE(repaints([this] { control.setMarks(std::nullopt); }));
  Hands::press(control, {100, 5});
  EXPECT_TRUE(repaints([this] { Hands::move(control, {200, 5}); }));
  EXPECT_TRUE(repaints([this] { Hands::release(control, {200, 5}); })) << "nobody has taken them";
  EXPECT_FALSE(control.marks().has_value());
}

TEST_F(RedrawOfWaveform, ForADragThatADialogEnds) {
  Hands::press(control, {100, 5});
  Hands::move(control, {200, 5});
  EXPECT_TRUE(repaints([this] {
    QEvent dialog(QEvent::WindowBlocked);
    QApplication::sendEvent(&control, &dialog);
  })) << "nobody has taken the marks";
  EXPECT_FALSE(control.marks().has_value());
}

TEST_F(RedrawOfWaveform, ForThePointerAndTheFocusRing) {
  EXPECT_TRUE(repaints([this] { Hands::move(control, {100, 30}); }));
  EXPECT_FALSE(repaints([this] { Hands::move(control, {100, 40}); })) << "the same time";
  EXPECT_TRUE(repaints([this] {
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&control, &leave);
  }));
  EXPECT_TRUE(repaints([this] { QTest::keyClick(&control, Qt::Key_Home); }));
  control.setFocus();
  ASSERT_TRUE(control.hasFocus());
  EXPECT_TRUE(repaints([this] { control.clearFocus(); }));
}

TEST_F(RedrawOfMeter, ForAHoldThatMovesByAPixel) {
  EXPECT_TRUE(repaints([this] { control.setHold(30); }));
  EXPECT_FALSE(repaints([this] { control.setHold(30.01); }));
  EXPECT_TRUE(repaints([this] { control.setHold(-1); }));
  EXPECT_FALSE(repaints([this] { control.setHold(std::nan("")); }));
}

struct RedrawOfLamp : Redraw<ClipLamp> {
  RedrawOfLamp() : Redraw({40, 24}) {}
};

TEST_F(RedrawOfLamp, ForAFigureAndForItsLight) {
  PeakHold peak;
  peak.add(0.5);
  EXPECT_TRUE(repaints([&] { control.setPeak(peak); }));
  peak.add(0.5001);
  EXPECT_FALSE(repaints([&] { control.setPeak(peak); })) << "the same tenth";
  peak.add(1.0);
  control.setPeak(peak);
  peak.add(1.00001);
  EXPECT_TRUE(repaints([&] { control.setPeak(peak); })) << "lit";
  EXPECT_TRUE(repaints([this] { control.setEnabled(false); }));
}

struct RedrawOfScope : Redraw<StereoScope> {
  RedrawOfScope() : Redraw({144, 144}) {}
};

TEST_F(RedrawOfScope, ForPointsAndWhileTheyFade) {
  const std::vector<float> frames = {0.5F, 0.25F};
  EXPECT_FALSE(repaints([this] { control.advance({}, 0.03); })) << "dark stays dark";
  EXPECT_TRUE(repaints([&] { control.advance(frames, 0.03); }));
  EXPECT_TRUE(repaints([this] { control.advance({}, 0.03); }));
  EXPECT_TRUE(repaints([this] { control.clear(); }));
  EXPECT_FALSE(repaints([this] { control.clear(); }));
  EXPECT_TRUE(repaints([this] { control.setEnabled(false); }));
}

struct RedrawOfCorrelation : Redraw<CorrelationBar> {
  RedrawOfCorrelation() : Redraw({144, 30}) {}
};

TEST_F(RedrawOfCorrelation, ForAValueThatMovesByAPixel) {
  EXPECT_TRUE(repaints([this] { control.setValue(0.5); }));
  EXPECT_FALSE(repaints([this] { control.setValue(0.5001); }));
  EXPECT_TRUE(repaints([this] { control.setValue(std::nullopt); }));
}

TEST_F(RedrawOfCorrelation, OfPartsMakesTheWhole) {
  for (const double value : {0.0, 1.0, 0.93, -0.4, -1.0, -0.31, 0.05, 0.12, 0.07, -0.06}) {
    control.setValue(value);
    EXPECT_TRUE(isWhole(control)) << value;
  }
  control.setValue(std::nullopt);
  EXPECT_TRUE(isWhole(control));
  control.setValue(0.4);
  EXPECT_TRUE(isWhole(control));
}

TEST(RedrawOfFigure, ForAnotherTenthNoteOrLook) {
  FigureLine line("Momentary", "LUFS");
  Hands::show(line, {144, 18});
  EXPECT_TRUE(repaints(line, [&] { line.setFigure(-23.1); }));
  EXPECT_FALSE(repaints(line, [&] { line.setFigure(-23.12); }));
  EXPECT_TRUE(repaints(line, [&] { line.setNote("43 %"); }));
  EXPECT_FALSE(repaints(line, [&] { line.setNote("43 %"); }));
  EXPECT_TRUE(repaints(line, [&] { line.setLook(FigureLine::Look::Over); }));
  EXPECT_TRUE(repaints(line, [&] { line.setFigure(std::nullopt); }));
  EXPECT_TRUE(repaints(line, [&] { line.setEnabled(false); }));
}

/// Keys that nothing but the rings is for.
struct RedrawOfRings : testing::Test {
  RedrawOfRings() {
    KeyRings::install(*qApp);
    window.setStyleSheet("QPushButton[keys=true] { border: 2px solid blue; }");
    list.addItem("R0001.WAV");
    button.move(0, 100);
    Hands::show(window, {300, 200});
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  /// Of one that has the keyboard by a click.
  static bool isPaintedForTheFirstKey(QWidget& widget, QWidget& painted) {
    QTest::mouseClick(&painted, Qt::LeftButton);
    const bool comes = repaints(painted, [&] { QTest::keyClick(&widget, Qt::Key_F5); });
    const bool stays = !repaints(painted, [&] { QTest::keyClick(&widget, Qt::Key_F5); });
    return comes && stays;
  }

  QWidget window;
  QListWidget list{&window};
  QPushButton button{&window};
};

TEST_F(RedrawOfRings, ForAKey) {
  EXPECT_TRUE(isPaintedForTheFirstKey(button, button));
  EXPECT_TRUE(isPaintedForTheFirstKey(list, *list.viewport()));
}

}  // namespace
