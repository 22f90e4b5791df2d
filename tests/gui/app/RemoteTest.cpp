// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QMessageBox>
#include <algorithm>
#include <optional>
#include <vector>

#include "WindowFixture.h"

namespace {

/// The whole window, controlled from afar.
class Remote : public WindowFixture {
 protected:
  RemotePlayer& remote() { return controller().remote(); }
  [[nodiscard]] std::string playing() {
    return controller().take().isOpen() ? controller().take().file().filename().string() : "";
  }
  static std::ptrdiff_t alerts() {
    const QWidgetList all = QApplication::topLevelWidgets();
    return std::ranges::count_if(all, [](const QWidget* widget) {
      return widget->isVisible() && qobject_cast<const QMessageBox*>(widget) != nullptr;
    });
  }
  using Opened = RemotePlayer::Opened;
  /// What came of it.
  Opened opened(const std::filesystem::path& file) {
    std::optional<Opened> told;
    remote().open(file, [&told](Opened what) { told = what; });
    waitFor([&] { return told.has_value(); }, "the answer");
    return *told;
  }
};

TEST_F(Remote, AFileIsOpenedAndItsFolderShown) {
  take("R0001.WAV");
  const auto inner = folder("a folder");
  std::filesystem::copy(take("R0002.WAV"), inner / "R0003.WAV");
  startOnTakes();
  open("R0001.WAV");
  waitForTake([&] { EXPECT_EQ(opened(inner / "R0003.WAV"), Opened::Begun); });
  EXPECT_EQ(controller().take().file(), inner / "R0003.WAV");
  EXPECT_EQ(remote().status(), RemotePlayer::Status::Playing);
  waitFor([this] { return selected() == "R0003.WAV"; }, "its row");
}

TEST_F(Remote, WhatIsNoFileChangesNothing) {
  take("R0001.WAV");
  const auto inner = folder("a folder");
  startOnTakes();
  open("R0001.WAV");
  const auto number = remote().take()->number;
  for (const auto& file : {inner, takes.path() / "R0009.WAV", inner / "gone" / "R0001.WAV"}) {
    EXPECT_EQ(opened(file), Opened::NoFile) << file;
    EXPECT_EQ(remote().take()->number, number) << "it is not even opened once more";
    EXPECT_EQ(controller().urlOfFileList(), takes.path());
    EXPECT_EQ(alerts(), 0);
  }
}

TEST_F(Remote, AFileIsGivenUpForWhatIsAskedForMeanwhile) {
  take("R0001.WAV");
  const auto inner = folder("a folder");
  startOnTakes();
  std::vector<Opened> told;
  const auto note = [&told](Opened what) { told.push_back(what); };
  remote().open(takes.path() / "gone.WAV", note);
  waitForTake([&] { remote().open(takes.path() / "R0001.WAV", note); });
  EXPECT_THAT(told, testing::ElementsAre(Opened::GivenUp, Opened::Begun));
  remote().open(takes.path() / "R0001.WAV", note);
  controller().openFolder(inner);
  EXPECT_THAT(told, testing::ElementsAre(Opened::GivenUp, Opened::Begun, Opened::GivenUp));
}

TEST_F(Remote, NextAndPreviousPassWhatIsNoRecording) {
  take("R0001.WAV");
  file("R0002.WAV");
  file("R0003.WAV");
  take("R0004.WAV");
  startOnTakes();
  for (const char* const name : {"R0001.WAV", "", "", "R0004.WAV"}) {
    ASSERT_TRUE(remote().hasNext());
    waitForTake([this] { remote().next(); });
    EXPECT_EQ(playing(), name);
    EXPECT_EQ(alerts(), *name == 0 ? 1 : 0) << "it is about this one";
  }
  EXPECT_FALSE(remote().hasNext());
  for (const char* const name : {"", "", "R0001.WAV"}) {
    ASSERT_TRUE(remote().hasPrevious());
    waitForTake([this] { remote().previous(); });
    EXPECT_EQ(playing(), name);
  }
}

TEST_F(Remote, WhatIsNoRecordingAtTheEndHasNoNext) {
  take("R0001.WAV");
  file("R0002.WAV");
  startOnTakes();
  for (int i = 0; i < 2; ++i) waitForTake([this] { remote().next(); });
  EXPECT_EQ(playing(), "");
  EXPECT_FALSE(remote().hasNext());
  EXPECT_TRUE(remote().hasPrevious());
}

TEST_F(Remote, NextInAnotherFolderIsItsFirst) {
  take("R0001.WAV");
  file("R0002.WAV");
  const auto inner = folder("a folder");
  std::filesystem::copy(take("R0003.WAV"), inner / "R0003.WAV");
  startOnTakes();
  for (int i = 0; i < 2; ++i) waitForTake([this] { remote().next(); });
  controller().openFolder(inner);
  waitFor([this] { return rows() == std::vector<std::string>{"R0003.WAV"}; }, "the folder");
  waitForTake([this] { remote().next(); });
  EXPECT_EQ(playing(), "R0003.WAV");
}

}  // namespace
