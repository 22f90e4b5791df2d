// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Pictures of the window beside each other: what was used and put back looks, to the pixel, as it
// did when the window was new.

#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

#include "WindowFixture.h"
#include "app/MeasuredTake.h"

namespace {

using testing::Contains;
using testing::IsEmpty;

class Reference : public WindowFixture {
 protected:
  void SetUp() override {
    take("R0001.WAV");
    take("R0002.WAV", 240'000);
    startOnTakes();
  }
  void TearDown() override { end(); }

  /// As somebody leaves it who does nothing more with list, pointer and keyboard.
  QImage picture() {
    waitFor([this] { return areRowsKnown(); }, "what is known of each row");
    view().browser->tableFile->selectRow(-1);
    view().browser->tableFile->setFocus(Qt::OtherFocusReason);
    view().menu->actionClearPeaks->trigger();
    controller().findChild<QTimer*>("timerTurned")->start(0);  // what a width costs goes
    waitFor([this] { return !stage().cost->isVisible(); }, "its end");
    QCoreApplication::processEvents();
    return view().grab().toImage();
  }
  [[nodiscard]] bool areRowsKnown() const {
    const QAbstractItemModel& model = *view().browser->tableFile->model();
    for (int row = 0; row < model.rowCount(); ++row) {
      const QString told = model.index(row, 0).data(Qt::AccessibleDescriptionRole).toString();
      if (!told.contains(u':')) return false;  // no length yet
    }
    return true;
  }
  /// The take, paused at its beginning, measured through.
  void load(const std::string& name) {
    open(name);
    controller().btnPlay_Click();
    ASSERT_EQ(state(), PLAY_STATE_PAUSE);
    const auto* const measured = controller().findChild<MeasuredTake*>();
    ASSERT_NE(measured, nullptr);
    waitFor([measured] { return measured->progress() == 1; }, "the whole take");
    // What it was half way goes with the per cent beside it.
    waitFor([this] { return isLoudnessWhole(); }, "the loudness");
    waitFor([this] { return !view().player->waveform->columns().columns.empty(); }, "the waveform");
  }
  [[nodiscard]] bool isLoudnessWhole() const {
    const FigureLine& loudness = *stage().field->wholeTake;
    return loudness.figure().has_value() && !loudness.figureText().contains(u'%');
  }
  /// What one does with a take: listen, turn, zoom, loop, solo, look closely, jump about.
  void use(const std::string& name) {
    open(name);
    play(300);
    setSound(60, 12);
    WaveformViewer& wave = *view().player->waveform;
    for (int i = 0; i < 6; ++i) Hands::wheel(wave, 120);
    Hands::move(wave, {wave.width() / 2.0, wave.height() / 2.0});
    QTest::mouseClick(view().player->btnSoloSide, Qt::LeftButton);
    controller().take().setLoop(FrameLoop{48'000, 96'000});
    play(300);
    QTest::keyClick(&wave, Qt::Key_End);
    QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
    QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&wave, &leave);
  }

  /// Width and gain carry over from take to take.
  void setSound(double width, double gain) {
    stage().sliderStereo->setNewAngle(width);
    setGain(gain);
  }

  /// The named widgets in which two pictures of the window differ; the outermost of each.
  [[nodiscard]] std::vector<std::string> different(const QImage& one, const QImage& other) const {
    std::vector<std::string> names;
    if (one.size() != other.size()) return {"the size"};
    for (const QWidget* const widget : view().findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->accessibleName().isEmpty()) continue;
      const QRect place = placeOf(*widget, one);
      if (one.copy(place) != other.copy(place)) {
        names.push_back(widget->accessibleName().toStdString());
      }
    }
    if (names.empty() && one != other) names.emplace_back("what has no name");
    return names;
  }

 private:
  [[nodiscard]] QRect placeOf(const QWidget& widget, const QImage& picture) const {
    const double scale = picture.devicePixelRatio();
    const QPointF corner = QPointF(widget.mapTo(&view(), QPoint(0, 0))) * scale;
    return QRectF(corner, QSizeF(widget.size()) * scale).toAlignedRect() & picture.rect();
  }
};

TEST_F(Reference, AWindowThatWasUsedLooksLikeANewOne) {
  const double width = stage().sliderStereo->angle();
  const QImage fresh = picture();
  use("R0001.WAV");
  EXPECT_THAT(different(fresh, picture()), Contains("Waveform")) << "it shows that it is used";
  setSound(width, 0);
  controller().take().close();
  EXPECT_THAT(different(fresh, picture()), IsEmpty());
}

TEST_F(Reference, ATakeAfterAnotherLooksAsItDidAtFirst) {
  load("R0002.WAV");
  const double width = stage().sliderStereo->angle();
  const double gain = stage().sliderGain->value();
  const QImage fresh = picture();
  use("R0001.WAV");
  load("R0002.WAV");
  setSound(width, gain);
  EXPECT_THAT(different(fresh, picture()), IsEmpty());
}

TEST_F(Reference, WhatIsNotPutBackIsFound) {
  const double width = stage().sliderStereo->angle();
  const QImage fresh = picture();
  use("R0001.WAV");
  setSound(width, 0);
  controller().take().close();
  view().player->btnLoop->setChecked(true);
  EXPECT_THAT(different(fresh, picture()), Contains("Loop"));
  view().player->btnLoop->setChecked(false);
  stage().lblLevelValue->setText("something else");
  EXPECT_THAT(different(fresh, picture()), Contains("what has no name"));
}

}  // namespace
