// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TransferPanel.h"

#include <sys/fsuid.h>
#include <unistd.h>

#include <QSignalSpy>
#include <QTest>
#include <fstream>
#include <thread>

#include "DialogFixture.h"
#include "controls/Colors.h"
#include "controls/Language.h"
#include "dialogs/TransferWork.h"
#include "support/SlowReads.h"
#include "transfer/CardCopy.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::chrono_literals;

constexpr uid_t kNobody = 65534;

/// A card with two takes, a folder for them, and a panel.
class TransferPanelTest : public DialogFixture {
 protected:
  TransferPanelTest() {
    std::filesystem::create_directories(path("card"));
    std::filesystem::create_directories(path("home"));
    put("card/a.WAV", 3'000'001);
    put("card/b.WAV", 1000);
  }
  ~TransferPanelTest() override { SlowReads::reset(); }

  void put(const std::string& name, std::size_t bytes) const {
    _folder.file(name, std::vector<std::byte>(bytes, std::byte{7}));
  }
  TransferPanel& open(const TransferPanel::Maker& make) {
    showMainWindow();
    _panel = new TransferPanel({"Copy card", "Copy", "Takes"}, make, _mainWindow.get());
    _panel->setClock([this] { return _now; });
    return *_panel;
  }
  TransferPanel& openCopy() {
    open([](const auto& places) { return TransferWork::copy(places[0], places[1]); });
    _panel->addPlace("Card").setFolder(path("card"));
    _panel->addPlace("Into").setFolder(path("home"));
    _panel->show();
    return *_panel;
  }
  TransferPanel& openWork(const TransferJob::Work& work) {
    open([work](const auto&) { return work; });
    _panel->addPlace("Card").setFolder(path("card"));
    _panel->show();
    return *_panel;
  }
  /// Verifies what was copied.
  void verify() {
    open([](const auto& places) { return TransferWork::verify(places[0]); });
    _panel->addPlace("Folder").setFolder(path("home"));
    _panel->show();
    carryOut();
  }
  void begin() { click(*_panel, "Copy"); }
  void waitForEnd() {
    EXPECT_TRUE(waitUntil([this] { return !_panel->isBusy(); }));
  }
  void carryOut() {
    begin();
    waitForEnd();
  }
  [[nodiscard]] std::string text(const char* name) const {
    const auto* const label = _panel->findChild<QLabel*>(QLatin1String(name));
    return label->isVisible() ? label->text().toStdString() : "";
  }
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> all;
    const auto& list = *_panel->findChild<QListWidget*>();
    for (int row = 0; row < list.count(); ++row)
      all.push_back(list.item(row)->text().toStdString());
    return all;
  }

  QPointer<TransferPanel> _panel;
};

TEST_F(TransferPanelTest, TakesComeHomeVerifiedWithAManifest) {
  openCopy();
  EXPECT_EQ(_panel->windowTitle(), "Copy card");
  EXPECT_EQ(_panel->windowModality(), Qt::NonModal);
  const QSignalSpy shows(_panel, &TransferPanel::showInFolderRequested);
  const QSignalSpy begun(_panel, &TransferPanel::begun);
  carryOut();
  EXPECT_EQ(begun.count(), 1);
  EXPECT_THAT(lines(), ElementsAre("a.WAV: copied and verified", "b.WAV: copied and verified"));
  EXPECT_EQ(text("summary"), "2 takes are there and verified");
  EXPECT_EQ(text("complaint"), "");
  EXPECT_EQ(TemporaryFolder::read(path("home/a.WAV")), TemporaryFolder::read(path("card/a.WAV")));
  EXPECT_TRUE(std::filesystem::exists(path("home/ascmhl/ascmhl_chain.xml")));
  expectNothingCut(*_panel);
  click(*_panel, "Show in folder");
  const auto files = shows[0][0].value<std::vector<std::filesystem::path>>();
  EXPECT_THAT(files, ElementsAre(path("home/a.WAV"), path("home/b.WAV")));
  click(*_panel, "Close");
  EXPECT_TRUE(waitUntil([this] { return _panel.isNull(); }));
}

TEST_F(TransferPanelTest, NothingBeginsBeforeEveryFolderIsChosen) {
  open([](const auto& places) { return TransferWork::copy(places[0], places[1]); });
  FolderButton& card = _panel->addPlace("Card");
  FolderButton& home = _panel->addPlace("Into");
  _panel->show();
  EXPECT_EQ(card.accessibleName(), "Card");
  EXPECT_FALSE(button(*_panel, "Copy")->isEnabled());
  card.setFolder(path("card"));
  EXPECT_FALSE(button(*_panel, "Copy")->isEnabled());
  home.setFolder(path("home"));
  EXPECT_TRUE(button(*_panel, "Copy")->isEnabled());
  EXPECT_EQ(home.text(), "home");
  EXPECT_EQ(home.toolTip().toStdString(), path("home").string());
  expectNothingCut(*_panel);
}

TEST_F(TransferPanelTest, TheKeyboardGoesFromTheFoldersToTheButtons) {
  openCopy();
  _panel->activateWindow();
  QStringList stops;
  for (int i = 0; i < 4; ++i) {
    ASSERT_TRUE(waitUntil([&] { return QApplication::focusWidget() != nullptr; }));
    stops << qobject_cast<QPushButton*>(QApplication::focusWidget())->text();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(stops.join('|'), "card|home|Cancel|Copy");
}

TEST_F(TransferPanelTest, WhatIsThereIsKeptAndWhatDiffersIsTold) {
  std::filesystem::copy(path("card/a.WAV"), path("home/a.WAV"));
  put("home/b.WAV", 999);
  openCopy();
  carryOut();
  EXPECT_THAT(lines(),
              ElementsAre("a.WAV: there already",
                          "b.WAV differs: The take has 1000 bytes, the file that is there 999"));
  EXPECT_EQ(text("summary"), "1 of 2 takes are there and verified");
  const auto& list = *_panel->findChild<QListWidget*>();
  EXPECT_NE(list.item(0)->foreground().color(), Colors::warning());
  EXPECT_EQ(list.item(1)->foreground().color(), Colors::warning());
  EXPECT_TRUE(list.wordWrap()) << "a long line is whole";
}

TEST_F(TransferPanelTest, ACardThatIsPulledOutEndsTheCopyClearly) {
  SlowReads::give(path("card"), 1'500'000);
  openCopy();
  begin();
  EXPECT_TRUE(waitUntil([this] { return _panel->findChild<QProgressBar*>()->value() > 0; }));
  std::filesystem::remove_all(path("card"));
  SlowReads::pullOut();
  waitForEnd();
  EXPECT_THAT(lines(), ElementsAre("a.WAV was not copied: Input/output error"));
  EXPECT_EQ(text("summary"), "0 of 2 takes are there and verified");
  EXPECT_EQ(text("complaint"),
            "The card is gone. What was copied stays; the next copy goes on from there.");
  EXPECT_THAT(_folder.names(), ElementsAre("home")) << "half a take stays nowhere";
  expectNothingCut(*_panel);
}

TEST_F(TransferPanelTest, ThatTheManifestCannotBeWrittenEitherIsTold) {
  put("card/0.WAV", 1000);
  SlowReads::give(path("card"), 1'500'000);
  openCopy();
  begin();
  EXPECT_TRUE(waitUntil([this] { return lines().size() == 1; }));
  std::filesystem::rename(path("home/ascmhl"), path("elsewhere"));
  put("home/ascmhl", 0);
  std::filesystem::remove_all(path("card"));
  SlowReads::pullOut();
  waitForEnd();
  EXPECT_EQ(text("summary"), "1 of 3 takes are there and verified");
  EXPECT_EQ(text("complaint"),
            "The card is gone. The manifest cannot be written: Not a directory. What was copied "
            "stays; the next copy goes on from there.");
  expectNothingCut(*_panel);
}

TEST_F(TransferPanelTest, ACopyThatIsCancelledSaysHowItGoesOn) {
  SlowReads::give(path("card"), 1'500'000);
  openCopy();
  begin();
  EXPECT_TRUE(waitUntil([this] { return _panel->findChild<QProgressBar*>()->value() > 0; }));
  click(*_panel, "Cancel");
  EXPECT_EQ(text("state"), "Cancelling");
  EXPECT_FALSE(button(*_panel, "Cancel")->isEnabled());
  SlowReads::reset();
  waitForEnd();
  EXPECT_EQ(text("complaint"),
            "Cancelled. What was copied stays; the next copy goes on from there.");
}

TEST_F(TransferPanelTest, WhatCannotBeginMayBeginElsewhere) {
  std::filesystem::remove_all(path("card"));
  std::filesystem::create_directories(path("card"));
  openCopy();
  carryOut();
  EXPECT_EQ(text("complaint"), "The card holds no takes.");
  EXPECT_THAT(lines(), IsEmpty());
  EXPECT_TRUE(_panel->findChild<FolderButton*>()->isEnabled());
  expectNothingCut(*_panel);
  put("card/a.WAV", 10);
  carryOut();
  EXPECT_THAT(lines(), ElementsAre("a.WAV: copied and verified"));
  EXPECT_EQ(text("complaint"), "");
}

TEST_F(TransferPanelTest, TellsSpeedAndTimeLeft) {
  openWork([](TransferJob::Desk& desk) {
    desk.tell({60'000'000, 100'000'000, 50'000'000, 1, 3});
    while (!desk.cancel()) std::this_thread::yield();
    return TransferJob::End{false, "Over", "No space left on device."};
  });
  begin();
  _now = 10s;
  EXPECT_TRUE(waitUntil([this] { return !text("state").empty(); }));
  EXPECT_EQ(text("state"), "5.0 MB/s · About 8 s left");
  EXPECT_EQ(text("summary"), "1 of 3 takes");
  EXPECT_EQ(_panel->findChild<QProgressBar*>()->value(), 600);
  expectNothingCut(*_panel);
  _panel->reject();
  EXPECT_FALSE(_panel->isVisible()) << "it works on";
  EXPECT_TRUE(_panel->isBusy());
  _panel->cancel();
  waitForEnd();
  EXPECT_TRUE(_panel->isVisible()) << "the end is shown";
  EXPECT_EQ(text("complaint"), "No space left on device.");
}

TEST_F(TransferPanelTest, TheSpeedOfACopyIsThatAtWhichTakesComeHome) {
  SlowReads::give(path("card"), 3'000'001);  // the first take, and none of the second
  openCopy();
  begin();
  _now = 1s;
  EXPECT_TRUE(waitUntil([this] { return text("summary") == "1 of 2 takes"; }));
  EXPECT_THAT(text("state"), testing::StartsWith("3.0 MB/s"));
  SlowReads::reset();
  waitForEnd();
}

TEST_F(TransferPanelTest, AFolderIsHeldToItsManifest) {
  openCopy();
  carryOut();
  verify();
  EXPECT_EQ(text("summary"), "2 files are right");
  EXPECT_THAT(lines(), IsEmpty());
  put("home/a.WAV", 3'000'000);
  put("home/c.WAV", 5);
  std::filesystem::remove(path("home/b.WAV"));
  verify();
  EXPECT_EQ(text("summary"), "0 right, 3 not");
  EXPECT_THAT(lines(), ElementsAre("a.WAV has changed: 3000000 bytes, not 3000001", "c.WAV is new",
                                   "b.WAV is missing"));
}

TEST_F(TransferPanelTest, BesideACopyAFolderMayBeVerifiedLater) {
  openCopy();
  carryOut();
  {
    CardCopy copy(path("card"), path("home"));
    ASSERT_EQ(copy.prepare(), "");
    verify();
    EXPECT_EQ(text("complaint"), "A copy is at work there.");
    expectNothingCut(*_panel);
  }
  carryOut();
  EXPECT_EQ(text("summary"), "2 files are right");
}

TEST_F(TransferPanelTest, CancelledWhileItListsItMayBeginAgain) {
  for (const auto& work :
       {TransferWork::copy(path("card"), path("home")), TransferWork::verify(path("home"))}) {
    openWork([work](TransferJob::Desk& desk) {
      while (!desk.cancel()) std::this_thread::yield();
      return work(desk);
    });
    begin();
    _panel->cancel();
    waitForEnd();
    EXPECT_EQ(text("complaint"), "Cancelled.");
    EXPECT_TRUE(button(*_panel, "Copy")->isVisible());
  }
  EXPECT_TRUE(std::filesystem::is_empty(path("home")));
}

TEST_F(TransferPanelTest, AManifestThatWasChangedIsComplainedOf) {
  openCopy();
  carryOut();
  for (const auto& entry : std::filesystem::directory_iterator(path("home/ascmhl"))) {
    if (entry.path().extension() == ".mhl") std::ofstream(entry.path(), std::ios::app) << "\n";
  }
  verify();
  EXPECT_EQ(text("summary"), "2 right, 0 not");
  EXPECT_EQ(text("complaint"), "The manifest itself is not right.");
  expectNothingCut(*_panel);
}

TEST_F(TransferPanelTest, ACardThatCannotBeListedWhollyIsComplainedOf) {
  using std::filesystem::perms;
  std::filesystem::create_directories(path("card/hidden"));
  put("card/hidden/c.WAV", 5);
  std::filesystem::permissions(path("card/hidden"), perms::none);
  std::filesystem::permissions(_folder.path(), perms::all);
  std::filesystem::permissions(path("home"), perms::all);
  openCopy();
  setfsuid(kNobody);  // root may list everything; the thread of the copy has it from this one
  begin();
  setfsuid(geteuid());
  waitForEnd();
  std::filesystem::permissions(path("card/hidden"), perms::all);
  EXPECT_EQ(text("summary"), "2 of 2 takes are there and verified");
  EXPECT_EQ(text("complaint"), "Not everything could be listed.");
  EXPECT_THAT(lines(), testing::Contains(HasSubstr("card/hidden could not be listed")));
}

TEST_F(TransferPanelTest, WhatIsWrongWithAManifestIsToldInTheWindowsLanguage) {
  openCopy();
  carryOut();
  std::ofstream(path("home/ascmhl/ascmhl_chain.xml")) << "<other/>";
  Language::use(QStringLiteral("de"));
  verify();
  Language::use(QStringLiteral("en"));
  EXPECT_THAT(lines(), ElementsAre("Das Manifest stimmt nicht: ascmhl_chain.xml: es ist keine "
                                   "solche Liste"));
}

TEST_F(TransferPanelTest, AFolderWithoutAManifestCannotBeVerified) {
  verify();
  EXPECT_EQ(text("complaint"), "It has no manifest (ascmhl).");
  EXPECT_TRUE(button(*_panel, "Copy")->isVisible());
}

}  // namespace
