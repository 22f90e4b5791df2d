// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/DialogWindow.h"

#include <QLayout>
#include <QShowEvent>

#include "controls/Colors.h"
#include "controls/NumberText.h"
#include "controls/PlainText.h"

DialogWindow::DialogWindow(QWidget* parent) : QDialog(parent) {
  setWindowFlag(Qt::WindowMaximizeButtonHint, false);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void DialogWindow::bringUp() {
  show();
  raise();
  activateWindow();
}

void DialogWindow::initWindowUI(const QString& title) {
  setWindowTitle(title);
  QPalette colors = palette();
  colors.setColor(QPalette::Window, Colors::AppBG());
  setPalette(colors);
  fixSize();
  if (_parentFrame.isNull()) return;
  const QSize spare = _parentFrame.size() - frameGeometry().size();
  move(_parentFrame.topLeft() + QPoint(spare.width() / 2, spare.height() / 2));
}

void DialogWindow::fixSize() {
  const QSize wanted = sizeHint().expandedTo(minimumSize());
  const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(wanted.width())
                                                   : wanted.height();
  setFixedSize(wanted.width(), height);
}

QLabel* DialogWindow::label(const QString& text, const char* role) {
  auto* const label = new QLabel(text, this);
  label->setProperty("role", role);
  label->setTextFormat(Qt::PlainText);  // names of files are no markup
  label->setWordWrap(true);
  return label;
}

void DialogWindow::showName(QLabel& label, const QString& name, int width) {
  label.ensurePolished();  // the style sheet's font
  label.setWordWrap(false);
  label.setText(label.fontMetrics().elidedText(name, Qt::ElideMiddle, width));
  label.setAccessibleName(name);
  label.setToolTip(PlainText::of(name));
}

void DialogWindow::showFigure(QLabel& label, const QString& text) {
  label.setText(NumberText::printed(text));
  label.setAccessibleName(text);
}

void DialogWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) viewWillAppear();
  QDialog::showEvent(event);
}
