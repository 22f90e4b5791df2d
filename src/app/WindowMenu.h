// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <utility>
#include <vector>

#include "dialogs/HelpVC.h"

/// The window's menu: its actions by name, with their keys. Interface thread.
///
/// Some keys are the window's in any case. Others, arrows above all, are those of the control that
/// has the keyboard, if it wants them: the menu only names these, and who gets a key that nobody
/// wanted asks `actionOf`.
class WindowMenu : public QMenu {
  Q_OBJECT

 public:
  /// The keys work in all of `window`.
  explicit WindowMenu(QWidget& window);

  /// What a key does that no control has taken; null: nothing.
  [[nodiscard]] QAction* actionOf(const QKeyEvent& event) const;
  /// All keys that the menu names, in its order.
  [[nodiscard]] const std::vector<HelpVC::Line>& keys() const { return _keys; }

  QAction* actionOpenFolder = nullptr;
  QAction* actionExport = nullptr;
  QAction* actionCopyCard = nullptr;
  QAction* actionVerifyFolder = nullptr;
  QAction* actionPlay = nullptr;
  QAction* actionBack = nullptr;
  QAction* actionForward = nullptr;
  QAction* actionFarBack = nullptr;
  QAction* actionFarForward = nullptr;
  QAction* actionBeginning = nullptr;
  QAction* actionEnd = nullptr;
  QAction* actionLouder = nullptr;
  QAction* actionSofter = nullptr;
  QAction* actionWider = nullptr;
  QAction* actionNarrower = nullptr;
  QAction* actionLoop = nullptr;  ///< checkable, as are the two that follow
  QAction* actionSoloMid = nullptr;
  QAction* actionSoloSide = nullptr;
  QAction* actionByName = nullptr;  ///< one of these three is checked
  QAction* actionByRecorded = nullptr;
  QAction* actionByDuration = nullptr;
  QAction* actionClearPeaks = nullptr;
  QAction* actionMetersByRule = nullptr;  ///< checkable
  QAction* actionRemember = nullptr;      ///< checkable
  QAction* actionKeys = nullptr;
  QAction* actionIntroduction = nullptr;
  QAction* actionHelp = nullptr;
  QAction* actionAbout = nullptr;
  QAction* actionQuit = nullptr;

 private:
  void makePlaying();
  void makeOrder();
  /// With a key of the window's own.
  QAction* add(QMenu& menu, const QString& text, const QKeySequence& keys = {});
  /// With a key that is named only.
  QAction* addNamed(QMenu& menu, const QString& text, QKeyCombination key);
  void note(const QString& text, const QKeySequence& keys);

  std::vector<HelpVC::Line> _keys;
  std::vector<std::pair<QKeyCombination, QAction*>> _named;
};
