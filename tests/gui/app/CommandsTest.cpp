// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <string>

#include "TakeFixture.h"
#include "app/WindowCommands.h"
#include "base/Utility.h"
#include "dialogs/AboutVC.h"
#include "dialogs/ExportVC.h"
#include "dialogs/IntroductionVC.h"
#include "dialogs/NodeviceVC.h"
#include "support/EnvironmentVariable.h"
#include "support/EventLoop.h"
#include "support/OwnSettings.h"
#include "support/TemporaryFolder.h"

namespace {

/// Commands over a bare widget, without the window.
class Commands : public TakeFixture {
 protected:
  void TearDown() override {
    commands.reset();
    TakeFixture::TearDown();
  }
  template <class Dialog>
  [[nodiscard]] Dialog* dialog() const {
    return widget.findChild<Dialog*>();
  }
  void key(QEvent::Type type, Qt::Key key, bool isRepeated = false) {
    QKeyEvent event(type, key, Qt::NoModifier, {}, isRepeated);
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_TRUE(event.isAccepted()) << "all keys are taken";
  }

  OwnSettings own;
  QWidget widget;
  WindowMenu menu{widget};
  QPushButton button;
  StatusLine status;
  FolderBrowser browser;
  ExportQueue exports;
  ExportDesk desk{exports, widget};
  std::unique_ptr<WindowCommands> commands = std::make_unique<WindowCommands>(
      WindowCommands::Place{widget, menu, button, status, exports, desk}, *session, browser);
  QSignalSpy opens{commands.get(), &WindowCommands::openSelectedRequested};
  QSignalSpy plays{commands.get(), &WindowCommands::playRequested};
};

TEST_F(Commands, ReturnOpensOnceAndSpacePlaysOnItsRelease) {
  key(QEvent::KeyPress, Qt::Key_Return);
  key(QEvent::KeyPress, Qt::Key_Return, true);
  EXPECT_EQ(opens.count(), 1);
  key(QEvent::KeyRelease, Qt::Key_Space);
  EXPECT_EQ(plays.count(), 0) << "its press was elsewhere";
  key(QEvent::KeyPress, Qt::Key_Space);
  key(QEvent::KeyRelease, Qt::Key_Space, true);
  EXPECT_EQ(plays.count(), 0);
  key(QEvent::KeyRelease, Qt::Key_Space);
  EXPECT_EQ(plays.count(), 1);
  key(QEvent::KeyPress, Qt::Key_F5);
  EXPECT_EQ(opens.count() + plays.count(), 2);
}

TEST_F(Commands, EscapeGivesUpOpeningAndNothingElse) {
  open("a.WAV");
  key(QEvent::KeyPress, Qt::Key_Escape);
  EXPECT_TRUE(session->isOpen());
  session->open("b.WAV", take("b.WAV"));
  key(QEvent::KeyPress, Qt::Key_Escape);
  EXPECT_EQ(session->state(), TakeSession::State::Closed);
}

TEST_F(Commands, MenuShowsDialogsWithTheVersion) {
  commands->readVersion();
  menu.actionAbout->trigger();
  ASSERT_NE(dialog<AboutVC>(), nullptr);
  EXPECT_EQ(dialog<AboutVC>()->versionString(), commands->versionString());
  menu.actionIntroduction->trigger();
  ASSERT_NE(dialog<IntroductionVC>(), nullptr);
  EXPECT_TRUE(dialog<IntroductionVC>()->fromMenu());
  commands->showNoDevice();
  EXPECT_NE(dialog<NodeviceVC>(), nullptr);
}

TEST_F(Commands, IntroducesAVersionOnce) {
  commands->readVersion();
  commands->introduce();
  ASSERT_NE(dialog<IntroductionVC>(), nullptr);
  EXPECT_FALSE(dialog<IntroductionVC>()->fromMenu());
  EXPECT_TRUE(commands->isIntroducing());
  const QSignalSpy over(commands.get(), &WindowCommands::introduced);
  delete dialog<IntroductionVC>();
  EXPECT_EQ(over.count(), 1);
  EXPECT_FALSE(commands->isIntroducing());
  commands->introduce();
  EXPECT_EQ(dialog<IntroductionVC>(), nullptr);
  Utility::store(Utility::kDoNotShowAgain, commands->versionString().toStdString());
  commands->readVersion();
  commands->introduce();
  EXPECT_EQ(dialog<IntroductionVC>(), nullptr) << "it was ticked off";
}

TEST_F(Commands, MenuAsksForAFolderAndForTheEnd) {
  QSignalSpy folders(commands.get(), &WindowCommands::openFolderRequested);
  QSignalSpy ends(commands.get(), &WindowCommands::endRequested);
  menu.actionOpenFolder->trigger();
  menu.actionQuit->trigger();
  EXPECT_EQ(folders.count(), 1);
  EXPECT_EQ(ends.count(), 1);
}

TEST_F(Commands, HelpWithoutABrowserSaysWhereItIs) {
  const TemporaryFolder nothing;
  const EnvironmentVariable programs("PATH", nothing.path().native());
  menu.actionHelp->trigger();
  EXPECT_EQ(dialog<QMessageBox>(), nullptr) << "nobody waits for folders of programs";
  ASSERT_TRUE(EventLoop::runUntil([this] { return dialog<QMessageBox>() != nullptr; }));
  auto* const alert = dialog<QMessageBox>();
  EXPECT_THAT(alert->informativeText().toStdString(),
              testing::HasSubstr(WindowCommands::kHelpAddress));
}

TEST_F(Commands, HelpIsRead) {
  const TemporaryFolder programs;
  const std::filesystem::path opener = programs.path() / "xdg-open";
  const std::filesystem::path read = programs.path() / "read";
  std::ofstream(opener) << "#!/bin/sh\necho \"$@\" > " << read << ".new\n"
                        << "/bin/mv " << read << ".new " << read << "\n";
  std::filesystem::permissions(opener, std::filesystem::perms::owner_all);
  const EnvironmentVariable path("PATH", programs.path().native());
  menu.actionHelp->trigger();
  ASSERT_TRUE(EventLoop::runUntil([&] { return std::filesystem::exists(read); }));
  std::string address;
  std::getline(std::ifstream(read) >> std::ws, address);
  EXPECT_EQ(address, WindowCommands::kHelpAddress);
}

TEST_F(Commands, ExportIsForATakeThatIsOpen) {
  EXPECT_FALSE(button.isEnabled());
  commands->askForExport();
  EXPECT_EQ(dialog<ExportVC>(), nullptr);
  emit menu.aboutToShow();
  EXPECT_FALSE(menu.actionExport->isEnabled());
  emit menu.aboutToHide();
  EXPECT_TRUE(menu.actionExport->isEnabled()) << "or its key would be dead";
  browser.openFolder(takes.path());
  QSignalSpy listings(&browser, &FolderBrowser::listed);
  ASSERT_TRUE(listings.wait(20'000));
  open("a.WAV");
  EXPECT_TRUE(button.isEnabled());
  session->setGain(5);
  session->setAngle(66.5);
  button.click();
  auto* const asked = dialog<ExportVC>();
  ASSERT_NE(asked, nullptr);
  EXPECT_EQ(asked->exporter()->gain(), 5.0);
  EXPECT_EQ(asked->exporter()->angle(), 66.5);
  EXPECT_EQ(asked->exporter()->getDirPath(), takes.path());
  emit desk.failed("No space left.");
  EXPECT_EQ(status.text(), "No space left.");
  session->close();
  EXPECT_FALSE(button.isEnabled());
}

TEST_F(Commands, WhatWasExportedIsWishedFor) {
  QSignalSpy granted(&browser, &FolderBrowser::wishGranted);
  open("a.WAV");
  browser.openFolder(takes.path());
  emit desk.failed("No space left.");
  emit desk.exported(take("a_Decode.WAV"));
  EXPECT_EQ(status.text(), "");
  while (granted.empty()) ASSERT_TRUE(granted.wait(20'000));
  EXPECT_EQ(granted.first().first().value<std::vector<int>>(), std::vector{1});
}

}  // namespace
