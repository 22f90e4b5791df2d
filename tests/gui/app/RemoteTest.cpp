// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QMessageBox>
#include <algorithm>

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
};

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
