// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/DialogWindow.h"

#include <QShowEvent>

#include "controls/Colors.h"

DialogWindow::DialogWindow(QWidget* parent) : QDialog(parent) {
  setWindowFlag(Qt::WindowMaximizeButtonHint, false);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void DialogWindow::initWindowUI(const QString& title) {
  setWindowTitle(title);
  QPalette colors = palette();
  colors.setColor(QPalette::Window, Colors::AppBG());
  setPalette(colors);
  setFixedSize(sizeHint());
  if (_parentFrame.isNull()) return;
  const QSize spare = _parentFrame.size() - frameGeometry().size();
  move(_parentFrame.topLeft() + QPoint(spare.width() / 2, spare.height() / 2));
}

QLabel* DialogWindow::label(const QString& text, const char* role) {
  auto* const label = new QLabel(text, this);
  label->setProperty("role", role);
  label->setWordWrap(true);
  return label;
}

void DialogWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) viewWillAppear();
  QDialog::showEvent(event);
}
