// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/QueuePanel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "controls/Appearance.h"
#include "dialogs/QueueCell.h"
#include "dialogs/TimeLeft.h"

namespace {

using State = QueueModel::State;

constexpr int kPanelWidth = 460;
constexpr int kQueueHeight = 260;

bool isUnderWay(const QueueModel::Line& line) {
  return line.state == State::Waiting || line.state == State::Running;
}

}  // namespace

QueuePanel::QueuePanel(QueueModel& model, QWidget* parent) : DialogWindow(parent), _model(model) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  _summary = label({}, "heading");
  _summary->setObjectName(QStringLiteral("summary"));
  _timeLeft = label({}, "dim");
  _bar = new QProgressBar(this);
  _bar->setRange(0, kSteps);
  _bar->setTextVisible(false);
  _bar->setAccessibleName(tr("Progress of all"));
  makeList();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargins);
  column->setSpacing(8);
  column->addWidget(_summary);
  column->addWidget(_bar);
  column->addWidget(_timeLeft);
  column->addWidget(_list, 1);
  column->addSpacing(8);
  column->addLayout(buttons());
  setMinimumWidth(Appearance::lineWidth(kPanelWidth, font()));
  refresh({});
}

void QueuePanel::makeList() {
  _list = new QListView(this);
  _list->setItemDelegate(new QueueCell(_list));
  _list->setUniformItemSizes(true);
  _list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  _list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  _list->setFrameShape(QFrame::NoFrame);
  _list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  _list->setAccessibleName(tr("Exports"));
  _list->setMinimumHeight(kQueueHeight);
  _list->setModel(&_model);
  connect(_list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &QueuePanel::showButtons);
  connect(_list, &QListView::doubleClicked, this, &QueuePanel::showInFolder);
}

QLayout* QueuePanel::buttons() {
  _show = new QPushButton(tr("Show in folder"), this);
  _cancel = new QPushButton(tr("Cancel"), this);
  _cancel->setAccessibleName(tr("Cancel the selected exports"));
  _end = new QPushButton(this);
  for (QPushButton* const button : {_show, _cancel, _end}) button->setAutoDefault(false);
  connect(_show, &QPushButton::clicked, this, &QueuePanel::showInFolder);
  connect(_cancel, &QPushButton::clicked, this, [this] { cancel(selected()); });
  connect(_end, &QPushButton::clicked, this, [this] {
    if (_model.isBusy()) return cancelAll();
    reject();
  });
  auto* const row = new QHBoxLayout;
  row->addWidget(_show);
  row->addWidget(_cancel);
  row->addStretch();
  row->addWidget(_end);
  return row;
}

void QueuePanel::viewWillAppear() {
  DialogWindow::viewWillAppear();
  _list->setFocus();
}

void QueuePanel::initWindowUI() {
  DialogWindow::initWindowUI(tr("Exports"));
}

void QueuePanel::refresh(std::chrono::milliseconds elapsed) {
  const double done = _model.done();
  _summary->setText(summary());
  _bar->setValue(static_cast<int>(done * kSteps));
  const double seconds = std::chrono::duration<double>(elapsed).count();
  _timeLeft->setText(_model.isBusy() ? TimeLeft::text(seconds, done) : QString());
  showButtons();
}

QString QueuePanel::summary() const {
  const std::size_t failed = _model.count(State::Failed);
  const QString written =
      tr("%1 of %2 exported").arg(_model.count(State::Written)).arg(_model.lines().size());
  return failed == 0 ? written : tr("%1, %2 failed").arg(written).arg(failed);
}

void QueuePanel::showButtons() {
  const Lines lines = selected();
  const auto isWritten = [](const QueueModel::Line* line) { return line->state == State::Written; };
  _show->setEnabled(std::ranges::any_of(lines, isWritten));
  _cancel->setEnabled(!unended(lines).empty());
  _end->setText(_model.isBusy() ? tr("Cancel all") : tr("Close"));
}

QueuePanel::Lines QueuePanel::selected() const {
  Lines lines;
  for (const QModelIndex& index : _list->selectionModel()->selectedIndexes()) {
    lines.push_back(&_model.lines()[static_cast<std::size_t>(index.row())]);
  }
  return lines;
}

QueuePanel::Lines QueuePanel::unended(const Lines& lines) {
  Lines some;
  std::ranges::copy_if(lines, std::back_inserter(some),
                       [](const QueueModel::Line* line) { return isUnderWay(*line); });
  return some;
}

void QueuePanel::cancel(const Lines& lines) {
  std::vector<int> ids;
  for (const QueueModel::Line* line : unended(lines)) ids.push_back(line->id);
  if (!ids.empty()) emit cancelRequested(ids);
}

void QueuePanel::cancelAll() {
  Lines all;
  for (const QueueModel::Line& line : _model.lines()) all.push_back(&line);
  cancel(all);
}

void QueuePanel::showInFolder() {
  std::vector<std::filesystem::path> files;
  for (const QueueModel::Line* line : selected()) {
    if (line->state == State::Written) files.push_back(line->target);
  }
  if (!files.empty()) emit showInFolderRequested(files);
}

void QueuePanel::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Delete) return cancel(selected());
  const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (isReturn && _list->hasFocus()) return showInFolder();
  DialogWindow::keyPressEvent(event);
}

void QueuePanel::reject() {
  DialogWindow::reject();
  if (!_model.isBusy()) _model.clear();
}
