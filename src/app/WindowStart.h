// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <filesystem>
#include <optional>
#include <vector>

#include "app/FolderBrowser.h"
#include "app/TakeSession.h"
#include "app/WindowCommands.h"

/// What is opened at first, and when: nothing before the window is on the screen, and no recording
/// behind the dialog that explains the program. Whatever is chosen in the list comes this way too.
/// Interface thread.
class WindowStart : public QObject {
  Q_OBJECT

 public:
  /// All of them outlive it.
  WindowStart(FolderBrowser& browser, WindowCommands& commands, TakeSession& take,
              QObject* parent = nullptr);

  /// What the next `appear` opens.
  void set(const std::vector<std::filesystem::path>& files) { _files = files; }
  /// Opens the first of these, a folder or a recording, and selects with a recording those others
  /// that are in its folder: now, or once the window has appeared. Nothing for none.
  void open(const std::vector<std::filesystem::path>& files);
  /// The window is on the screen: opens what was named, else the folder of the last time, and
  /// introduces the program where that is due.
  void appear();

 private:
  void begin(const std::vector<std::filesystem::path>& files);
  void openChosen(const WavItem& item);
  void openWaiting();

  FolderBrowser& _browser;
  WindowCommands& _commands;
  TakeSession& _take;
  std::vector<std::filesystem::path> _files;
  bool _hasAppeared = false;
  std::optional<WavItem> _waiting;  ///< chosen behind the introduction
};
