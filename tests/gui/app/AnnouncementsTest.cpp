// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What assistive software is told of what happens by itself.

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "WindowFixture.h"
#include "dialogs/ExportVC.h"
#include "dialogs/SavePanel.h"
#include "dialogs/TransferPanel.h"
#include "gui/controls/AccessibleEvents.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Announced : public WindowFixture {
 protected:
  void TearDown() override { end(); }
  /// The names of notes, as they appeared.
  static std::vector<std::string> notes() {
    std::vector<std::string> names;
    for (const auto& told : AccessibleEvents::told()) {
      const bool isNote = told.role == QAccessible::Notification;
      if (isNote && told.type == QAccessible::ObjectShow) names.push_back(told.name.toStdString());
    }
    return names;
  }
  /// One of several that were ordered together.
  void order(const std::string& source, const std::string& target) {
    controller().exportQueue().add(
        {.source = takes.path() / source, .target = takes.path() / target, .isOfBatch = true});
  }
  /// Copies or verifies what the panel proposes, to its end.
  void carryOut(QAction* action, const char* button) {
    action->trigger();
    const QPointer<TransferPanel> panel(shown<TransferPanel>());
    press(panel, button);
    waitFor([this] { return !controller().cards().isBusy(); }, button);
    const bool isDone = panel->findChild<QLabel*>(QStringLiteral("summary"))->isVisible();
    press(panel, isDone ? "Close" : "Cancel");
    waitFor([&] { return panel.isNull(); }, "the end of the panel");
  }
  /// Opens a take that broke off and has it salvaged.
  void salvage(const std::string& name) {
    waitForTake([&] { doubleClickRow(name); });
    const auto offer = []() -> QWidget* {
      const auto isOffer = [](QWidget* widget) {
        const auto* const box = qobject_cast<QMessageBox*>(widget);
        return box != nullptr && box->informativeText().contains("broke off");
      };
      const QWidgetList all = QApplication::topLevelWidgets();
      const auto found = std::ranges::find_if(all, isOffer);
      return found == all.end() ? nullptr : *found;
    };
    waitFor([&] { return offer() != nullptr; }, "the offer");
    press(offer(), "Salvage");
  }
};

TEST_F(Announced, IsARecorderThatComesAndGoes) {
  startOnTakes();
  const AccessibleEvents events;
  plugIn();
  EXPECT_THAT(notes(), ElementsAre("The recorder is connected."));
  link.recorder().reportCard();
  midiClock->advance(0.5);
  EXPECT_THAT(notes(), testing::SizeIs(1)) << "it is still the same";
  pullOut();
  EXPECT_THAT(notes(),
              ElementsAre("The recorder is connected.", "The recorder is no longer connected."));
}

TEST_F(Announced, IsNothingWhereNothingHappens) {
  take("R0001.WAV");
  const AccessibleEvents events;
  startOnTakes();
  open("R0001.WAV");
  play(500);
  EXPECT_THAT(notes(), IsEmpty());
}

TEST_F(Announced, IsAnExportThatIsWritten) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  const AccessibleEvents events;
  controller().btnExport_Click();
  press(shown<ExportVC>(), "Save");
  waitFor([] { return shown<SavePanel>() != nullptr; }, "the panel");
  press(shown<SavePanel>(), "Save");
  waitFor([] { return !notes().empty(); }, "the export");
  EXPECT_THAT(notes(), ElementsAre("R0001_Decode.WAV is exported."));
}

TEST_F(Announced, IsABatchThatIsWritten) {
  take("R0001.WAV");
  startOnTakes();
  const AccessibleEvents events;
  order("R0001.WAV", "one.WAV");
  order("R0001.WAV", "two.WAV");
  waitFor([] { return !notes().empty(); }, "the batch");
  EXPECT_THAT(notes(), ElementsAre("2 takes are exported."));
}

TEST_F(Announced, IsABatchOfWhichSomeFailed) {
  take("R0001.WAV");
  file("there.WAV");
  startOnTakes();
  ExportQueue& exports = controller().exportQueue();
  const AccessibleEvents events;
  order("R0001.WAV", "one.WAV");
  order("R0001.WAV", "there.WAV");
  waitFor([&] { return !exports.isBusy(); }, "the batch");
  EXPECT_THAT(notes(), ElementsAre("One take was not exported.", "1 of 2 takes are exported."));
}

TEST_F(Announced, IsWhatCameOfACopyAndOfAVerify) {
  const TemporaryFolder card;
  std::filesystem::rename(take("R0001.WAV"), card.path() / "R0001.WAV");
  startOnTakes();
  CardDesk& cards = controller().cards();
  const AccessibleEvents events;
  carryOut(view().menu->actionVerifyFolder, "Verify");
  EXPECT_THAT(notes(), ElementsAre("Verify folder: It has no manifest (ascmhl)."));
  cards.setFind([path = card.path()] { return std::vector{path}; });
  cards.look();
  waitFor([&] { return !cards.card().empty(); }, "the card");
  carryOut(view().menu->actionCopyCard, "Copy");
  carryOut(view().menu->actionVerifyFolder, "Verify");
  std::ofstream(takes.path() / "R0001.WAV", std::ios::app) << 'x';
  carryOut(view().menu->actionVerifyFolder, "Verify");
  carryOut(view().menu->actionCopyCard, "Copy");
  const auto told = notes();
  ASSERT_EQ(told.size(), 6U) << testing::PrintToString(told);
  EXPECT_THAT(told[1], testing::HasSubstr("holds recordings")) << "the status line";
  EXPECT_THAT(std::vector(told.begin() + 2, told.end()),
              ElementsAre("Copy card: 1 take is there and verified.",
                          "Verify folder: 1 file is right.", "Verify folder: 0 right, 1 not.",
                          "Copy card: 0 of 1 takes are there and verified."));
}

TEST_F(Announced, IsATakeThatIsSalvaged) {
  brokenTake("R0001.WAV");
  startOnTakes();
  const AccessibleEvents events;
  salvage("R0001.WAV");
  EXPECT_EQ(notes().back(), "R0001.WAV is being salvaged…");
  waitFor([] { return notes().back() == "R0001.WAV is salvaged into R0001_Repaired.WAV."; },
          "its end");
}

TEST_F(Announced, IsASalvageThatFails) {
  brokenTake("R0001.WAV");
  file("R0001_Repaired.WAV");
  startOnTakes();
  const AccessibleEvents events;
  salvage("R0001.WAV");
  waitFor([] { return notes().back().starts_with("R0001_Repaired.WAV was not saved: "); },
          "its end");
}

TEST_F(Announced, IsWhatTheStatusLineSays) {
  startOnTakes();
  const AccessibleEvents events;
  StatusLine& status = *view().player->lblStatus;
  status.say(StatusLine::Topic::Sound, "No sound server.");
  status.say(StatusLine::Topic::Sound, "No sound server.");
  status.clear(StatusLine::Topic::Sound);
  status.say(StatusLine::Topic::Sound, "No sound server.");
  EXPECT_THAT(notes(), ElementsAre("No sound server.", "No sound server."));
}

TEST_F(Announced, IsATakeThatCannotBeOpened) {
  file("X1.WAV");
  startOnTakes();
  const AccessibleEvents events;
  waitForTake([&] { doubleClickRow("X1.WAV"); });
  EXPECT_THAT(notes(), ElementsAre(testing::HasSubstr("X1.WAV")));
}

}  // namespace
