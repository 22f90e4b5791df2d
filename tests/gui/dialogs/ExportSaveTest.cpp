// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include "DialogFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ExportSaveTest : public DialogFixture {
 protected:
  /// What a job with the settings of `job()` writes.
  std::vector<std::byte> wanted(bool is24bit, bool isNormalized) const {
    const auto job = this->job();
    EXPECT_TRUE(job->export2File(path("wanted.WAV"), is24bit, isNormalized));
    const auto samples = samplesOf(path("wanted.WAV"));
    std::filesystem::remove(path("wanted.WAV"));
    return samples;
  }
  std::vector<std::string> done(const std::string& name) const {
    return {"EB_RELOAD_FILE_LIST", "exported " + path(name).string()};
  }
};

TEST_F(ExportSaveTest, TheProposalIsBesideTheSource) {
  const auto dialog = openExport(job());
  click(*dialog, "Save");
  auto* const edit = waitForShown<SavePanel>()->findChild<QLineEdit*>("fileNameEdit");
  EXPECT_EQ(QString("R0001_Decode"), edit->text());
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(done("R0001_Decode.WAV"), told(dialog));
  EXPECT_EQ(wanted(true, false), samplesOf(path("R0001_Decode.WAV")));
  EXPECT_EQ(nullptr, shown<QMessageBox>());
}

TEST_F(ExportSaveTest, ThePanelStartsInTheFolderOfTheList) {
  std::filesystem::create_directory(path("list"));
  const auto job = this->job();
  job->setDirPath(path("list"));
  const auto dialog = openExport(job);
  click(*dialog, "Save");
  QTest::keyClick(waitForShown<SavePanel>()->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  EXPECT_EQ(done("list/R0001_Decode.WAV"), told(dialog));
  EXPECT_TRUE(std::filesystem::exists(path("list/R0001_Decode.WAV")));
}

TEST_F(ExportSaveTest, TheDialogIsGoneBeforeTheEventComes) {
  _held.hold();
  const auto dialog = openExport(job());
  saveAs(*dialog, "out");
  EXPECT_EQ(nullptr, shown<ExportVC>());
  EXPECT_TRUE(_queue->isBusy());
  EXPECT_THAT(_told, IsEmpty());
  _held.releaseAll();
  EXPECT_EQ(done("out.WAV"), told(dialog));
  EXPECT_FALSE(_queue->isBusy());
}

TEST_F(ExportSaveTest, RecordingTimeAndMarkersAreKeptWhereThatIsChosen) {
  for (const bool isKept : {false, true}) {
    const auto dialog = openExport(job());
    dialog->findChild<QCheckBox*>("checkboxKeep")->setChecked(isKept);
    saveAs(*dialog, isKept ? "kept" : "plain");
    told(dialog);
  }
  EXPECT_EQ(job()->outputSize(true), std::filesystem::file_size(path("plain.WAV")));
  EXPECT_EQ(job()->outputSize(true) + job()->keptBytes(),
            std::filesystem::file_size(path("kept.WAV")));
}

TEST_F(ExportSaveTest, FormatAndNormaliseAreHonoured) {
  for (const bool is24bit : {true, false}) {
    for (const bool isNormalized : {true, false}) {
      _told.clear();
      const std::string name = is24bit ? "a.wav" : "b.wav";
      std::filesystem::remove(path(name));
      const auto dialog = openExport(job());
      if (!is24bit) {
        for (auto* const radio : dialog->findChildren<QRadioButton*>()) {
          if (radio->text() == "32-bit Float") radio->setChecked(true);
        }
      }
      dialog->findChild<QCheckBox*>()->setChecked(isNormalized);
      saveAs(*dialog, name);
      EXPECT_EQ(done(name), told(dialog));
      EXPECT_EQ(wanted(is24bit, isNormalized), samplesOf(path(name)));
    }
  }
}

TEST_F(ExportSaveTest, TheOptionsThatAreOnAreLogged) {
  const auto plain = openExport(job());
  saveAs(*plain, "plain");
  told(plain);
  EXPECT_THAT(_log.get(), Contains("24 bit is = ON"));
  EXPECT_THAT(_log.get(), Not(Contains("Normalize is = ON")));
  const auto normalized = openExport(job());
  normalized->findChild<QCheckBox*>()->setChecked(true);
  saveAs(*normalized, "normalized");
  told(normalized);
  EXPECT_THAT(_log.get(), Contains("Normalize is = ON"));
}

TEST_F(ExportSaveTest, CancellingThePanelLeavesTheDialog) {
  const auto dialog = openExport(job());
  click(*dialog, "Save");
  QPointer<SavePanel> panel(waitForShown<SavePanel>());
  click(*panel, "Cancel");
  EXPECT_TRUE(waitUntil([&] { return panel.isNull(); }));
  ASSERT_TRUE(dialog);
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_THAT(_told, IsEmpty());
  EXPECT_FALSE(_queue->isBusy());
  EXPECT_THAT(_folder.names(), ElementsAre("R0001.WAV"));
}

// The window may close its job as soon as the dialog is there; gain and width are taken down then.
TEST_F(ExportSaveTest, TheJobMayBeClosedMeanwhile) {
  const auto wanted = this->wanted(true, false);
  const auto job = this->job();
  const auto dialog = openExport(job);
  job->setGain(-20);
  job->setAngle(3);
  job->cleanUp();
  saveAs(*dialog, "out");
  EXPECT_EQ(done("out.WAV"), told(dialog));
  EXPECT_EQ(wanted, samplesOf(path("out.WAV")));
}

TEST_F(ExportSaveTest, AnExistingFileIsReplacedWhenTheUserAgrees) {
  _folder.file("out.WAV", {std::byte{1}});
  const auto dialog = openExport(job());
  saveAs(*dialog, "out");
  click(*waitForShown<QMessageBox>(), "Replace");
  EXPECT_EQ(done("out.WAV"), told(dialog));
  EXPECT_EQ(wanted(true, false), samplesOf(path("out.WAV")));
}

TEST_F(ExportSaveTest, NamesInOtherScriptsAreKept) {
  const auto job = std::make_shared<Export>(take("Übung 録音.WAV"));
  const auto dialog = openExport(job);
  click(*dialog, "Save");
  QTest::keyClick(waitForShown<SavePanel>()->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  EXPECT_EQ(done("Übung 録音_Decode.WAV"), told(dialog));
}

TEST_F(ExportSaveTest, NamesThatAreNoTextAreKeptToTheByte) {
  std::filesystem::create_directory(path("takes\xFC"));
  const auto dialog = openExport(std::make_shared<Export>(take("takes\xFC/\xC4lpen.WAV")));
  click(*dialog, "Save");
  QTest::keyClick(waitForShown<SavePanel>()->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
  EXPECT_EQ(done("takes\xFC/\xC4lpen_Decode.WAV"), told(dialog));
  EXPECT_TRUE(std::filesystem::exists(path("takes\xFC/\xC4lpen_Decode.WAV")));
}

}  // namespace
