// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <QPointer>
#include <QPushButton>
#include <QWidget>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/ExportDesk.h"
#include "dialogs/ExportVC.h"
#include "dialogs/SavePanel.h"
#include "queue/ExportQueue.h"
#include "support/EventLoop.h"
#include "support/HeldWork.h"
#include "support/LogLines.h"
#include "support/OwnSettings.h"
#include "support/Screen.h"
#include "support/TemporaryFolder.h"

/// A main window, a folder with takes, settings of its own, and a record of what dialogs tell.
class DialogFixture : public testing::Test, protected Screen {
 private:
  void makeDesk();

 protected:
  DialogFixture();
  ~DialogFixture() override;

  /// Puts the main window on the screen and returns its rectangle.
  QRect showMainWindow();
  template <typename Widget>
  static Widget* waitForShown() {
    Widget* found = nullptr;
    const bool isThere = waitUntil([&] { return (found = shown<Widget>()) != nullptr; });
    EXPECT_TRUE(isThere) << Widget::staticMetaObject.className() << " was not shown";
    return found;
  }
  /// Lets the program run until the condition holds; false when it never does.
  static bool waitUntil(const std::function<bool()>& condition) {
    return EventLoop::runUntil(condition);
  }
  /// The button with this text.
  static QPushButton* button(QWidget& dialog, const QString& text);
  static void click(QWidget& dialog, const QString& text);
  /// All texts of labels that a user sees, top to bottom as they were made.
  static QStringList labels(const QWidget& dialog);

  /// The dialog's frame stands in the middle of `frame`, and all its texts have the room they need.
  static void expectInTheMiddle(const QWidget& dialog, const QRect& frame);
  static void expectNothingCut(const QWidget& dialog);

  std::filesystem::path take(const std::string& name, bool isRaw = true) const;
  /// A job as the window hands it over: 90.7 degrees, +6 dB, on a take named R0001.WAV.
  std::shared_ptr<Export> job(bool isRaw = true) const;
  /// Asks for an export over the main window and returns the dialog, shown; what is told of the
  /// export goes to the record.
  QPointer<ExportVC> openExport(const std::shared_ptr<Export>& job);
  /// Presses Save, types the path, presses Return, and waits until it is taken or asked about.
  void saveAs(ExportVC& dialog, const std::string& path) const;
  /// Waits until dialog and export are over and returns the record.
  std::vector<std::string> told(const QPointer<ExportVC>& dialog) const;
  std::vector<std::byte> samplesOf(const std::filesystem::path& path) const;

  [[nodiscard]] std::filesystem::path path(const std::string& name) const {
    return _folder.path() / name;
  }

  TemporaryFolder _folder;
  OwnSettings _own;
  LogLines _log;
  std::vector<std::string> _told;
  std::unique_ptr<QWidget> _mainWindow;
  HeldWork _held{ExportWorker::carryOut};  ///< open, unless a test holds it
  std::chrono::milliseconds _now{0};       ///< stands still, unless a test moves it
  std::unique_ptr<ExportQueue> _queue;
  std::unique_ptr<ExportDesk> _desk;
};
