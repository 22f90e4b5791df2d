// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/SavePanel.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QToolButton>
#include <utility>

#include "DialogFixture.h"
#include "controls/Artwork.h"
#include "support/ThreadCount.h"

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
  FileList* list() { return _panel->findChild<FileList*>(); }
  QStringList rows() {
    QStringList names;
    for (int row = 0; row < list()->model()->rowCount(); ++row) {
      names << list()->model()->index(row, 0).data().toString();
    }
    return names;
  }
  std::pair<std::string, Existing> choice(const std::string& name, Existing how) const {
    return {path(name).string(), how};
  }
  void expectTheWholeQuestion(const std::string& name) {
    take(name);
    type(name);
    auto* const question = waitForShown<QMessageBox>();
    ASSERT_NE(question, nullptr);
    const auto* const text = question->findChild<QLabel*>("qt_msgbox_informativelabel");
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
  EXPECT_EQ(_folder.path(), _panel->folder());
  EXPECT_EQ(edit(), _panel->focusWidget());
}

TEST_F(SavePanelTest, ShowsFoldersAndRecordings) {
  std::filesystem::create_directory(path("inner"));
  take("there.wav");
  _folder.file("notes.txt", {});
  _panel->openFolder(_folder.path());
  EXPECT_TRUE(waitUntil([this] { return rows() == QStringList({"inner", "there.wav"}); }));
}

TEST_F(SavePanelTest, ARecordingThatIsClickedIsNamedAndAFolderIsNot) {
  std::filesystem::create_directory(path("inner"));
  take("there.WAV");
  _panel->openFolder(_folder.path());
  ASSERT_TRUE(waitUntil([this] { return rows().size() == 2; }));
  list()->selectRow(0);
  EXPECT_EQ(QString("R0001_Decode"), edit()->text());
  list()->selectRow(1);
  EXPECT_EQ(QString("there.WAV"), edit()->text());
  QTest::keyClick(edit(), Qt::Key_Return);
  EXPECT_NE(nullptr, waitForShown<QMessageBox>());
}

TEST_F(SavePanelTest, ReturnInTheListGoesIntoAFolder) {
  std::filesystem::create_directory(path("inner"));
  _panel->openFolder(_folder.path());
  ASSERT_TRUE(waitUntil([this] { return rows().size() == 1; }));
  list()->setFocus();
  list()->selectRow(0);
  QTest::keyClick(list(), Qt::Key_Return);
  EXPECT_EQ(path("inner"), _panel->folder());
  EXPECT_EQ(QString("R0001_Decode"), edit()->text());
}

// A view whose current row goes makes the next one current.
TEST_F(SavePanelTest, TheNameStaysOnTheWayThroughFoldersOfTakes) {
  std::filesystem::create_directory(path("inner"));
  for (const char* const name : {"R0001.WAV", "R0002.WAV"}) take(name);
  _panel->openFolder(_folder.path());
  ASSERT_TRUE(waitUntil([this] { return rows().size() == 3; }));
  list()->setFocus();
  list()->selectRow(0);
  QTest::keyClick(list(), Qt::Key_Return);
  EXPECT_EQ(path("inner"), _panel->folder());
  EXPECT_EQ(QString("R0001_Decode"), edit()->text());
  ASSERT_TRUE(waitUntil([this] { return rows().empty(); }));
  EXPECT_EQ(QString("R0001_Decode"), edit()->text());
}

TEST_F(SavePanelTest, GoesUpBackAndForward) {
  const auto way = [this](const char* name) { return _panel->findChild<QToolButton*>(name); };
  EXPECT_FALSE(way("backButton")->isEnabled());
  QTest::mouseClick(way("toParentButton"), Qt::LeftButton);
  EXPECT_EQ(_folder.path().parent_path(), _panel->folder());
  ASSERT_TRUE(QTest::qWaitForWindowExposed(_panel));
  QApplication::setActiveWindow(_panel);
  QTest::keyClick(_panel, Qt::Key_Left, Qt::AltModifier);
  EXPECT_TRUE(waitUntil([this] { return _panel->folder() == _folder.path(); }));
  EXPECT_FALSE(way("backButton")->isEnabled());
  QTest::mouseClick(way("forwardButton"), Qt::LeftButton);
  EXPECT_EQ(_folder.path().parent_path(), _panel->folder());
  EXPECT_FALSE(way("forwardButton")->isEnabled());
  _panel->openFolder("/");
  EXPECT_FALSE(way("toParentButton")->isEnabled());
}

TEST_F(SavePanelTest, MakesAFolderAndGoesIntoIt) {
  QTest::mouseClick(_panel->findChild<QToolButton*>("newFolderButton"), Qt::LeftButton);
  auto* const question = waitForShown<QInputDialog>();
  question->setTextValue("new");
  question->accept();
  EXPECT_TRUE(waitUntil([this] { return _panel->folder() == path("new"); }));
  EXPECT_TRUE(std::filesystem::is_directory(path("new")));
}

TEST_F(SavePanelTest, SaysWhyAFolderCannotBeMade) {
  QTest::mouseClick(_panel->findChild<QToolButton*>("newFolderButton"), Qt::LeftButton);
  auto* const question = waitForShown<QInputDialog>();
  question->setTextValue("none/new");
  question->accept();
  EXPECT_TRUE(waitUntil([this] {
    return labels(*_panel).contains("“new” cannot be made: No such file or directory");
  }));
  EXPECT_EQ(_folder.path(), _panel->folder());
}

TEST_F(SavePanelTest, RefusesANameThatNoFileSystemTakes) {
  type(std::string(252, 'w') + ".WAV");
  EXPECT_TRUE(labels(*_panel).contains("The name is too long."));
  type("");
  EXPECT_TRUE(_panel && _panel->isVisible());
  EXPECT_THAT(_chosen, IsEmpty());
}

TEST_F(SavePanelTest, SaysWhatCannotBeRead) {
  _panel->openFolder(path("none"));
  EXPECT_TRUE(waitUntil([this] {
    return labels(*_panel).contains("“none” cannot be read: No such file or directory");
  }));
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

// The thread that looks ends once its answer was heard, or given up.
TEST_F(SavePanelTest, AnotherNameGivesUpTheLookForTheOneBefore) {
  take("there.WAV");
  _panel->openFolder(_folder.path());
  ASSERT_TRUE(waitUntil([this] { return rows().size() == 1; }));
  const std::size_t before = ThreadCount::now();
  type("old");
  QTest::keyClicks(edit(), "er");
  EXPECT_TRUE(waitUntil([&] { return ThreadCount::now() <= before; }));
  ASSERT_TRUE(_panel);
  type("older");
  list()->selectRow(0);
  EXPECT_TRUE(waitUntil([&] { return ThreadCount::now() <= before; }));
  ASSERT_TRUE(_panel);
  EXPECT_THAT(_chosen, IsEmpty());
  EXPECT_TRUE(_panel->isVisible());
  type("new");
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(choice("new.WAV", Existing::Refuse)));
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
  EXPECT_TRUE(waitUntil([this] { return _panel->folder() == path("inner"); }));
  EXPECT_TRUE(_panel->isVisible());
  EXPECT_THAT(_chosen, IsEmpty());
  EXPECT_EQ(QString("R0001_Decode"), edit()->text());
}

TEST_F(SavePanelTest, AsksBeforeAFileIsReplaced) {
  take("there.WAV");
  type("there");
  auto* const question = waitForShown<QMessageBox>();
  EXPECT_TRUE(question->informativeText().contains("there.WAV"));
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
