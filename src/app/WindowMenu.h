// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QMenu>

/// The window's menu: its actions by name, with their keys. Interface thread.
class WindowMenu : public QMenu {
  Q_OBJECT

 public:
  /// The keys work in all of `window`.
  explicit WindowMenu(QWidget& window);

  QAction* actionOpenFolder = nullptr;
  QAction* actionExport = nullptr;
  QAction* actionClearPeaks = nullptr;
  QAction* actionMetersByRule = nullptr;  ///< checkable
  QAction* actionIntroduction = nullptr;
  QAction* actionHelp = nullptr;
  QAction* actionAbout = nullptr;
  QAction* actionQuit = nullptr;

 private:
  QAction* add(const QString& text, const QKeySequence& keys = {});
};
