// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <filesystem>

#include "WindowFixture.h"
#include "controls/Colors.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/QueuePanel.h"
#include "export/Export.h"
#include "support/SlowReads.h"

namespace {

using testing::ElementsAre;

/// Three takes of one, two and three seconds, and a folder, in the list.
class Selecting : public WindowFixture {
 protected:
  static constexpr std::uint32_t kSecond = 48'000;

  void SetUp() override {
    folder("Bells");
    take("a.WAV", kSecond);
    take("b.WAV", 2 * kSecond);
    take("c.WAV", 3 * kSecond);
    startOnTakes();
  }
  [[nodiscard]] FileList& list() const { return *view().browser->tableFile; }
  [[nodiscard]] QWidget& bar() const { return *view().browser->viewSelectionBG; }
  void click(const std::string& name, Qt::KeyboardModifiers modifiers = {}) {
    const QModelIndex index = list().model()->index(rowOf(name), 0);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers,
                      list().visualRect(index).center());
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&list(), key, modifiers);
  }
  void waitForBar(const QString& text) {
    waitFor([&] { return bar().isVisible() && view().browser->lblSelection->text() == text; },
            text.toUtf8().constData());
  }
  /// Presses the bar's button and takes the dialog as it is.
  void exportSelected() {
    QTest::mouseClick(view().browser->btnExportSelected, Qt::LeftButton);
    auto* const dialog = shown<BatchDialog>();
    ASSERT_NE(dialog, nullptr);
    auto* const begin = dialog->findChild<QPushButton*>(QStringLiteral("export"));
    waitFor([&] { return begin->isEnabled(); }, "the plan");
    QTest::mouseClick(begin, Qt::LeftButton);
    ASSERT_NE(shown<QueuePanel>(), nullptr);
  }
  [[nodiscard]] std::vector<std::byte> samplesOf(const char* name) const {
    const auto bytes = TemporaryFolder::read(takes.path() / name);
    constexpr std::ptrdiff_t kFirstSample = 748;
    return {bytes.begin() + std::min(kFirstSample, std::ssize(bytes)), bytes.end()};
  }
  void waitForNoBar() {
    waitFor([this] { return !bar().isVisible(); }, "no bar");
  }
};

TEST_F(Selecting, BarTellsOfSeveralTakesHowManyAndHowLong) {
  EXPECT_FALSE(bar().isVisible());
  const QRect before = list().geometry();
  click("a.WAV");
  click("c.WAV", Qt::ShiftModifier);
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV", "c.WAV"));
  waitForBar("3 takes · 00:00:06");
  EXPECT_EQ(view().browser->btnExportSelected->text(), "Export 3…");
  EXPECT_LT(list().height(), before.height());
  click("b.WAV", Qt::ControlModifier);
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "c.WAV"));
  waitForBar("2 takes · 00:00:04");
  click("b.WAV");
  waitForNoBar();
  QCoreApplication::processEvents();
  EXPECT_EQ(list().geometry(), before) << "to the pixel as it was";
}

TEST_F(Selecting, BarTellsOfWhatHasChangedAndWhatCannotBeReadHasNoLength) {
  file("broken.WAV");
  take("b.WAV", 7 * kSecond);
  refresh();
  press(Qt::Key_A, Qt::ControlModifier);
  waitForBar("4 takes · 00:00:11");
}

TEST_F(Selecting, BarWaitsForTheRowsAndForNoMedium) {
  SlowReads::share(takes.path().string(), 1);
  take("d.WAV", 4 * kSecond);
  file("e.WAV");
  refresh();
  press(Qt::Key_A, Qt::ControlModifier);
  waitForBar("5 takes · …");
  SlowReads::reset();
  waitForBar("5 takes · 00:00:10");
}

TEST_F(Selecting, AllAreSelectedByTheirKeyAndFoldersDoNotCount) {
  press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_THAT(allSelected(), ElementsAre("Bells", "a.WAV", "b.WAV", "c.WAV"));
  waitForBar("3 takes · 00:00:06");
  click("Bells");
  click("a.WAV", Qt::ControlModifier);
  waitForNoBar();
  EXPECT_THAT(allSelected(), ElementsAre("Bells", "a.WAV"));
}

TEST_F(Selecting, TheKeyboardSelectsAndTheSpaceBarStaysThePlayers) {
  click("a.WAV");
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV"));
  press(Qt::Key_Down, Qt::ControlModifier);
  press(Qt::Key_Space);
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV"));
  press(Qt::Key_Space, Qt::ControlModifier);
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV", "c.WAV"));
}

TEST_F(Selecting, ReturnAndDoubleClickOpenTheCurrentOne) {
  click("c.WAV");
  click("a.WAV", Qt::ShiftModifier);
  waitForTake([this] { press(Qt::Key_Return); });
  EXPECT_EQ(controller().take().name(), "a.WAV");
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV", "c.WAV"));
  waitForTake([this] { doubleClickRow("b.WAV"); });
  EXPECT_EQ(controller().take().name(), "b.WAV");
  EXPECT_THAT(allSelected(), ElementsAre("b.WAV"));
}

TEST_F(Selecting, SeveralStaySelectedThroughARefreshAndWhatVanishesGoes) {
  click("c.WAV");
  click("a.WAV", Qt::ShiftModifier);
  waitForBar("3 takes · 00:00:06");
  take("Z.WAV", kSecond);
  refresh();
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV", "c.WAV"));
  EXPECT_EQ(selected(), "a.WAV") << "the current one";
  std::filesystem::remove(takes.path() / "b.WAV");
  refresh();
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "c.WAV"));
  waitForBar("2 takes · 00:00:04");
  std::filesystem::remove(takes.path() / "a.WAV");
  refresh();
  EXPECT_THAT(allSelected(), ElementsAre("c.WAV"));
  waitForNoBar();
}

TEST_F(Selecting, AnotherFolderHasNoBar) {
  press(Qt::Key_A, Qt::ControlModifier);
  waitForBar("3 takes · 00:00:06");
  controller().openFolder(takes.path() / "Bells");
  waitForNoBar();
}

TEST_F(Selecting, SeveralLookDifferentFromOne) {
  click("a.WAV");
  const auto groundOf = [this](const std::string& name) {
    QCoreApplication::processEvents();
    const QRect row = list().visualRect(list().model()->index(rowOf(name), 0));
    return list()
        .viewport()
        ->grab(QRect(row.left() + 8, row.center().y(), 1, 1))
        .toImage()
        .pixel(0, 0);
  };
  const QRgb one = groundOf("a.WAV");
  EXPECT_EQ(QColor(one), Colors::selection());
  click("b.WAV", Qt::ShiftModifier);
  EXPECT_EQ(QColor(groundOf("a.WAV")), Colors::severalSelected());
  click("a.WAV");
  EXPECT_EQ(groundOf("a.WAV"), one);
}

TEST_F(Selecting, AreExportedTogetherAtTheDialsWidth) {
  stage().sliderStereo->setAngle(75.0);
  controller().angleViewer(stage().sliderStereo, 75.0);
  setGain(-3);
  click("a.WAV");
  click("b.WAV", Qt::ShiftModifier);
  waitForBar("2 takes · 00:00:03");
  exportSelected();
  waitFor([this] { return rows().size() == 6; }, "the exports");
  waitFor([this] { return !controller().exportQueue().isBusy(); }, "the end");
  refresh();
  EXPECT_THAT(rows(),
              ElementsAre("Bells", "a.WAV", "a_Decode.WAV", "b.WAV", "b_Decode.WAV", "c.WAV"));
  EXPECT_THAT(allSelected(), ElementsAre("a.WAV", "b.WAV")) << "they stay selected";
  Export job(takes.path() / "a.WAV");
  job.setAngle(75);
  job.setGain(-3);
  ASSERT_TRUE(job.export2File(takes.path() / "wanted.WAV", true, false));
  EXPECT_EQ(samplesOf("a_Decode.WAV"), samplesOf("wanted.WAV"));
  EXPECT_EQ(shown<QMessageBox>(), nullptr);
}

TEST_F(Selecting, AreExportedWhileAnotherTakePlays) {
  open("c.WAV");
  click("a.WAV");
  click("b.WAV", Qt::ShiftModifier);
  waitForBar("2 takes · 00:00:03");
  exportSelected();
  waitFor([this] { return !controller().exportQueue().isBusy(); }, "the end");
  EXPECT_EQ(controller().take().name(), "c.WAV");
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  EXPECT_TRUE(std::filesystem::exists(takes.path() / "b_Decode.WAV"));
}

}  // namespace
