// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowMenu.h"

#include <QActionGroup>
#include <QRegularExpression>
#include <algorithm>

#include "controls/MenuAccessible.h"

WindowMenu::WindowMenu(QWidget& window) : QMenu(&window) {
  MenuAccessible::install();
  setAccessibleName(tr("Menu"));
  actionOpenFolder = add(*this, tr("&Open folder…"), QKeySequence::Open);
  actionExport = add(*this, tr("&Export…"), Qt::CTRL | Qt::Key_E);
  actionCopyCard = add(*this, tr("Copy car&d…"));
  actionVerifyFolder = add(*this, tr("&Verify folder…"));
  addSeparator();
  makePlaying();
  makeOrder();
  actionClearPeaks = add(*this, tr("&Clear peaks"), Qt::CTRL | Qt::Key_K);
  actionMetersByRule = add(*this, tr("&Meters by the recorder's rule"));
  actionMetersByRule->setCheckable(true);
  actionRemember = add(*this, tr("&Remember width, gain and loop"));
  addSeparator();
  actionKeys = add(*this, tr("&Keys and pointer"), QKeySequence::HelpContents);
  actionIntroduction = add(*this, tr("&Introduction"));
  actionHelp = add(*this, tr("Online &help"));
  actionAbout = add(*this, tr("&About"));
  addSeparator();
  actionQuit = add(*this, tr("&Quit"), QKeySequence::Quit);
}

void WindowMenu::makePlaying() {
  QMenu& menu = *addMenu(tr("&Playing"));
  actionPlay = addNamed(menu, tr("&Play or pause"), Qt::Key_Space);
  actionBack = addNamed(menu, tr("&Back 1 s"), Qt::Key_Left);
  actionForward = addNamed(menu, tr("&Forward 1 s"), Qt::Key_Right);
  actionFarBack = addNamed(menu, tr("Back 10 s"), Qt::SHIFT | Qt::Key_Left);
  actionFarForward = addNamed(menu, tr("Forward 10 s"), Qt::SHIFT | Qt::Key_Right);
  actionBeginning = addNamed(menu, tr("To the be&ginning"), Qt::Key_Home);
  actionEnd = addNamed(menu, tr("To the &end"), Qt::Key_End);
  menu.addSeparator();
  actionLouder = addNamed(menu, tr("&Louder by 1 dB"), Qt::Key_Up);
  actionSofter = addNamed(menu, tr("&Softer by 1 dB"), Qt::Key_Down);
  actionWider = add(menu, tr("&Wider by 5°"), Qt::Key_BracketRight);
  actionNarrower = add(menu, tr("&Narrower by 5°"), Qt::Key_BracketLeft);
  menu.addSeparator();
  actionLoop = add(menu, tr("L&oop: A, B, clear"), Qt::Key_L);
  actionSoloMid = add(menu, tr("Solo &Mid"), Qt::Key_M);
  actionSoloSide = add(menu, tr("Solo S&ide"), Qt::Key_S);
  for (QAction* const toggle : {actionLoop, actionSoloMid, actionSoloSide}) {
    toggle->setCheckable(true);
  }
}

void WindowMenu::makeOrder() {
  QMenu& menu = *addMenu(tr("Order of the &list"));
  actionByName = add(menu, tr("By &name"));
  actionByRecorded = add(menu, tr("By &recording time"));
  actionByDuration = add(menu, tr("By &duration"));
  auto* const one = new QActionGroup(this);
  for (QAction* const order : {actionByName, actionByRecorded, actionByDuration}) {
    order->setCheckable(true);
    one->addAction(order);
  }
  actionByName->setChecked(true);
}

QAction* WindowMenu::add(QMenu& menu, const QString& text, const QKeySequence& keys) {
  auto* const action = new QAction(text, this);
  action->setShortcut(keys);
  parentWidget()->addAction(action);
  menu.addAction(action);
  note(text, keys);
  return action;
}

QAction* WindowMenu::addNamed(QMenu& menu, const QString& text, QKeyCombination key) {
  const QKeySequence keys(key);
  auto* const action = new QAction(text + u'\t' + keys.toString(QKeySequence::NativeText), this);
  menu.addAction(action);
  _named.emplace_back(key, action);
  note(text, keys);
  return action;
}

void WindowMenu::note(const QString& text, const QKeySequence& keys) {
  if (keys.isEmpty()) return;
  // Where letters are not those of the keyboard, the key stands behind the text: "終了(&Q)".
  static const QRegularExpression kMarks(QStringLiteral("\\(&.\\)|&|…"));
  const QString what = QString(text).remove(kMarks).trimmed();
  _keys.push_back({keys.toString(QKeySequence::NativeText), what});
}

QAction* WindowMenu::actionOf(const QKeyEvent& event) const {
  const QKeyCombination key(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
  const auto found = std::ranges::find(_named, key, &std::pair<QKeyCombination, QAction*>::first);
  return found == _named.end() ? nullptr : found->second;
}
