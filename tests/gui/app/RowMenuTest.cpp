// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include "WindowFixture.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/TakeInformation.h"

namespace {

using testing::ElementsAre;

/// The menu of the list, over two takes and a folder.
class RowMenuTest : public WindowFixture {
 protected:
  void SetUp() override {
    folder("Bells");
    take("a.WAV", 48'000);
    take("b.WAV", 48'000);
    startOnTakes();
  }
  [[nodiscard]] FileList& list() const { return *view().browser->tableFile; }
  void select(const std::vector<std::string>& names) {
    std::vector<int> selected;
    for (const std::string& name : names) selected.push_back(rowOf(name));
    list().selectRows(selected, selected.back());
  }
  void ask(QContextMenuEvent::Reason reason, const QPoint& at) const {
    QContextMenuEvent event(reason, at, list().viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(list().viewport(), &event);
  }
  void askOn(const std::string& name) {
    const QModelIndex index = list().model()->index(rowOf(name), 0);
    ask(QContextMenuEvent::Mouse, list().visualRect(index).center());
  }
  /// What the menu holds, those in brackets that are greyed out; a line for a separator.
  [[nodiscard]] std::vector<std::string> entries() const {
    std::vector<std::string> texts;
    const auto* const menu = shown<QMenu>();
    if (menu == nullptr) return texts;
    for (const QAction* const action : menu->actions()) {
      const std::string text = action->text().remove(u'&').toStdString();
      texts.push_back(action->isSeparator() ? "-" : action->isEnabled() ? text : "(" + text + ")");
    }
    return texts;
  }
  void choose(int entry) {
    auto* const menu = shown<QMenu>();
    ASSERT_NE(menu, nullptr);
    menu->actions()[entry]->trigger();
    menu->close();
  }
};

constexpr int kOpen = 0;
constexpr int kExport = 1;
constexpr int kShow = 3;
constexpr int kCopy = 4;
constexpr int kInformation = 6;

TEST_F(RowMenuTest, OffersWhatCanBeDone) {
  select({"a.WAV"});
  askOn("a.WAV");
  EXPECT_THAT(entries(), ElementsAre("Open", "Export…", "-", "Show in file manager", "Copy path",
                                     "-", "Information"));
  EXPECT_EQ(shown<QMenu>()->accessibleName(), "What is selected");
  shown<QMenu>()->close();
  select({"Bells"});
  askOn("Bells");
  EXPECT_THAT(entries(), ElementsAre("Open", "(Export…)", "-", "Show in file manager", "Copy path",
                                     "-", "(Information)"));
  shown<QMenu>()->close();
  select({"a.WAV", "b.WAV"});
  askOn("a.WAV");
  EXPECT_THAT(entries(), ElementsAre("(Open)", "Export 2…", "-", "Show in file manager",
                                     "Copy paths", "-", "(Information)"));
}

TEST_F(RowMenuTest, IsOfARowAndByTheKeyOfTheCurrentOne) {
  select({"b.WAV"});
  ask(QContextMenuEvent::Mouse, {20, list().viewport()->height() - 2});
  EXPECT_THAT(entries(), testing::IsEmpty()) << "there is no row";
  ask(QContextMenuEvent::Keyboard, {0, 0});
  ASSERT_FALSE(entries().empty());
  choose(kCopy);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), takes.path() / "b.WAV");
  list().selectRow(-1);
  ask(QContextMenuEvent::Keyboard, {0, 0});
  EXPECT_EQ(shown<QMenu>(), nullptr) << "nothing is selected";
}

TEST_F(RowMenuTest, Opens) {
  select({"b.WAV"});
  askOn("b.WAV");
  waitForTake([this] { choose(kOpen); });
  EXPECT_EQ(controller().take().name(), "b.WAV");
}

TEST_F(RowMenuTest, ExportsOneTakeThatNeedNotBeOpen) {
  select({"b.WAV"});
  askOn("b.WAV");
  choose(kExport);
  auto* const dialog = shown<BatchDialog>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->findChild<QLabel*>()->text(), "b.WAV");
}

TEST_F(RowMenuTest, ShowsFilesInTheFileManager) {
  const QSignalSpy wishes(&controller(), &ViewController::showFilesRequested);
  select({"Bells", "a.WAV"});
  askOn("a.WAV");
  choose(kShow);
  ASSERT_EQ(wishes.count(), 1);
  EXPECT_THAT(wishes[0][0].value<std::vector<std::filesystem::path>>(),
              ElementsAre(takes.path() / "Bells", takes.path() / "a.WAV"));
}

TEST_F(RowMenuTest, CopiesEachPathOnALine) {
  select({"a.WAV", "b.WAV"});
  askOn("b.WAV");
  choose(kCopy);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
            (takes.path() / "a.WAV").string() + "\n" + (takes.path() / "b.WAV").string());
}

TEST_F(RowMenuTest, IsAboutWhatWasSelectedWhenItOpened) {
  const QSignalSpy wishes(&controller(), &ViewController::showFilesRequested);
  select({"a.WAV"});
  askOn("a.WAV");
  select({"b.WAV"});  // as a new export does by itself
  auto* const menu = shown<QMenu>();
  ASSERT_NE(menu, nullptr);
  menu->actions()[kCopy]->trigger();
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), takes.path() / "a.WAV");
  menu->actions()[kShow]->trigger();
  ASSERT_EQ(wishes.count(), 1);
  EXPECT_THAT(wishes[0][0].value<std::vector<std::filesystem::path>>(),
              ElementsAre(takes.path() / "a.WAV"));
  waitForTake([this] { choose(kOpen); });
  EXPECT_EQ(controller().take().name(), "a.WAV");
}

TEST_F(RowMenuTest, ATakeThatHasGoneMeanwhileIsToldOf) {
  select({"a.WAV"});
  askOn("a.WAV");
  std::filesystem::remove(takes.path() / "a.WAV");
  refresh();
  ASSERT_EQ(allSelected().size(), 0U);
  choose(kOpen);
  EXPECT_FALSE(controller().browser().isLooking());
  select({"b.WAV"});
  askOn("b.WAV");
  std::filesystem::remove(takes.path() / "b.WAV");
  refresh();
  choose(kInformation);
  auto* const information = shown<TakeInformation>();
  ASSERT_NE(information, nullptr);
  waitFor([&] { return information->text().contains(QStringLiteral("No such file")); }, "the take");
}

TEST_F(RowMenuTest, InformsOfATakeAtTheGainAndWidthOfTheControls) {
  controller().angleViewer(stage().sliderStereo, 60.0);
  setGain(3);
  select({"a.WAV"});
  askOn("a.WAV");
  choose(kInformation);
  auto* const information = shown<TakeInformation>();
  ASSERT_NE(information, nullptr);
  EXPECT_EQ(information->windowModality(), Qt::NonModal);
  waitFor([&] { return information->text().contains(QStringLiteral("at 60° and 3 dB")); },
          "the take");
}

TEST_F(RowMenuTest, ATakeHasOneWindowOfInformation) {
  const auto ask = [this](const std::string& name) {
    select({name});
    askOn(name);
    choose(kInformation);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return view().findChildren<TakeInformation*>();
  };
  const auto first = ask("a.WAV");
  ASSERT_EQ(first.size(), 1);
  EXPECT_EQ(ask("a.WAV"), first) << "it shows that already";
  EXPECT_EQ(ask("b.WAV").size(), 2);
  setGain(3);
  const auto other = ask("a.WAV");
  ASSERT_EQ(other.size(), 2) << "the one with other figures has gone";
  EXPECT_FALSE(other.contains(first.first()));
}

}  // namespace
