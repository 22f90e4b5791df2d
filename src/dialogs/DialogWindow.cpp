// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/DialogWindow.h"

#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QShowEvent>
#include <QStyle>
#include <QVBoxLayout>

#include "controls/Colors.h"
#include "controls/NumberText.h"
#include "controls/PlainText.h"

namespace {

constexpr int kTitle = 40;  // over a window, at most

}  // namespace

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

QSize DialogWindow::mostSize() const {
  return screen()->availableSize() - QSize(0, kTitle);
}

void DialogWindow::fixSize() {
  QLayout& content = _content == nullptr ? *layout() : *_content->layout();
  content.activate();
  QSize wanted = content.totalSizeHint().expandedTo(minimumSize() - _bars);
  if (content.hasHeightForWidth()) wanted.setHeight(content.totalHeightForWidth(wanted.width()));
  const QSize most = mostSize();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  _bars = QSize(wanted.height() > most.height() ? bar : 0, wanted.width() > most.width() ? bar : 0);
  if (!_bars.isNull() && _content == nullptr) scrollContent();
  setFixedSize((wanted + _bars).boundedTo(most));
}

// The layout takes all that it holds with it; the order of the keyboard stays.
void DialogWindow::scrollContent() {
  QWidget* const focus = focusWidget();
  _content = new QWidget;
  _content->setLayout(layout());
  auto* const area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(_content);
  auto* const frame = new QVBoxLayout(this);
  frame->setContentsMargins(0, 0, 0, 0);
  frame->addWidget(area);
  if (focus != nullptr) focus->setFocus();
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
