// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/CardDesk.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <algorithm>
#include <cstddef>

#include "WindowFixture.h"
#include "support/SlowReads.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// A card beside the folder of the takes, in the whole window.
class Cards : public WindowFixture {
 protected:
  void SetUp() override {
    const auto source = take("R0001.WAV", 240'000);
    std::filesystem::rename(source, card.path() / "R0001.WAV");
    startOnTakes();
  }
  ~Cards() override { SlowReads::reset(); }

  [[nodiscard]] CardDesk& desk() { return controller().cards(); }
  void lookAt(const std::vector<std::filesystem::path>& cards) {
    const QSignalSpy looked(&desk(), &CardDesk::looked);
    desk().setFind([cards] { return cards; });
    desk().look();
    waitFor([&] { return !looked.empty(); }, "the cards");
  }
  [[nodiscard]] std::string hint() const {
    return view().player->lblStatus->message(StatusLine::Topic::Card).toStdString();
  }
  TransferPanel& openCopy() {
    view().menu->actionCopyCard->trigger();
    auto* const panel = shown<TransferPanel>();
    EXPECT_NE(panel, nullptr);
    return *panel;
  }
  void waitForEnd() {
    waitFor([this] { return !desk().isBusy(); }, "the copy");
  }
  static QMessageBox* question() { return shown<QMessageBox>(); }
  [[nodiscard]] static std::ptrdiff_t questions() {
    return std::ranges::count_if(QApplication::topLevelWidgets(), [](const QWidget* widget) {
      return widget->isVisible() && qobject_cast<const QMessageBox*>(widget) != nullptr;
    });
  }

  TemporaryFolder card;
};

TEST_F(Cards, ACardIsOfferedQuietly) {
  lookAt({});
  EXPECT_EQ(hint(), "");
  lookAt({card.path()});
  EXPECT_THAT(hint(), HasSubstr("“" + card.path().filename().string() + "” holds recordings"));
  EXPECT_EQ(question(), nullptr) << "nothing stands in the way";
  EXPECT_EQ(shown<TransferPanel>(), nullptr);
  lookAt({});
  EXPECT_EQ(hint(), "") << "it was pulled out";
  EXPECT_TRUE(desk().card().empty());
}

TEST_F(Cards, ItsTakesComeIntoTheFolderThatIsShown) {
  lookAt({card.path()});
  const QSignalSpy busy(&desk(), &CardDesk::busyChanged);
  TransferPanel& panel = openCopy();
  EXPECT_EQ(hint(), "") << "it has been heard";
  EXPECT_EQ(&openCopy(), &panel) << "one at a time";
  press(&panel, "Copy");
  EXPECT_TRUE(desk().isBusy());
  waitForEnd();
  EXPECT_EQ(busy.count(), 2);
  EXPECT_EQ(TemporaryFolder::read(takes.path() / "R0001.WAV"),
            TemporaryFolder::read(card.path() / "R0001.WAV"));
  waitFor([this] { return rows() == std::vector<std::string>{"ascmhl", "R0001.WAV"}; }, "the list");
  EXPECT_THAT(card.names(), ElementsAre("R0001.WAV")) << "the card is only read";
}

TEST_F(Cards, WithoutACardThePanelAsksForIt) {
  const TransferPanel& panel = openCopy();
  for (const FolderButton* const place : panel.findChildren<FolderButton*>()) {
    EXPECT_EQ(place->text(), "Choose…");
  }
}

TEST_F(Cards, AFolderOfTheCardIsNoPlaceForItsTakes) {
  controller().openFolder(card.path());
  waitForLook();
  lookAt({card.path()});
  const auto places = openCopy().findChildren<FolderButton*>();
  EXPECT_EQ(places[0]->folder(), card.path());
  EXPECT_TRUE(places[1]->folder().empty());
}

TEST_F(Cards, TheWindowAsksBeforeItEndsACopy) {
  EXPECT_TRUE(controller().mayEnd());
  lookAt({card.path()});
  SlowReads::give(card.path(), 500'000);
  press(&openCopy(), "Copy");
  EXPECT_FALSE(controller().mayEnd());
  press(question(), "Keep copying");
  waitFor([] { return question() == nullptr; }, "the answer");
  EXPECT_TRUE(desk().isBusy());
  EXPECT_FALSE(controller().mayEnd());
  const QSignalSpy ends(&controller(), &ViewController::endRequested);
  press(question(), "Stop and quit");
  EXPECT_EQ(ends.count(), 1);
  EXPECT_TRUE(controller().mayEnd());
  SlowReads::reset();
  waitForEnd();
}

TEST_F(Cards, TheWindowAsksOnceForAllThatIsUnderWay) {
  lookAt({card.path()});
  SlowReads::give(card.path(), 500'000);
  press(&openCopy(), "Copy");
  ExportQueue& exports = controller().exportQueue();
  exports.add({.source = card.path() / "R0001.WAV", .target = takes.path() / "out.WAV"});
  view().close();
  view().close();
  waitFor([] { return questions() == 1; }, "the only question");
  EXPECT_EQ(
      question()->informativeText().toStdString(),
      "An export is still running. Ending now cancels it.\n"
      "Takes are still being copied. What is copied stays; the next copy goes on from there.");
  press(question(), "Keep working");
  EXPECT_TRUE(view().isVisible());
  EXPECT_TRUE(exports.isBusy() && desk().isBusy());
  view().close();
  press(question(), "Stop all and quit");
  EXPECT_FALSE(view().isVisible());
  SlowReads::reset();
  waitForEnd();
  waitFor([&] { return !exports.isBusy(); }, "the end of the export");
  EXPECT_FALSE(std::filesystem::exists(takes.path() / "out.WAV"));
  EXPECT_FALSE(std::filesystem::exists(takes.path() / "R0001.WAV"));
}

TEST_F(Cards, AVerifyEndsWithTheWindowUnasked) {
  lookAt({card.path()});
  TransferPanel& copy = openCopy();
  press(&copy, "Copy");
  waitForEnd();
  press(&copy, "Close");
  SlowReads::give(takes.path(), 500'000);
  view().menu->actionVerifyFolder->trigger();
  auto* const panel = shown<TransferPanel>();
  ASSERT_NE(panel, nullptr);
  press(panel, "Verify");
  view().close();
  EXPECT_FALSE(view().isVisible());
  EXPECT_EQ(question(), nullptr) << "nothing is lost";
  SlowReads::reset();
  waitForEnd();
  EXPECT_EQ(panel->findChild<QLabel*>(QStringLiteral("complaint"))->text(), "Cancelled.");
}

TEST_F(Cards, AFolderIsVerifiedFromTheMenu) {
  view().menu->actionVerifyFolder->trigger();
  auto* const panel = shown<TransferPanel>();
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->findChild<FolderButton*>()->folder(), takes.path());
  press(panel, "Verify");
  waitForEnd();
  const auto* const complaint = panel->findChild<QLabel*>(QStringLiteral("complaint"));
  EXPECT_EQ(complaint->text(), "It has no manifest (ascmhl).");
}

}  // namespace
