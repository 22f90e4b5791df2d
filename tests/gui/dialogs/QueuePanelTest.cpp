// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/QueuePanel.h"

#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

#include "DialogFixture.h"
#include "controls/Colors.h"
#include "dialogs/BatchDesk.h"
#include "dialogs/QueueCell.h"
#include "queue/MediumPace.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::chrono_literals;

class QueuePanelTest : public DialogFixture {
 protected:
  QueuePanelTest() {
    _held.hold();
    _batch = std::make_unique<BatchDesk>(*_queue, *_mainWindow, [this] { return _now; });
    _batch->setMost(1);
    QObject::connect(_batch.get(), &BatchDesk::failed,
                     [this](const QString& why) { _failures.push_back(why.toStdString()); });
    QObject::connect(_batch.get(), &BatchDesk::ended, [this](int written, int failed) {
      _ends.push_back({written, failed});
    });
  }
  ~QueuePanelTest() override {
    _queue->cancelAll();
    EXPECT_TRUE(waitUntil([this] { return !_queue->isBusy(); }));
    _batch.reset();
  }
  /// Asks for the export of these takes, and begins it.
  void begin(const std::vector<std::string>& names) {
    showMainWindow();
    std::vector<std::filesystem::path> files;
    for (const std::string& name : names) files.push_back(take(name));
    _batch->ask(files, 0, 90);
    const QPointer<BatchDialog> dialog(waitForShown<BatchDialog>());
    auto* const end = dialog->findChild<QPushButton*>(QStringLiteral("export"));
    EXPECT_TRUE(waitUntil([&] { return end->isEnabled(); }));
    end->click();
    EXPECT_TRUE(waitUntil([&] { return dialog.isNull(); }));
    _panel = shown<QueuePanel>();
    ASSERT_NE(_panel, nullptr);
  }
  [[nodiscard]] QListView& list() const { return *_panel->findChild<QListView*>(); }
  [[nodiscard]] std::vector<std::string> lines() const {
    std::vector<std::string> all;
    for (int row = 0; row < list().model()->rowCount(); ++row) {
      const QModelIndex index = list().model()->index(row, 0);
      all.push_back(index.data().toString().toStdString() + ": " +
                    index.data(QueueModel::kStateRole).toString().toStdString());
    }
    return all;
  }
  void select(int row) { list().setCurrentIndex(list().model()->index(row, 0)); }
  /// Whether a ring begins at its left edge.
  [[nodiscard]] bool hasRing(int row) const {
    const QRect place = list().visualRect(list().model()->index(row, 0));
    const QImage picture = list().viewport()->grab(place).toImage();
    return picture.pixel(0, picture.height() / 2) == Colors::focusRing().rgb();
  }
  void release(const std::string& target) { _held.release(path(target)); }
  void waitForLine(int row, const std::string& line) {
    EXPECT_TRUE(waitUntil([&] { return lines()[static_cast<std::size_t>(row)] == line; }))
        << testing::PrintToString(lines());
  }
  void waitForEnd() {
    EXPECT_TRUE(waitUntil([this] { return !_queue->isBusy(); }));
  }
  [[nodiscard]] std::string summary() const {
    return _panel->findChild<QLabel*>(QStringLiteral("summary"))->text().toStdString();
  }

  std::unique_ptr<BatchDesk> _batch;
  QPointer<QueuePanel> _panel;
  std::vector<std::string> _failures;
  std::vector<std::pair<int, int>> _ends;  ///< how many were written, and failed
};

TEST_F(QueuePanelTest, HasALineATakeWithItsProgressAndWhatCameOfIt) {
  begin({"a.WAV", "b.WAV"});
  EXPECT_EQ(_panel->windowModality(), Qt::NonModal);
  EXPECT_THAT(lines(), ElementsAre("a.WAV: 0 %", "b.WAV: Waiting"));
  EXPECT_EQ(summary(), "0 of 2 exported");
  _held.setDone(0.25);
  _now = 3s;
  waitForLine(0, "a.WAV: 25 % · About 9 s left");
  release("a_Decode.WAV");
  EXPECT_TRUE(waitUntil([this] { return lines()[0] == "a.WAV: Exported"; }));
  EXPECT_TRUE(waitUntil([this] { return summary() == "1 of 2 exported"; }));
  release("b_Decode.WAV");
  waitForEnd();
  EXPECT_THAT(lines(), ElementsAre("a.WAV: Exported", "b.WAV: Exported"));
  EXPECT_EQ(summary(), "2 of 2 exported");
  EXPECT_TRUE(_panel->isVisible()) << "until it is closed";
  EXPECT_EQ(shown<ExportProgress>(), nullptr);
  EXPECT_THAT(_told, ElementsAre("EB_RELOAD_FILE_LIST", "EB_RELOAD_FILE_LIST"));
  EXPECT_THAT(_folder.names(), ElementsAre("a.WAV", "a_Decode.WAV", "b.WAV", "b_Decode.WAV"));
}

TEST_F(QueuePanelTest, AsManyRunAtOnceAsHelp) {
  _batch->setMost(1000);
  begin({"a.WAV", "b.WAV"});
  EXPECT_EQ(_queue->atOnce(), MediumPace::atOnce(_folder.path()));
}

TEST_F(QueuePanelTest, OneIsCancelledAndTheOthersGoOn) {
  begin({"a.WAV", "b.WAV", "c.WAV"});
  EXPECT_FALSE(button(*_panel, "Cancel")->isEnabled()) << "nothing is selected";
  select(1);
  click(*_panel, "Cancel");
  EXPECT_THAT(lines(), ElementsAre("a.WAV: 0 %", "b.WAV: Cancelled", "c.WAV: Waiting"));
  EXPECT_FALSE(button(*_panel, "Cancel")->isEnabled());
  select(0);
  QTest::keyClick(_panel, Qt::Key_Delete);
  waitForLine(0, "a.WAV: Cancelled");
  _held.releaseAll();
  waitForEnd();
  EXPECT_THAT(lines(), ElementsAre("a.WAV: Cancelled", "b.WAV: Cancelled", "c.WAV: Exported"));
  EXPECT_THAT(_failures, IsEmpty());
  EXPECT_THAT(_folder.names(), ElementsAre("a.WAV", "b.WAV", "c.WAV", "c_Decode.WAV"));
}

TEST_F(QueuePanelTest, AllAreCancelled) {
  begin({"a.WAV", "b.WAV", "c.WAV"});
  click(*_panel, "Cancel all");
  waitForEnd();
  EXPECT_THAT(lines(), ElementsAre("a.WAV: Cancelled", "b.WAV: Cancelled", "c.WAV: Cancelled"));
  EXPECT_THAT(_ends, ElementsAre(std::pair(0, 0)));
  EXPECT_THAT(_folder.names(), ElementsAre("a.WAV", "b.WAV", "c.WAV"));
  click(*_panel, "Close");
  EXPECT_FALSE(_panel->isVisible());
}

TEST_F(QueuePanelTest, TheRingOfALineComesWithAKey) {
  begin({"a.WAV", "b.WAV"});
  QApplication::setActiveWindow(_panel);
  ASSERT_TRUE(waitUntil([this] { return list().hasFocus(); }));
  const QRect first = list().visualRect(list().model()->index(0, 0));
  QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, first.center());
  ASSERT_EQ(list().currentIndex().row(), 0);
  EXPECT_FALSE(hasRing(0)) << "clicked";
  QTest::keyClick(&list(), Qt::Key_Down);
  ASSERT_EQ(list().currentIndex().row(), 1);
  EXPECT_TRUE(hasRing(1));
}

TEST_F(QueuePanelTest, AThousandLinesThatEndAtOnceAreOneLookAtThePanel) {
  begin({"a.WAV"});
  constexpr int kMany = 1000;
  for (int i = 0; i < kMany; ++i) {
    ExportOrder order;
    order.source = path("a.WAV");
    order.target = path(std::to_string(i) + ".WAV");
    order.isOfBatch = true;
    _queue->add(order);
  }
  const QSignalSpy looks(_panel->findChild<QProgressBar*>(), &QProgressBar::valueChanged);
  click(*_panel, "Cancel all");
  EXPECT_LE(looks.count(), 2);
  waitForEnd();
  EXPECT_EQ(_panel->findChild<QProgressBar*>()->value(), 1000) << "the end is shown";
  EXPECT_EQ(lines().size(), std::size_t{kMany} + 1);
  EXPECT_NE(button(*_panel, "Close"), nullptr);
}

TEST_F(QueuePanelTest, TellsWhyATakeFailedAndTheOthersAreWritten) {
  begin({"a.WAV", "b.WAV", "c.WAV"});
  std::filesystem::remove(path("b.WAV"));        // it vanishes
  _folder.file("c_Decode.WAV", {std::byte{1}});  // somebody else was quicker
  _held.releaseAll();
  waitForEnd();
  EXPECT_THAT(lines(), ElementsAre("a.WAV: Exported", "b.WAV: No such file or directory",
                                   "c.WAV: File exists"));
  EXPECT_EQ(summary(), "1 of 3 exported, 2 failed");
  EXPECT_THAT(_failures, ElementsAre("2 takes were not exported."));
  EXPECT_EQ(TemporaryFolder::read(path("c_Decode.WAV")).size(), 1U) << "it stays";
  EXPECT_EQ(shown<QMessageBox>(), nullptr) << "no alert a take";
}

TEST_F(QueuePanelTest, WhatFailedBeforeIsNotToldOnceMore) {
  begin({"a.WAV", "b.WAV"});
  std::filesystem::remove(path("b.WAV"));
  _held.releaseAll();
  waitForEnd();
  EXPECT_THAT(_failures, ElementsAre("One take was not exported."));
  begin({"c.WAV"});
  waitForEnd();
  EXPECT_EQ(summary(), "2 of 3 exported, 1 failed");
  EXPECT_EQ(_failures.size(), 1U);
  EXPECT_THAT(_ends, ElementsAre(std::pair(1, 1), std::pair(1, 0)));
}

TEST_F(QueuePanelTest, AFolderThatGoesFailsTheRest) {
  begin({"a.WAV", "b.WAV"});
  release("a_Decode.WAV");
  waitForLine(0, "a.WAV: Exported");
  std::filesystem::remove_all(_folder.path());
  _held.releaseAll();
  waitForEnd();
  EXPECT_THAT(lines(), ElementsAre("a.WAV: Exported", "b.WAV: No such file or directory"));
  EXPECT_THAT(_failures, ElementsAre("One take was not exported."));
}

TEST_F(QueuePanelTest, ClosedMeanwhileItComesBackWhereSomethingFailed) {
  begin({"a.WAV", "b.WAV"});
  _panel->reject();
  EXPECT_FALSE(_panel->isVisible());
  EXPECT_TRUE(_queue->isBusy());
  std::filesystem::remove(path("b.WAV"));
  _held.releaseAll();
  waitForEnd();
  EXPECT_TRUE(_panel->isVisible());
  EXPECT_EQ(lines().size(), 2U);
  click(*_panel, "Close");
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(QueuePanelTest, ClosedMeanwhileItStaysSoWhereAllWentWell) {
  begin({"a.WAV", "b.WAV"});
  _panel->reject();
  _held.releaseAll();
  waitForEnd();
  EXPECT_FALSE(_panel->isVisible());
}

TEST_F(QueuePanelTest, ShowsWhatWasWrittenInItsFolder) {
  QSignalSpy wishes(_batch.get(), &BatchDesk::showInFolderRequested);
  begin({"a.WAV", "b.WAV"});
  select(0);
  EXPECT_FALSE(button(*_panel, "Show in folder")->isEnabled());
  release("a_Decode.WAV");
  waitForLine(0, "a.WAV: Exported");
  EXPECT_TRUE(waitUntil([this] { return button(*_panel, "Show in folder")->isEnabled(); }));
  click(*_panel, "Show in folder");
  ASSERT_EQ(wishes.count(), 1);
  EXPECT_THAT(wishes[0][0].value<std::vector<std::filesystem::path>>(),
              ElementsAre(path("a_Decode.WAV")));
}

TEST_F(QueuePanelTest, FurtherTakesJoinTheQueueAndKeepClearOfIt) {
  begin({"a.WAV", "b.WAV"});
  _batch->ask({path("a.WAV")}, 0, 90);
  const QPointer<BatchDialog> dialog(waitForShown<BatchDialog>());
  auto* const refused = dialog->findChild<QListWidget*>();
  EXPECT_TRUE(waitUntil([&] { return refused->count() == 1; }));
  EXPECT_EQ(refused->item(0)->text(), "a.WAV: a_Decode.WAV is about to be written");
  dialog->reject();
  begin({"c.WAV"});
  EXPECT_THAT(lines(), ElementsAre("a.WAV: 0 %", "b.WAV: Waiting", "c.WAV: Waiting"));
}

TEST_F(QueuePanelTest, TheSingleDialogLeadsToTheQueueMeanwhile) {
  QObject::connect(_desk.get(), &ExportDesk::queueWanted, _batch.get(), &BatchDesk::showQueue);
  begin({"a.WAV", "b.WAV"});
  _panel->reject();
  _desk->ask(job());
  EXPECT_EQ(shown<ExportVC>(), nullptr);
  EXPECT_TRUE(_panel->isVisible());
}

TEST_F(QueuePanelTest, AStateThatHasRoomIsShownWhole) {
  constexpr int kRow = 384;
  const QFont font = QApplication::font();
  for (int percent = 0; percent < 100; ++percent) {
    const QString state = QStringLiteral("%1 % · About %2 s left").arg(percent).arg(100 - percent);
    const int room = QueueCell::roomFor(state, font, kRow);
    EXPECT_EQ(QFontMetrics(font).elidedText(state, Qt::ElideRight, room), state);
  }
  EXPECT_EQ(QueueCell::roomFor(QString(200, u'x'), font, kRow), kRow * 3 / 5);
}

TEST_F(QueuePanelTest, EverythingHasAName) {
  begin({"a.WAV", "b.WAV"});
  EXPECT_EQ(list().accessibleName(), "Exports");
  EXPECT_EQ(_panel->findChild<QProgressBar*>()->accessibleName(), "Progress of all");
  EXPECT_EQ(button(*_panel, "Cancel")->accessibleName(), "Cancel the selected exports");
  const QModelIndex first = list().model()->index(0, 0);
  EXPECT_EQ(first.data(Qt::AccessibleDescriptionRole).toString(), "0 %");
  EXPECT_FALSE(list().model()->index(0, 0).data(Qt::ToolTipRole).toString().isEmpty());
}

}  // namespace
