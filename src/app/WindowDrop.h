// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QWidget>
#include <filesystem>
#include <vector>

#include "app/FolderBrowser.h"

class QDropEvent;

/// Files that are dropped on the window: a folder, or a take, is opened; of several takes those in
/// the folder of the first one are selected there. What is dragged out of the window itself is not
/// taken. Interface thread.
class WindowDrop : public QObject {
  Q_OBJECT

 public:
  /// Both outlive this.
  WindowDrop(QWidget& window, FolderBrowser& browser, QObject* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static bool isTaken(const QDropEvent& event);
  void drop(const std::vector<std::filesystem::path>& files);

  FolderBrowser& _browser;
};
