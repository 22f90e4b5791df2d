// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QLabel>
#include <QTest>
#include <cmath>
#include <numbers>

#include "WindowFixture.h"
#include "dialogs/ExportVC.h"

namespace {

/// Mid or Side alone; of the takes Mid is 0.5 and Side 0.25 throughout.
class SoloTest : public WindowFixture {
 protected:
  void openTake(bool isRaw = true) {
    take("R0001.WAV", 480'000, isRaw, true);
    startOnTakes();
    view().player->sliderVolume->adjust(1, AdjustCause::Key);
    open("R0001.WAV");
    stage().sliderStereo->setNewAngle(120);
    play(600);
  }
  void press(int key) { QTest::keyClick(view().browser->tableFile, Qt::Key(key)); }
  /// What is heard once what was queued has been.
  [[nodiscard]] std::pair<float, float> heard() {
    play(600);
    const std::vector<float>& samples = output->played();
    return {samples[samples.size() - 2], samples.back()};
  }
  /// Until the meters know what is heard, and so do they.
  void updateMeters() {
    const double time = player().curremtTime();
    const auto isAtHand = [&] {
      return controller().exportJob()->reader()->follow(time, time + 1.0);
    };
    waitFor(isAtHand, "the samples");
    const auto known = [this] {
      controller().updateLevelMeter(0.033);
      return stage().lvlLeft->level() > 0;
    };
    waitFor(known, "levels");
  }
  /// Where the scope has light, as its picture shows it.
  [[nodiscard]] QRect lightOfScope() const {
    const QImage picture = stage().field->scope->grab().toImage();
    constexpr int kGreener = 40;  // than anything that is grey
    QRect lit;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        const QRgb pixel = picture.pixel(x, y);
        if (qGreen(pixel) - qRed(pixel) > kGreener) lit |= QRect(x, y, 1, 1);
      }
    }
    return lit;
  }
  /// Until all of its light is at a place, in its halves from the middle, to the right and upward.
  void expectLight(double right, double up, const char* what) {
    const double half = stage().field->scope->width() / 2.0;
    const QRectF place(half + right * half - 2, half - up * half - 2, 4, 4);
    const auto isThere = [&] {
      play(40);
      const QRect lit = lightOfScope();
      return !lit.isEmpty() && place.contains(QRectF(lit));
    };
    waitFor(isThere, what);
  }
  using Pair = std::pair<float, float>;
};

TEST_F(SoloTest, IsHeardOnBothSides) {
  openTake();
  EXPECT_EQ(heard(), (Pair{0.75F, 0.25F}));
  press(Qt::Key_S);
  EXPECT_EQ(heard(), (Pair{0.25F, 0.25F}));
  EXPECT_TRUE(view().player->btnSoloSide->isChecked());
  EXPECT_TRUE(view().menu->actionSoloSide->isChecked());
  press(Qt::Key_M);
  EXPECT_EQ(heard(), (Pair{0.5F, 0.5F})) << "one takes the place of the other";
  EXPECT_TRUE(view().player->btnSoloMid->isChecked());
  EXPECT_FALSE(view().player->btnSoloSide->isChecked());
  press(Qt::Key_M);
  EXPECT_EQ(heard(), (Pair{0.75F, 0.25F}));
  EXPECT_FALSE(view().player->btnSoloMid->isChecked());
}

TEST_F(SoloTest, IsSwitchedByItsButtons) {
  openTake();
  QTest::mouseClick(view().player->btnSoloSide, Qt::LeftButton);
  EXPECT_EQ(controller().take().solo(), Solo::Side);
  QTest::mouseClick(view().player->btnSoloMid, Qt::LeftButton);
  EXPECT_EQ(controller().take().solo(), Solo::Mid);
  QTest::mouseClick(view().player->btnSoloMid, Qt::LeftButton);
  EXPECT_EQ(controller().take().solo(), Solo::None);
}

TEST_F(SoloTest, HasTheGainAndNotTheWidth) {
  openTake();
  press(Qt::Key_S);
  stage().sliderStereo->setNewAngle(0);
  EXPECT_EQ(heard(), (Pair{0.25F, 0.25F}));
  setGain(-36);
  EXPECT_LT(heard().first, 0.004F);
}

TEST_F(SoloTest, IsWhatMetersAndWaveformShow) {
  openTake();
  waitFor([this] { return view().player->waveform->columns().columns.size() > 10; }, "a picture");
  press(Qt::Key_S);
  play(400);
  updateMeters();
  EXPECT_EQ(stage().lvlLeft->level(), 36) << "0.25 is -12 dB";
  EXPECT_EQ(stage().lvlRight->level(), 36);
  const auto isSide = [this] {
    const auto& columns = view().player->waveform->columns().columns;
    return !columns.empty() && std::abs(columns[5].left - 0.25F) < 0.02F &&
           std::abs(columns[5].right - 0.25F) < 0.02F;
  };
  waitFor(isSide, "the waveform of Side");
  press(Qt::Key_M);
  const auto isMid = [this] {
    const auto& columns = view().player->waveform->columns().columns;
    return !columns.empty() && std::abs(columns[5].left - 0.5F) < 0.02F &&
           std::abs(columns[5].right - 0.5F) < 0.02F;
  };
  waitFor(isMid, "the waveform of Mid");
}

TEST_F(SoloTest, CorrelatesWithItself) {
  openTake();
  press(Qt::Key_M);
  play(400);
  const auto isOne = [this] {
    play(40);
    const auto value = stage().field->correlation->value();
    return value && *value > 0.999;
  };
  waitFor(isOne, "one signal on both sides");
}

// The same on both sides stands upright, as far from the middle as the root of it: Mid is 0.5, Side
// 0.25. Both together, 0.75 and 0.25, lean to the left.
TEST_F(SoloTest, IsWhatTheScopeShows) {
  openTake();
  controller().take().setLoop(FrameLoop{0, 480'000});  // it does not end meanwhile
  const double far = std::sqrt(std::hypot(0.75, 0.25) / std::numbers::sqrt2);
  const double turn = std::atan2(0.25, 0.75) + std::numbers::pi / 4;
  expectLight(-far * std::cos(turn), far * std::sin(turn), "Left and Right in the scope");
  press(Qt::Key_M);
  expectLight(0, std::sqrt(0.5), "Mid alone in the scope");
  press(Qt::Key_S);
  expectLight(0, std::sqrt(0.25), "Side alone in the scope");
  press(Qt::Key_S);
  expectLight(-far * std::cos(turn), far * std::sin(turn), "and both again");
}

TEST_F(SoloTest, GoesWithItsTake) {
  openTake();
  press(Qt::Key_M);
  take("R0002.WAV");
  refresh();
  open("R0002.WAV");
  EXPECT_EQ(controller().take().solo(), Solo::None);
  EXPECT_FALSE(view().player->btnSoloMid->isChecked());
}

TEST_F(SoloTest, IsNotForATakeThatIsStereo) {
  openTake(false);
  EXPECT_FALSE(view().player->btnSoloMid->isEnabled());
  EXPECT_FALSE(view().player->btnSoloSide->isEnabled());
  EXPECT_FALSE(view().menu->actionSoloMid->isEnabled());
  press(Qt::Key_S);
  controller().take().setSolo(Solo::Side);
  EXPECT_EQ(controller().take().solo(), Solo::None);
  EXPECT_EQ(heard(), (Pair{0.5F, 0.25F}));
}

TEST_F(SoloTest, ChangesNothingAboutAnExportWhichSaysSo) {
  openTake();
  const auto note = [this] {
    controller().btnExport_Click();
    auto* const dialog = view().findChild<ExportVC*>();
    bool isSaid = false;
    for (const QLabel* const label : dialog->findChildren<QLabel*>()) {
      isSaid = isSaid || (!label->isHidden() && label->text().contains("Solo"));
    }
    dialog->reject();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return isSaid;
  };
  EXPECT_FALSE(note());
  press(Qt::Key_S);
  EXPECT_TRUE(note());
}

}  // namespace
