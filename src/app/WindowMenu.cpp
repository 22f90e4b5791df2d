// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowMenu.h"

WindowMenu::WindowMenu(QWidget& window) : QMenu(&window) {
  actionOpenFolder = add(tr("&Open folder…"), QKeySequence::Open);
  actionExport = add(tr("&Export…"), Qt::CTRL | Qt::Key_E);
  addSeparator();
  actionClearPeaks = add(tr("&Clear peaks"), Qt::CTRL | Qt::Key_K);
  actionMetersByRule = add(tr("&Meters by the recorder's rule"));
  actionMetersByRule->setCheckable(true);
  addSeparator();
  actionIntroduction = add(tr("&Introduction"));
  actionHelp = add(tr("Online &help"), QKeySequence::HelpContents);
  actionAbout = add(tr("&About"));
  addSeparator();
  actionQuit = add(tr("&Quit"), QKeySequence::Quit);
}

QAction* WindowMenu::add(const QString& text, const QKeySequence& keys) {
  auto* const action = new QAction(text, this);
  action->setShortcut(keys);
  parentWidget()->addAction(action);
  addAction(action);
  return action;
}
