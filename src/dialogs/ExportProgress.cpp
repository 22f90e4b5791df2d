// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportProgress.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/Appearance.h"

namespace {

constexpr int kLineWidth = 320;  // of the lines

}  // namespace

ExportProgress::ExportProgress(const QString& source, const QString& target, QWidget* parent)
    : DialogWindow(parent) {
  _bar = new QProgressBar(this);
  _bar->setRange(0, kSteps);
  _bar->setTextVisible(false);
  _bar->setAccessibleName(tr("Progress"));
  _state = label({}, "dim");
  _state->setObjectName(QStringLiteral("state"));
  _cancel = new QPushButton(tr("Cancel"), this);
  _cancel->setAutoDefault(false);
  connect(_cancel, &QPushButton::clicked, this, &ExportProgress::reject);
  auto* const last = new QHBoxLayout;
  last->addWidget(_state, 1);
  last->addWidget(_cancel);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargins);
  column->setSpacing(8);
  column->addWidget(nameLine(tr("Exporting %1").arg(source), "heading"));
  column->addWidget(nameLine(tr("to %1").arg(target), "dim"));
  column->addSpacing(4);
  column->addWidget(_bar);
  column->addLayout(last);
  setMinimumWidth(Appearance::lineWidth(kLineWidth, font()) + kMarginsAcross);
  update(0, {});
  comeQuietly();
}

QLabel* ExportProgress::nameLine(const QString& text, const char* role) {
  QLabel* const line = label({}, role);
  showName(*line, text, Appearance::lineWidth(kLineWidth, font()));
  return line;
}

// It has the focus, so that Escape cancels; its button has not, since it appears by itself while
// the user may be typing: a space meant for the player is no cancel.
void ExportProgress::comeQuietly() {
  setFocusPolicy(Qt::StrongFocus);
  setFocus();
}

void ExportProgress::initWindowUI() {
  DialogWindow::initWindowUI(tr("Export"));
}

void ExportProgress::update(double done, const QString& timeLeft) {
  _bar->setValue(static_cast<int>(done * kSteps));
  const QString percent = tr("%1 %").arg(static_cast<int>(done * 100.0));
  if (!_isCancelling) {
    _state->setText(timeLeft.isEmpty() ? percent : tr("%1 · %2").arg(percent, timeLeft));
  }
}

void ExportProgress::reject() {
  if (_isCancelling) return;
  _isCancelling = true;
  _cancel->setEnabled(false);
  _state->setText(tr("Cancelling"));
  emit cancelRequested();
}
