// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <filesystem>
#include <vector>

#include "app/WindowPanes.h"

/// Who answers what a pane asks for: it raises a signal, and here that is connected to the pane
/// whose concern it is, or goes out to whoever has the window. Interface thread.
class WindowWiring : public QObject {
  Q_OBJECT

 public:
  /// The panes outlive it.
  explicit WindowWiring(WindowPanes& panes);

 signals:
  void endRequested();
  /// These files are to be shown in the desktop's file manager.
  void showFilesRequested(const std::vector<std::filesystem::path>& files);
  /// The list shows what the folder held a moment ago.
  void listed();

 private:
  void connectCommands();
  void connectRows();
  void connectOutside();
  void markLoaded();

  WindowPanes& _panes;
};
