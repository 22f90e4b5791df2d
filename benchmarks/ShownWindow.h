// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>

#include "app/DeviceLink.h"
#include "app/WindowController.h"
#include "base/FreedMemory.h"
#include "controls/Appearance.h"
#include "playback/system/SystemBackends.h"

/// The program's window, set up as the program does it, and what benchmarks do with it. One a
/// process, made before there are threads. Interface thread.
class ShownWindow {
 public:
  /// Both outlive it.
  ShownWindow(int& argc, char** argv) {
    FreedMemory::goesBack();
    _application.emplace(argc, argv);
    Appearance::apply(*_application);
    SystemBackends::choose();
    _link.emplace(false);
    _window.emplace();
    _link->attach(_window->window());
  }

  [[nodiscard]] WindowController& window() { return *_window; }
  [[nodiscard]] ViewController& controller() { return _window->viewController(); }
  [[nodiscard]] PlayerView& player() { return *_window->window().player; }

  static double milliseconds(const QElapsedTimer& watch) {
    return static_cast<double>(watch.nsecsElapsed()) / 1e6;
  }

  /// Shows the folder, and returns when it is listed.
  void show(const std::filesystem::path& folder) {
    constexpr int kRounds = 10;
    bool isListed = false;
    const auto listed =
        QObject::connect(&controller(), &ViewController::listed, [&] { isListed = true; });
    controller().setStart(folder);
    _window->show();
    while (!isListed) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int i = 0; i < kRounds; ++i) QApplication::processEvents();
    QObject::disconnect(listed);
  }

  /// Opens a take of the folder that is shown, by a double click.
  void open(const std::filesystem::path& file) {
    const auto& files = controller().folderHelper()->files();
    const auto found = std::ranges::find(files, file.string(), &WavItem::fullPath);
    _window->window().browser->tableFile->selectRow(static_cast<int>(found - files.begin()));
    controller().table_cell_double_click();
  }

  /// The same; milliseconds from the double click until something of it has been heard.
  double openToSound(const std::filesystem::path& file) {
    QElapsedTimer watch;
    watch.start();
    open(file);
    while (!isHeard(file)) QApplication::processEvents();
    return milliseconds(watch);
  }

 private:
  [[nodiscard]] bool isHeard(const std::filesystem::path& file) {
    return controller().take().file() == file && controller().wavPlayer() != nullptr &&
           controller().wavPlayer()->curremtTime() > 0.0;
  }

  std::optional<QApplication> _application;
  std::optional<DeviceLink> _link;
  std::optional<WindowController> _window;
};
