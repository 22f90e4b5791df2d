// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "WindowFixture.h"
#include "base/EB.h"
#include "base/Utility.h"
#include "base/Version.h"
#include "dialogs/AboutVC.h"
#include "dialogs/FolderPanel.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"

namespace {

using testing::ElementsAre;

class Browsing : public WindowFixture {
 protected:
  [[nodiscard]] QString folderName() const { return view().browser->lblFolder->text(); }
  void waitForFolder(const std::filesystem::path& path) {
    waitFor([&] { return controller().folderHelper()->folderPath() == path; }, path.c_str());
  }
};

TEST_F(Browsing, FirstStartShowsTheDesktopAndTheIntroduction) {
  const auto desktop = own.home.path() / "Desktop";
  std::filesystem::create_directory(desktop);
  start();
  EXPECT_EQ(controller().urlOfFileList(), desktop);
  EXPECT_EQ(folderName(), "Desktop");
  auto* const introduction = shown<IntroductionVC>();
  ASSERT_NE(introduction, nullptr);
  EXPECT_FALSE(introduction->fromMenu());
  EXPECT_EQ(introduction->versionString(), controller().versionString());
  EXPECT_EQ(introduction->parentFrame(), view().frameGeometry());
}

TEST_F(Browsing, IntroducesAVersionUntilItsBoxIsTicked) {
  startOnTakes();
  EXPECT_EQ(shown<IntroductionVC>(), nullptr);
  end();
  Utility::store(Utility::kDoNotShowAgain, std::string(kVersion) + ".another");
  start();
  EXPECT_NE(shown<IntroductionVC>(), nullptr);
}

TEST_F(Browsing, VersionIsVersionAndBuildNumber) {
  startOnTakes();
  EXPECT_EQ(controller().versionString().toStdString(), std::string(kVersion) + "." + kBuildNumber);
}

TEST_F(Browsing, BeginsWhereItEndedAndLooksEveryFiveSeconds) {
  take("R0001.WAV", 10);
  startOnTakes();
  EXPECT_EQ(controller().urlOfFileList(), takes.path());
  EXPECT_EQ(folderName().toStdString(), takes.path().filename());
  EXPECT_EQ(view().browser->lblFolder->toolTip(), folderName());
  EXPECT_THAT(rows(), ElementsAre("R0001.WAV"));
  const auto* const timer = controller().findChild<QTimer*>("timerUpdateFolder");
  EXPECT_TRUE(timer->isActive());
  EXPECT_FALSE(timer->isSingleShot());
  EXPECT_EQ(timer->interval(), 5000);
}

TEST_F(Browsing, ShowsTheDesktopWhileTheFolderIsGone) {
  const auto desktop = own.home.path() / "Desktop";
  std::filesystem::create_directory(desktop);
  const auto vanishing = folder("vanishing");
  startOnTakes();
  doubleClickRow("vanishing");
  waitForFolder(vanishing);
  std::filesystem::remove(vanishing);
  refresh();
  EXPECT_EQ(folderName(), "Desktop");
  EXPECT_EQ(view().browser->lblFolder->toolTip(), "Desktop");
  EXPECT_EQ(controller().urlOfFileList(), vanishing);
  EXPECT_EQ(Utility::getStringValue(Utility::kLastOpenFolder), vanishing.string());
  std::filesystem::create_directory(vanishing);
  refresh();
  EXPECT_EQ(folderName(), "vanishing");
}

TEST_F(Browsing, FolderThatCannotBeReadIsAnEmptyListAndAQuietLine) {
  Utility::store(Utility::kLastOpenFolder, take("R0001.WAV", 10).string());
  start();
  EXPECT_THAT(rows(), ElementsAre());
  EXPECT_EQ(view().player->lblStatus->text(), "“R0001.WAV” cannot be read: Not a directory");
  EXPECT_THAT(log.get(), testing::Contains("eeee"));
}

TEST_F(Browsing, NoDesktopEitherIsTheHomeFolder) {
  Utility::store(Utility::kLastOpenFolder, "/no/such/folder");
  std::filesystem::create_directory(own.home.path() / "Music");
  start();
  EXPECT_THAT(rows(), ElementsAre("Music"));
  EXPECT_EQ(folderName().toStdString(), own.home.path().filename());
  EXPECT_EQ(view().player->lblStatus->text(), "");
}

TEST_F(Browsing, GoesIntoFoldersAndUpAgain) {
  const auto inner = folder("Bells");
  std::filesystem::create_directory(inner / "Deep");
  startOnTakes();
  doubleClickRow("Bells");
  waitForFolder(inner);
  EXPECT_THAT(rows(), ElementsAre("Deep"));
  EXPECT_EQ(folderName(), "Bells");
  EXPECT_EQ(Utility::getStringValue(Utility::kLastOpenFolder), inner.string());
  QTest::mouseClick(view().browser->btnGoUp, Qt::LeftButton);
  waitForFolder(takes.path());
  EXPECT_THAT(rows(), ElementsAre("Bells"));
  EXPECT_EQ(controller().urlOfFileList(), takes.path());
}

TEST_F(Browsing, GoingUpToAVanishedParentDoesNothing) {
  const auto inner = folder("Bells/Deep");
  startOnTakes();
  doubleClickRow("Bells");
  waitForFolder(inner.parent_path());
  doubleClickRow("Deep");
  waitForFolder(inner);
  std::filesystem::remove_all(inner.parent_path());
  QTest::mouseClick(view().browser->btnGoUp, Qt::LeftButton);
  waitForLook();
  refresh();
  EXPECT_EQ(controller().urlOfFileList(), inner);
  EXPECT_EQ(Utility::getStringValue(Utility::kLastOpenFolder), inner.string());
}

TEST_F(Browsing, RootHasNothingAboveIt) {
  Utility::store(Utility::kLastOpenFolder, "/");
  start();
  EXPECT_EQ(folderName(), "/");
  QTest::mouseClick(view().browser->btnGoUp, Qt::LeftButton);
  EXPECT_EQ(controller().urlOfFileList(), "/");
}

TEST_F(Browsing, ReturnOpensWhatIsSelected) {
  const auto inner = folder("Bells");
  startOnTakes();
  QTest::keyClick(view().browser->tableFile, Qt::Key_Return);
  EXPECT_EQ(controller().urlOfFileList(), takes.path()) << "nothing is selected";
  clickRow("Bells");
  QTest::keyClick(view().browser->tableFile, Qt::Key_Return);
  waitForFolder(inner);
}

TEST_F(Browsing, ReturnWorksWhereverTheFocusIs) {
  const auto inner = folder("Bells");
  startOnTakes();
  clickRow("Bells");
  view().player->sliderVolume->setFocus();
  QTest::keyClick(view().player->sliderVolume, Qt::Key_Return);
  waitForFolder(inner);
}

TEST_F(Browsing, VanishedEntryDoesNothing) {
  const auto path = take("R0001.WAV", 10);
  startOnTakes();
  clickRow("R0001.WAV");
  std::filesystem::remove(path);
  controller().table_cell_double_click();
  waitForLook();
  EXPECT_EQ(controller().wavPlayer(), nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Browsing, SelectionFollowsTheName) {
  for (const char* name : {"b.wav", "d.wav"}) file(name);
  startOnTakes();
  clickRow("d.wav");
  for (const char* name : {"a.wav", "c.wav"}) file(name);
  refresh();
  EXPECT_THAT(rows(), ElementsAre("a.wav", "b.wav", "c.wav", "d.wav"));
  EXPECT_EQ(selected(), "d.wav");
}

TEST_F(Browsing, RenamedSelectionIsNone) {
  for (const char* name : {"a.wav", "b.wav", "c.wav"}) file(name);
  startOnTakes();
  clickRow("b.wav");
  std::filesystem::rename(takes.path() / "b.wav", takes.path() / "z.wav");
  refresh();
  EXPECT_EQ(selected(), "");
}

TEST_F(Browsing, RowThatVanishesSelectsNoOther) {
  for (const char* name : {"a.wav", "b.wav", "c.wav"}) file(name);
  startOnTakes();
  clickRow("b.wav");
  FileList& list = *view().browser->tableFile;
  QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                    list.visualRect(list.model()->index(1, 0)).center());
  ASSERT_EQ(selected(), "");
  std::filesystem::remove(takes.path() / "b.wav");
  refresh();
  EXPECT_EQ(selected(), "");
}

TEST_F(Browsing, ScrollingStaysOnRefresh) {
  for (int i = 100; i < 200; ++i) file(std::to_string(i) + ".wav");
  startOnTakes();
  waitFor([this] { return view().browser->tableFile->verticalScrollBar()->maximum() > 777; },
          "the layout");
  view().browser->tableFile->verticalScrollBar()->setValue(777);
  file("150b.wav");
  refresh();
  EXPECT_EQ(view().browser->tableFile->verticalScrollBar()->value(), 777);
  for (int i = 200; i < 300; ++i) file(std::to_string(i) + ".wav");
  refresh();
  EXPECT_EQ(view().browser->tableFile->verticalScrollBar()->value(), 777)
      << "after a change of many rows";
}

TEST_F(Browsing, ReloadEventListsAgain) {
  startOnTakes();
  file("new.wav");
  EB::FIRE(EB::kReloadFileList);
  waitFor([this] { return rows().size() == 1; }, "the new file");
}

TEST_F(Browsing, ColumnIsAsWideAsTheLongestName) {
  startOnTakes();
  EXPECT_EQ(view().browser->tableFile->columnWidth(), 31);
  const std::string longName = std::string(80, 'w') + ".wav";
  file(longName);
  file("i.wav");
  refresh();
  const QFontMetricsF metrics(view().browser->tableFile->font());
  const double width = metrics.horizontalAdvance(QString::fromStdString(longName));
  waitFor([&] { return view().browser->tableFile->columnWidth() == std::ceil(width) + 31; },
          "the width");
}

TEST_F(Browsing, LongNamesAreShortenedInTheMiddleAndNothingIsScrolledSideways) {
  const std::string take = std::string(80, 'w') + ".wav";
  const std::string exported = std::string(80, 'w') + "_Decode.wav";
  for (const std::string& name : {take, exported}) file(name);
  startOnTakes();
  const FileList& list = *view().browser->tableFile;
  waitFor([&] { return list.columnWidth() > 2 * list.viewport()->width(); }, "the measuring");
  QCoreApplication::processEvents();
  EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
  EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
  const auto drawn = [&](int row) {
    const QRect place(0, list.visualRect(list.model()->index(row, 0)).top(),
                      list.viewport()->width(), FileListCell::kHeight);
    return list.viewport()->grab(place).toImage();
  };
  EXPECT_NE(drawn(0), drawn(1)) << "a take and its export look different";
  EXPECT_EQ(list.model()->index(1, 0).data(Qt::ToolTipRole).toString().toStdString(), exported);
}

TEST_F(Browsing, OpenFolderTellsWhereItIs) {
  startOnTakes();
  EXPECT_THAT(view().browser->btnOpenFolder->toolTip().toStdString(),
              testing::HasSubstr(takes.path().string()));
  // The folder's own tip is for a name that is shortened.
  EXPECT_EQ(view().browser->lblFolder->toolTip().toStdString(), takes.path().filename().string());
}

TEST_F(Browsing, CommandLineFolderIsOpenedAndRemembered) {
  const auto inner = folder("Bells");
  start(inner.string() + "/");
  EXPECT_EQ(controller().urlOfFileList(), inner);
  EXPECT_EQ(Utility::getStringValue(Utility::kLastOpenFolder), inner.string());
}

TEST_F(Browsing, CommandLineRecordingIsSelectedAndPlays) {
  Utility::store(Utility::kDoNotShowAgain, std::string(kVersion) + "." + kBuildNumber);
  const auto path = take("R0001.WAV", 10);
  start(path);
  waitFor([this] { return controller().wavPlayer() != nullptr; }, "the recording");
  EXPECT_EQ(controller().urlOfFileList(), takes.path());
  EXPECT_EQ(selected(), "R0001.WAV");
  waitFor([this] { return controller().wavPlayer() != nullptr; }, "the take");
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
}

TEST_F(Browsing, OfRecordingsOnTheCommandLineTheFirstPlaysAndThoseBesideItAreSelected) {
  Utility::store(Utility::kDoNotShowAgain, std::string(kVersion) + "." + kBuildNumber);
  const auto elsewhere = folder("Bells") / "R0002.WAV";
  std::filesystem::copy(take("R0002.WAV"), elsewhere);
  const auto first = take("R0003.WAV");
  startWith({first, take("R0001.WAV"), elsewhere});
  waitFor([this] { return controller().take().isOpen(); }, "the take");
  EXPECT_EQ(controller().take().name(), "R0003.WAV");
  waitFor([this] { return !allSelected().empty(); }, "the rows");
  EXPECT_THAT(allSelected(), ElementsAre("R0001.WAV", "R0003.WAV"));
  EXPECT_EQ(selected(), "R0003.WAV") << "the current one";
}

TEST_F(Browsing, CommandLineRecordingWaitsForTheIntroduction) {
  start(take("R0001.WAV"));
  auto* const introduction = shown<IntroductionVC>();
  ASSERT_NE(introduction, nullptr);
  EXPECT_EQ(controller().wavPlayer(), nullptr) << "it does not play behind a dialog";
  introduction->btnOK_Click();
  waitFor([this] { return controller().wavPlayer() != nullptr; }, "the take");
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
}

TEST_F(Browsing, FolderPanelOpensThePlaceWhereItCanBeWritten) {
  startOnTakes();
  QTest::mouseClick(view().browser->lblFolder, Qt::LeftButton);
  auto* const panel = shown<FolderPanel>();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->windowTitle(), "Choose a file");
  EXPECT_TRUE(panel->isSizeGripEnabled());
  EXPECT_EQ(panel->folder(), takes.path());
}

TEST_F(Browsing, FolderPanelLeavesAPathWithASpaceToItself) {
  const auto inner = folder("two words");
  start(inner);
  controller().btnOpenFolder_Click();
  EXPECT_EQ(shown<FolderPanel>()->folder(), own.home.path());
}

TEST_F(Browsing, ChosenFolderIsOpened) {
  const auto inner = folder("Bells");
  startOnTakes();
  QTest::mouseClick(view().browser->btnOpenFolder, Qt::LeftButton);
  QTest::keyClicks(shown<FolderPanel>()->focusWidget(), "Bells");
  press(shown<FolderPanel>(), "Choose");
  waitForFolder(inner);
  EXPECT_EQ(controller().urlOfFileList(), inner);
}

TEST_F(Browsing, MenuOpensTheInformationDialogs) {
  startOnTakes();
  view().menu->actionAbout->trigger();
  ASSERT_NE(shown<AboutVC>(), nullptr);
  EXPECT_EQ(shown<AboutVC>()->versionString(), controller().versionString());
  EXPECT_EQ(shown<AboutVC>()->parentFrame(), view().frameGeometry());
  const std::string report = shown<AboutVC>()->report().toStdString();
  EXPECT_THAT(report, testing::StartsWith("TARN J4 Mixdeck " + std::string(kFullVersion) + "\n"));
  EXPECT_THAT(report, testing::HasSubstr("\nQt " + std::string(qVersion()) + " (offscreen)\n"));
  EXPECT_THAT(report, testing::ContainsRegex("\nalsa-lib [0-9]+\\.[0-9.]+\n"));
  EXPECT_THAT(report, testing::HasSubstr("\nLinux " + QSysInfo::kernelVersion().toStdString()));
  shown<AboutVC>()->close();
  view().menu->actionIntroduction->trigger();
  ASSERT_NE(shown<IntroductionVC>(), nullptr);
  EXPECT_TRUE(shown<IntroductionVC>()->fromMenu());
}

TEST_F(Browsing, OtherKeysAreSwallowed) {
  startOnTakes();
  QKeyEvent key(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
  EXPECT_TRUE(QApplication::sendEvent(&view(), &key));
  EXPECT_TRUE(key.isAccepted());
}

}  // namespace
