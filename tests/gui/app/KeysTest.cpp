// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QSet>
#include <QTest>

#include "WindowFixture.h"
#include "base/Utility.h"
#include "dialogs/HelpVC.h"

namespace {

/// What keys do in the window, pressed where the keyboard is.
class Keys : public WindowFixture {
 protected:
  static constexpr std::uint32_t kFrames = 15 * 48'000;

  void openPaused() {
    take("R0001.WAV", kFrames);
    startOnTakes();
    open("R0001.WAV");
    controller().btnPlay_Click();
    ASSERT_EQ(state(), PLAY_STATE_PAUSE);
    ASSERT_EQ(QApplication::focusWidget(), view().browser->tableFile);
  }
  static void press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
  }
  /// The keys that a menu names, and those in it.
  static QStringList keysOf(const QMenu& menu) {
    QStringList keys;
    for (const QAction* const action : menu.actions()) {
      if (action->menu() != nullptr) keys += keysOf(*action->menu());
      const QString named = action->text().section(u'\t', 1);
      keys += named.isEmpty() ? action->shortcut().toString(QKeySequence::NativeText) : named;
    }
    keys.removeAll(QString());
    return keys;
  }
  void give(QWidget* keyboard) {
    keyboard->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(QApplication::focusWidget(), keyboard);
  }
};

TEST_F(Keys, GoThroughTheTakeFromTheList) {
  openPaused();
  press(Qt::Key_Right);
  press(Qt::Key_Right);
  EXPECT_EQ(player().curremtTime(), 2.0);
  press(Qt::Key_Left);
  EXPECT_EQ(player().curremtTime(), 1.0);
  press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(player().curremtTime(), 11.0);
  press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(player().curremtTime(), 1.0);
  EXPECT_EQ(view().player->waveform->position(), 1.0);
  EXPECT_EQ(selected(), "R0001.WAV") << "the list keeps its row";
}

TEST_F(Keys, HomeSelectsTheFirstRowOfAListThatGetsTheKeyboard) {
  take("R0001.WAV");
  take("R0002.WAV");
  startOnTakes();
  give(view().player->btnMenu);
  give(view().browser->tableFile);
  ASSERT_EQ(selected(), "");
  press(Qt::Key_Home);
  EXPECT_EQ(selected(), "R0001.WAV");
}

TEST_F(Keys, GoThroughTheTakeFromAButtonThatKeepsTheKeyboard) {
  openPaused();
  give(view().player->btnExport);
  press(Qt::Key_Right);
  EXPECT_EQ(player().curremtTime(), 1.0);
  EXPECT_EQ(QApplication::focusWidget(), view().player->btnExport);
  press(Qt::Key_Home);
  EXPECT_EQ(player().curremtTime(), 0.0);
  EXPECT_EQ(state(), PLAY_STATE_PAUSE);
  press(Qt::Key_End);
  EXPECT_EQ(state(), PLAY_STATE_FINISH);
}

TEST_F(Keys, TurnGainAndWidth) {
  openPaused();
  give(view().player->btnExport);
  press(Qt::Key_Up);
  press(Qt::Key_Up);
  press(Qt::Key_Down);
  EXPECT_EQ(player().gain(), 1);
  EXPECT_EQ(stage().lblGainValue->text(), "+1 dB");
  give(view().browser->tableFile);
  press(Qt::Key_BracketRight);
  press(Qt::Key_BracketRight);
  press(Qt::Key_BracketLeft);
  EXPECT_EQ(player().angle(), 5);
  EXPECT_EQ(stage().sliderStereo->angle(), 5.0);
  EXPECT_EQ(QApplication::focusWidget(), view().browser->tableFile);
}

TEST_F(Keys, AreThoseOfTheControlThatWantsThem) {
  openPaused();
  give(stage().sliderStereo);
  press(Qt::Key_Right);
  EXPECT_EQ(player().angle(), 1);
  EXPECT_EQ(player().curremtTime(), 0.0);
  give(stage().sliderGain);
  press(Qt::Key_Home);
  EXPECT_EQ(player().gain(), -36);
}

TEST_F(Keys, DoNothingWithoutATake) {
  startOnTakes();
  for (const int key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Home, Qt::Key_End, Qt::Key_Up,
                        Qt::Key_Down, Qt::Key_BracketRight, Qt::Key_BracketLeft}) {
    give(view().browser->btnGoUp);
    press(key);
    EXPECT_EQ(QApplication::focusWidget(), view().browser->btnGoUp);
  }
  EXPECT_EQ(stage().sliderGain->value(), 0.0);
  EXPECT_EQ(stage().sliderStereo->angle(), 0.0);
}

TEST_F(Keys, TurnOnlyTheGainOfATakeThatIsStereo) {
  take("R0001.WAV", kFrames, false);
  startOnTakes();
  open("R0001.WAV");
  view().menu->actionWider->trigger();
  view().menu->actionLouder->trigger();
  EXPECT_EQ(stage().sliderStereo->angle(), 0.0);
  EXPECT_EQ(player().gain(), 1);
}

TEST_F(Keys, ClearPeaksAndTheirLamps) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  setGain(12);
  play(400);
  letLevelsArrive();
  controller().updateLevelMeter(0.033);
  ASSERT_TRUE(stage().clipLeft->isLit());
  press(Qt::Key_K, Qt::ControlModifier);
  EXPECT_FALSE(stage().clipLeft->isLit());
  EXPECT_FALSE(stage().clipRight->isLit());
}

TEST_F(Keys, AllStandOnThePageThatF1Shows) {
  startOnTakes();
  press(Qt::Key_F1);
  auto* const page = view().findChild<HelpVC*>();
  ASSERT_NE(page, nullptr);
  ASSERT_TRUE(page->isVisible());
  QSet<QString> texts;
  for (const QLabel* const label : page->findChildren<QLabel*>()) texts.insert(label->text());
  for (const char* const key :
       {"Space", "Left", "Right", "Shift+Left", "Shift+Right", "Home", "End", "Up", "Down", "[",
        "]", "L", "M", "S", "Ctrl+O", "Ctrl+E", "Ctrl+K", "F1"}) {
    EXPECT_TRUE(texts.contains(QLatin1String(key))) << key;
  }
  const QStringList keys = keysOf(*view().menu);
  EXPECT_GE(keys.size(), 18);
  for (const QString& key : keys) EXPECT_TRUE(texts.contains(key)) << key.toStdString();
  EXPECT_LE(page->height(), view().height());
  QTest::keyClick(page, Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(view().findChild<HelpVC*>(), nullptr);
}

TEST_F(Keys, MetersStayByTheRuleThatWasChosen) {
  startOnTakes();
  EXPECT_FALSE(view().menu->actionMetersByRule->isChecked());
  view().menu->actionMetersByRule->trigger();
  end();
  start();
  EXPECT_TRUE(view().menu->actionMetersByRule->isChecked());
  EXPECT_EQ(stage().lblLevelValue->text(), "recorder's rule");
  view().menu->actionMetersByRule->trigger();
  end();
  start();
  EXPECT_FALSE(view().menu->actionMetersByRule->isChecked());
  EXPECT_EQ(stage().lblLevelValue->text(), "peak hold");
}

}  // namespace
