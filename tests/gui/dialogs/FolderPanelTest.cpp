// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/FolderPanel.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>
#include <semaphore>
#include <utility>

#include "DialogFixture.h"
#include "support/ThreadCount.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FolderPanelTest : public DialogFixture {
 protected:
  void openPanel(FolderLister::Look look = FolderLister::answerTo) {
    _panel = new FolderPanel(nullptr, std::move(look));
    QObject::connect(_panel, &FolderPanel::chosen, _panel,
                     [this](const std::filesystem::path& folder) { _chosen.push_back(folder); });
    _panel->openFolder(_folder.path());
    _panel->open();
    QApplication::setActiveWindow(_panel);
  }
  QLineEdit* edit() { return _panel->findChild<QLineEdit*>(); }
  FileList* list() { return _panel->findChild<FileList*>(); }
  bool hasRows(int count) {
    return waitUntil([this, count] { return list()->model()->rowCount() == count; });
  }
  bool says(const QString& text) {
    return waitUntil([&] { return labels(*_panel).contains(text); });
  }
  bool isGone() {
    return waitUntil([this] { return _panel.isNull(); });
  }

  QPointer<FolderPanel> _panel;
  std::vector<std::filesystem::path> _chosen;
};

TEST_F(FolderPanelTest, ShowsFoldersAlone) {
  std::filesystem::create_directory(path("inner"));
  std::filesystem::create_directory(path(".hidden"));
  take("R0001.WAV");
  openPanel();
  ASSERT_TRUE(hasRows(1));
  EXPECT_EQ(QString("inner"), list()->model()->index(0, 0).data().toString());
}

TEST_F(FolderPanelTest, WithoutANameItIsTheFolderThatIsShown) {
  openPanel();
  click(*_panel, "Choose");
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(_folder.path()));
}

TEST_F(FolderPanelTest, AFolderOfTheListIsChosenByItsBytes) {
  std::filesystem::create_directory(path("takes\xFC"));
  openPanel();
  ASSERT_TRUE(hasRows(1));
  list()->selectRow(0);
  QTest::keyClick(edit(), Qt::Key_Return);
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, ElementsAre(path("takes\xFC")));
}

TEST_F(FolderPanelTest, ADoubleClickGoesIntoAFolder) {
  std::filesystem::create_directory(path("inner"));
  openPanel();
  ASSERT_TRUE(hasRows(1));
  const QRect row = list()->visualRect(list()->model()->index(0, 0));
  QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
  QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, row.center());
  EXPECT_EQ(path("inner"), _panel->folder());
  EXPECT_EQ(QString(), edit()->text());
  EXPECT_THAT(_chosen, IsEmpty());
}

TEST_F(FolderPanelTest, RefusesWhatIsNoFolder) {
  openPanel();
  _folder.file("file", {});
  for (const char* const name : {"file", "none"}) {
    edit()->setText(name);
    click(*_panel, "Choose");
    EXPECT_TRUE(says(QString("“%1” is no folder.").arg(name)));
  }
  EXPECT_THAT(_chosen, IsEmpty());
}

// The thread that looks ends once its answer was heard, or given up.
TEST_F(FolderPanelTest, AnotherNameGivesUpTheLookForTheOneBefore) {
  std::filesystem::create_directory(path("inner"));
  openPanel();
  ASSERT_TRUE(hasRows(1));
  const std::size_t before = ThreadCount::now();
  edit()->setText("inner");
  click(*_panel, "Choose");
  QTest::keyClicks(edit(), "most");
  EXPECT_TRUE(waitUntil([&] { return ThreadCount::now() <= before; }));
  EXPECT_THAT(_chosen, IsEmpty());
  EXPECT_TRUE(_panel && _panel->isVisible());
}

TEST_F(FolderPanelTest, EscapeChoosesNothing) {
  openPanel();
  QTest::keyClick(_panel, Qt::Key_Escape);
  EXPECT_TRUE(isGone());
  EXPECT_THAT(_chosen, IsEmpty());
}

// One folder hangs; what it is left by is answered all the same.
TEST_F(FolderPanelTest, AFolderThatHangsIsToldOfAndCanBeLeft) {
  const auto door = std::make_shared<std::counting_semaphore<2>>(0);
  openPanel([door, hanging = path("hanging")](const FolderLister::Question& question) {
    if (question.folder == hanging) door->acquire();
    return FolderLister::answerTo(question);
  });
  std::filesystem::create_directory(path("hanging"));
  _panel->openFolder(path("hanging"));
  EXPECT_TRUE(says("Reading “hanging”…"));
  QTest::keyClick(_panel, Qt::Key_Up, Qt::AltModifier);
  EXPECT_TRUE(hasRows(1));
  EXPECT_FALSE(labels(*_panel).contains("Reading “hanging”…"));
  _panel->openFolder(path("hanging"));
  QTest::keyClick(_panel, Qt::Key_Escape);
  EXPECT_TRUE(isGone());
  door->release(2);
}

}  // namespace
