// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/SavePanel.h"

#include <QAbstractFileIconProvider>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>
#include <utility>

#include "DialogFixture.h"
#include "controls/Artwork.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Existing = AtomicFile::Existing;

class SavePanelTest : public DialogFixture {
 protected:
  SavePanelTest() {
    _panel = new SavePanel(path("R0001_Decode.WAV"), path("R0001.WAV"), nullptr);
    QObject::connect(_panel, &SavePanel::chosen, _panel,
                     [this](const std::filesystem::path& path, Existing how) {
                       _chosen.emplace_back(path.string(), how);
                     });
    _panel->open();
  }
  void type(const std::string& text) {
    edit()->setText(QString::fromStdString(text));
    QTest::keyClick(edit(), Qt::Key_Return);
  }
  QLineEdit* edit() { return _panel->findChild<QLineEdit*>("fileNameEdit"); }
  std::pair<std::string, Existing> choice(const std::string& name, Existing how) const {
    return {path(name).string(), how};
  }
  void expectTheWholeQuestion(const std::string& name) {
    take(name);
    type(name);
    auto* const question = waitForShown<QMessageBox>();
    ASSERT_NE(question, nullptr);
    const auto* const text = question->findChild<QLabel*>("qt_msgbox_label");
    const QRect place = text->contentsRect();
    const int flags = text->wordWrap() ? int{Qt::TextWordWrap} : 0;
    const QRect needed =
        text->fontMetrics().boundingRect({0, 0, place.width(), 1000}, flags, text->text());
    EXPECT_LE(needed.width(), place.width()) << text->text().toStdString();
    EXPECT_LE(needed.height(), place.height()) << text->text().toStdString();
    EXPECT_TRUE(question->rect().contains(text->geometry()));
  }
  bool isGone() {
    return waitUntil([&] { return _panel.isNull(); });
  }

  QPointer<SavePanel> _panel;
  std::vector<std::pair<std::string, Existing>> _chosen;
};

TEST(SavePanelSuffix, IsAddedUnlessItIsThereInAnyCase) {
  const std::pair<const char*, const char*> cases[] = {{"/t/take1.wav", "/t/take1.wav"},
                                                       {"/t/take1.WAV", "/t/take1.WAV"},
                                                       {"/t/take1.wAv", "/t/take1.wAv"},
                                                       {"/t/take1", "/t/take1.WAV"},
                                                       {"/t/take1.mp3", "/t/take1.mp3.WAV"},
                                                       {"/t/take1wav", "/t/take1wav.WAV"},
                                                       {"/t/take1.", "/t/take1..WAV"},
                                                       {"", ".WAV"},
                                                       {"abc", "abc.WAV"},
                                                       {".wav", ".wav.WAV"},
                                                       {"a.wav", "a.wav"},
                                                       {"/t/.wav", "/t/.wav"}};
  for (const auto& [path, wanted] : cases) {
    EXPECT_EQ(QString(wanted), SavePanel::withSuffix(path)) << path;
  }
}

TEST_F(SavePanelTest, HasItsTextsAndProposal) {
  EXPECT_EQ(QString("Saving checkboard..."), _panel->windowTitle());
  EXPECT_TRUE(labels(*_panel).contains("Please select a path where to save decoded wav."));
  EXPECT_EQ(QString("R0001_Decode"), edit()->text()) << "the extension is hidden";
  EXPECT_EQ(_folder.path().string(), _panel->directory().absolutePath().toStdString());
  EXPECT_EQ(QFileDialog::AcceptSave, _panel->acceptMode());
  EXPECT_EQ(QStringList("WAV files (*.wav)"), _panel->nameFilters());
  EXPECT_FALSE(_panel->testOption(QFileDialog::ReadOnly));  // folders may be created
  EXPECT_TRUE(_panel->testOption(QFileDialog::DontUseNativeDialog));
}

TEST_F(SavePanelTest, ReturnTakesTheProposal) {
  QTest::keyClick(edit(), Qt::Key_Return);
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(choice("R0001_Decode.WAV", Existing::Refuse)));
}

TEST_F(SavePanelTest, CompletesWhatWasTyped) {
  type("take1.mp3");
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(choice("take1.mp3.WAV", Existing::Refuse)));
}

TEST_F(SavePanelTest, EscapeChoosesNothing) {
  QTest::keyClick(_panel, Qt::Key_Escape);
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, IsEmpty());
}

TEST_F(SavePanelTest, AFolderIsOpenedNotChosen) {
  std::filesystem::create_directory(path("inner"));
  type(path("inner").string());
  ASSERT_TRUE(_panel);
  EXPECT_TRUE(_panel->isVisible());
  EXPECT_THAT(_chosen, IsEmpty());
  EXPECT_EQ(path("inner").string(), _panel->directory().absolutePath().toStdString());
}

TEST_F(SavePanelTest, AsksBeforeAFileIsReplaced) {
  take("there.WAV");
  type("there");
  auto* const question = waitForShown<QMessageBox>();
  EXPECT_TRUE(question->text().contains("there.WAV"));
  EXPECT_EQ(QString("Cancel"), question->defaultButton()->text().remove('&'));
  click(*question, "Cancel");
  EXPECT_TRUE(waitUntil([] { return shown<QMessageBox>() == nullptr; }));
  ASSERT_TRUE(_panel);
  EXPECT_TRUE(_panel->isVisible());
  EXPECT_THAT(_chosen, IsEmpty());
  type("there");
  click(*waitForShown<QMessageBox>(), "Replace");
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(choice("there.WAV", Existing::Replace)));
}

TEST_F(SavePanelTest, TheQuestionIsShownWhole) {
  expectTheWholeQuestion("R0001_Decode.WAV");
}

TEST_F(SavePanelTest, TheQuestionOfALongNameIsShownWhole) {
  expectTheWholeQuestion(std::string(200, 'w') + ".WAV");
}

TEST_F(SavePanelTest, HasThePicturesAndTheButtonOfTheProgram) {
  EXPECT_TRUE(button(*_panel, "Save")->property("primary").toBool());
  const auto isOurs = [this](const char* name, const char* picture) {
    const QSize size(16, 16);
    return _panel->findChild<QToolButton*>(name)->icon().pixmap(size).toImage() ==
           Artwork::icon(picture).pixmap(size).toImage();
  };
  EXPECT_TRUE(isOurs("toParentButton", "go_up"));
  EXPECT_TRUE(isOurs("backButton", "back"));
  EXPECT_TRUE(isOurs("forwardButton", "forward"));
  EXPECT_TRUE(isOurs("newFolderButton", "new_folder"));
  for (const char* const stock : {"listModeButton", "detailModeButton"}) {
    EXPECT_FALSE(_panel->findChild<QToolButton*>(stock)->isVisible());
  }
  const QIcon folder = _panel->iconProvider()->icon(QFileInfo("/"));
  EXPECT_EQ(folder.pixmap(16).toImage(), Artwork::icon("folder").pixmap(16).toImage());
}

TEST_F(SavePanelTest, TheQuestionGoesWithEscape) {
  take("there.WAV");
  type("there.WAV");
  QTest::keyClick(waitForShown<QMessageBox>(), Qt::Key_Escape);
  EXPECT_TRUE(waitUntil([] { return shown<QMessageBox>() == nullptr; }));
  EXPECT_THAT(_chosen, IsEmpty());
  EXPECT_TRUE(_panel && _panel->isVisible());
}

TEST_F(SavePanelTest, DoesNotAskAboutTheSource) {
  take("R0001.WAV");
  type("R0001.WAV");
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(choice("R0001.WAV", Existing::Refuse)));
}

}  // namespace
