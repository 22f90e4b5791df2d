// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QCheckBox>
#include <QTest>

#include "WindowFixture.h"
#include "dialogs/ExportVC.h"
#include "dialogs/SavePanel.h"

namespace {

/// The loop as hands and keys make it; the take has ten seconds.
class Loop : public WindowFixture {
 protected:
  static constexpr double kInRuler = 6;

  void openTake() {
    take("R0001.WAV");
    startOnTakes();
    open("R0001.WAV");
  }
  [[nodiscard]] WaveformViewer& wave() const { return *view().player->waveform; }
  [[nodiscard]] QPointF ruler(double seconds) const { return {wave().xOf(seconds), kInRuler}; }
  void drag(QPointF from, QPointF to) {
    Hands::press(wave(), from);
    Hands::move(wave(), (from + to) / 2);
    Hands::move(wave(), to);
    Hands::release(wave(), to);
  }
  void press(int key) { QTest::keyClick(view().browser->tableFile, Qt::Key(key)); }
  [[nodiscard]] std::optional<FrameLoop> loop() { return controller().take().loop(); }
  void expectLoop(double from, double to, double within = 0.05) {
    ASSERT_TRUE(loop().has_value());
    EXPECT_NEAR(static_cast<double>(loop()->first) / 48'000, from, within);
    EXPECT_NEAR(static_cast<double>(loop()->end) / 48'000, to, within);
    ASSERT_TRUE(wave().marks().has_value());
    EXPECT_DOUBLE_EQ(wave().marks()->a, static_cast<double>(loop()->first) / 48'000);
    EXPECT_DOUBLE_EQ(wave().marks()->b.value_or(0), static_cast<double>(loop()->end) / 48'000);
    EXPECT_TRUE(view().player->btnLoop->isChecked());
    EXPECT_TRUE(view().menu->actionLoop->isChecked());
  }
  void expectNone() {
    EXPECT_FALSE(loop().has_value());
    EXPECT_FALSE(wave().marks().has_value());
    EXPECT_FALSE(view().player->btnLoop->isChecked());
    EXPECT_FALSE(view().menu->actionLoop->isChecked());
  }
};

TEST_F(Loop, IsDrawnInTheRulerAndPlayedOverAndOver) {
  openTake();
  drag(ruler(3), ruler(5));
  expectLoop(3, 5);
  EXPECT_NEAR(player().curremtTime(), 3, 0.06) << "it goes there";
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  play(1900);
  EXPECT_NEAR(player().curremtTime(), 4.85, 0.15);
  play(600);
  EXPECT_NEAR(player().curremtTime(), 3.45, 0.2) << "it turned";
  EXPECT_EQ(player().underruns(), 0U);
  drag(ruler(4), ruler(4.1));
  expectLoop(4, 4.1);
}

TEST_F(Loop, GoesNowhereWhereTheTakeIsInside) {
  openTake();
  player().pause();
  wave().adjust(4, AdjustCause::Key);
  drag(ruler(5), ruler(3));
  expectLoop(3, 5);
  EXPECT_EQ(player().curremtTime(), 4.0);
  EXPECT_EQ(state(), PLAY_STATE_PAUSE);
}

TEST_F(Loop, HasMarksThatCanBeMoved) {
  openTake();
  drag(ruler(3), ruler(5));
  drag(ruler(5), ruler(7));
  expectLoop(3, 7);
  drag(ruler(3), ruler(8));
  expectLoop(7, 8);
  Hands::move(wave(), ruler(7));
  EXPECT_EQ(wave().cursor().shape(), Qt::SizeHorCursor);
  Hands::move(wave(), ruler(4));
  EXPECT_EQ(wave().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Loop, IsSetAndClearedByItsKey) {
  openTake();
  player().pause();
  wave().adjust(2, AdjustCause::Key);
  press(Qt::Key_L);
  EXPECT_FALSE(loop().has_value());
  ASSERT_TRUE(wave().marks().has_value());
  EXPECT_EQ(wave().marks()->a, 2.0);
  EXPECT_FALSE(wave().marks()->b.has_value());
  EXPECT_FALSE(view().player->btnLoop->isChecked());
  wave().adjust(6, AdjustCause::Key);
  press(Qt::Key_L);
  expectLoop(2, 6, 0);
  EXPECT_EQ(player().curremtTime(), 2.0) << "the end of the loop is outside of it";
  press(Qt::Key_L);
  expectNone();
}

TEST_F(Loop, AnAAloneIsNotMovedAndDoesNotLookAsIfItWere) {
  openTake();
  player().pause();
  wave().adjust(2, AdjustCause::Key);
  press(Qt::Key_L);
  Hands::move(wave(), ruler(2));
  EXPECT_EQ(wave().cursor().shape(), Qt::ArrowCursor);
  drag(ruler(2), ruler(4));
  expectLoop(2, 4);
  Hands::move(wave(), ruler(2));
  EXPECT_EQ(wave().cursor().shape(), Qt::SizeHorCursor);
}

TEST_F(Loop, TakesItsMarksInEitherOrder) {
  openTake();
  player().pause();
  wave().adjust(6, AdjustCause::Key);
  press(Qt::Key_L);
  wave().adjust(2, AdjustCause::Key);
  press(Qt::Key_L);
  expectLoop(2, 6, 0);
}

TEST_F(Loop, IsSetByItsButtonAndClearedByEscape) {
  openTake();
  QTest::mouseClick(view().player->btnLoop, Qt::LeftButton);
  EXPECT_FALSE(view().player->btnLoop->isChecked()) << "there is only A";
  press(Qt::Key_Escape);
  expectNone();
  QTest::mouseClick(view().player->btnLoop, Qt::LeftButton);
  play(500);
  controller().refreshUIWhenPlay();
  QTest::mouseClick(view().player->btnLoop, Qt::LeftButton);
  ASSERT_TRUE(loop().has_value());
  EXPECT_EQ(loop()->first, 0U);
  press(Qt::Key_Escape);
  expectNone();
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
}

TEST_F(Loop, LastsAtLeastAMomentWithinTheTake) {
  openTake();
  controller().take().setLoop(FrameLoop{4'800, 4'801});
  EXPECT_EQ(loop(), (FrameLoop{4'800, 7'200}));
  controller().take().setLoop(FrameLoop{479'999, 600'000});
  EXPECT_EQ(loop(), (FrameLoop{477'600, 480'000}));
}

TEST_F(Loop, GoesWithItsTake) {
  openTake();
  drag(ruler(3), ruler(5));
  take("R0002.WAV");
  refresh();
  open("R0002.WAV");
  expectNone();
  EXPECT_TRUE(view().player->btnLoop->isEnabled());
  controller().take().close();
  EXPECT_FALSE(view().player->btnLoop->isEnabled());
  press(Qt::Key_L);
  expectNone();
}

TEST_F(Loop, ClickInTheRulerSeeksAsElsewhere) {
  openTake();
  player().pause();
  Hands::press(wave(), ruler(7));
  Hands::move(wave(), ruler(7) + QPointF(2, 0));
  Hands::release(wave(), ruler(7));
  EXPECT_NEAR(player().curremtTime(), 7, 0.02);
  expectNone();
}

TEST_F(Loop, SeeksStayWhereTheyGo) {
  openTake();
  drag(ruler(3), ruler(5));
  wave().adjust(8, AdjustCause::Key);
  play(500);
  EXPECT_NEAR(player().curremtTime(), 8.46, 0.1) << "behind the loop it plays on";
  wave().adjust(2.9, AdjustCause::Key);
  play(2600);
  EXPECT_NEAR(player().curremtTime(), 3.46, 0.2) << "before the loop it plays into it";
  expectLoop(3, 5);
}

TEST_F(Loop, AfterTheEndItWaitsAtItsBeginning) {
  openTake();
  wave().adjust(10, AdjustCause::Key);
  ASSERT_EQ(state(), PLAY_STATE_FINISH);
  drag(ruler(3), ruler(5));
  EXPECT_EQ(state(), PLAY_STATE_PAUSE);
  EXPECT_NEAR(player().curremtTime(), 3, 0.06);
}

TEST_F(Loop, IsOfferedForExport) {
  openTake();
  player().pause();
  const auto offered = [this]() -> const QCheckBox* {
    controller().btnExport_Click();
    return shown<ExportVC>()->findChild<QCheckBox*>("checkboxSelection");
  };
  EXPECT_FALSE(offered()->isVisible());
  shown<ExportVC>()->reject();
  controller().take().setLoop(FrameLoop{100'001, 200'002});
  ASSERT_TRUE(offered()->isVisible());
  std::optional<ExportOrder> order;
  QObject::connect(shown<ExportVC>(), &ExportVC::ordered, &view(),
                   [&](const ExportOrder& made) { order = made; });
  shown<ExportVC>()->findChild<QCheckBox*>("checkboxSelection")->setChecked(true);
  shown<ExportVC>()->btnSave_Click();
  waitFor([] { return shown<SavePanel>() != nullptr; }, "the panel");
  WindowFixture::press(shown<SavePanel>(), "Save");
  waitFor([this] { return selected() == "R0001_Decode_A-B.WAV"; }, "the new file");
  ASSERT_TRUE(order.has_value());
  EXPECT_EQ(order->range, (FrameRange{100'001, 200'002}));
}

TEST_F(Loop, IsSeenInTheWaveform) {
  openTake();
  player().pause();
  QCoreApplication::processEvents();
  const QImage before = wave().grab().toImage();
  drag(ruler(3), ruler(5));
  const QImage after = wave().grab().toImage();
  const QPointF between(wave().xOf(4), 60);
  const QPointF outside(wave().xOf(6), 60);
  EXPECT_NE(Hands::colorAt(after, between), Hands::colorAt(before, between));
  EXPECT_EQ(Hands::colorAt(after, outside), Hands::colorAt(before, outside));
}

}  // namespace
