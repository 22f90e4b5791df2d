// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <filesystem>
#include <string>

#include "app/WindowController.h"

/// What the benchmarks of the window do with it. Interface thread.
class ShownWindow {
 public:
  /// Shows the folder, and returns when it is listed.
  static void show(WindowController& window, const std::filesystem::path& folder) {
    constexpr int kRounds = 10;
    bool isListed = false;
    QObject::connect(&window.viewController(), &ViewController::listed, [&] { isListed = true; });
    window.viewController().setStart(folder);
    window.show();
    while (!isListed) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int i = 0; i < kRounds; ++i) QApplication::processEvents();
    QObject::disconnect(&window.viewController(), &ViewController::listed, nullptr, nullptr);
  }

  /// Opens a take of the folder that is shown; milliseconds from the double click until something
  /// of it has been heard.
  static double openToSound(WindowController& window, const std::filesystem::path& file) {
    ViewController& controller = window.viewController();
    const auto& files = controller.folderHelper()->files();
    const auto found = std::ranges::find(files, file.string(), &WavItem::fullPath);
    window.window().browser->tableFile->selectRow(static_cast<int>(found - files.begin()));
    QElapsedTimer watch;
    watch.start();
    controller.table_cell_double_click();
    const auto isHeard = [&] {
      return controller.take().file() == file && controller.wavPlayer() != nullptr &&
             controller.wavPlayer()->curremtTime() > 0.0;
    };
    while (!isHeard()) QApplication::processEvents();
    return static_cast<double>(watch.nsecsElapsed()) / 1e6;
  }
};
