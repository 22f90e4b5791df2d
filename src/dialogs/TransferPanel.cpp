// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TransferPanel.h"

#include <QHBoxLayout>
#include <QStringList>
#include <QVBoxLayout>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>

#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "controls/PlainText.h"
#include "dialogs/ExportFacts.h"
#include "dialogs/PathText.h"
#include "dialogs/TimeLeft.h"

namespace {

constexpr int kWidth = 400;
constexpr int kListLines = 12;       // without what is between them
constexpr int kFile = Qt::UserRole;  // of a line, as bytes

}  // namespace

TransferPanel::TransferPanel(const Words& words, Maker make, QWidget* parent)
    : DialogWindow(parent), _words(words), _make(std::move(make)), _clock(SteadyTime::now) {
  _form = new QFormLayout;
  _form->setHorizontalSpacing(24);
  _form->setVerticalSpacing(8);
  makeReport(words.lines);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargins);
  column->setSpacing(8);
  column->addLayout(_form);
  column->addSpacing(4);
  for (QWidget* const part :
       std::initializer_list<QWidget*>{_summary, _bar, _state, _list, _complaint}) {
    column->addWidget(part);
  }
  column->addSpacing(8);
  column->addLayout(buttons(words.begin));
  setMinimumWidth(Appearance::lineWidth(kWidth, font()) + kMarginsAcross);
  showStage(Stage::Choosing);
  connect(&_job, &TransferJob::progressed, this, &TransferPanel::showProgress);
  connect(&_job, &TransferJob::told, this, &TransferPanel::add);
  connect(&_job, &TransferJob::ended, this, &TransferPanel::finish);
}

void TransferPanel::makeReport(const QString& name) {
  _summary = label({}, "heading");
  _summary->setObjectName(QStringLiteral("summary"));
  _bar = new QProgressBar(this);
  _bar->setRange(0, kSteps);
  _bar->setTextVisible(false);
  _bar->setAccessibleName(tr("Progress"));
  _state = label({}, "dim");
  _state->setObjectName(QStringLiteral("state"));
  _complaint = label({}, "warning");
  _complaint->setObjectName(QStringLiteral("complaint"));
  _list = new QListWidget(this);
  _list->setAccessibleName(name);
  _list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  _list->setTextElideMode(Qt::ElideMiddle);
  _list->setWordWrap(true);
  _list->setSpacing(2);
  _list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  _list->setFixedHeight(kListLines * _list->fontMetrics().lineSpacing());
}

QLayout* TransferPanel::buttons(const QString& begin) {
  _show = new QPushButton(tr("Show in folder"), this);
  _cancel = new QPushButton(tr("Cancel"), this);
  _begin = new QPushButton(begin, this);
  _begin->setProperty("primary", true);
  _begin->setDefault(true);
  for (QPushButton* const button : {_show, _cancel}) button->setAutoDefault(false);
  connect(_show, &QPushButton::clicked, this, &TransferPanel::showInFolder);
  connect(_cancel, &QPushButton::clicked, this, [this] { isBusy() ? cancel() : reject(); });
  connect(_begin, &QPushButton::clicked, this, &TransferPanel::begin);
  auto* const row = new QHBoxLayout;
  row->addWidget(_show);
  row->addStretch();
  row->addWidget(_cancel);
  row->addWidget(_begin);
  return row;
}

void TransferPanel::initWindowUI() {
  DialogWindow::initWindowUI(_words.title);
}

FolderButton& TransferPanel::addPlace(const QString& caption) {
  auto* const button = new FolderButton(caption, this);
  QLabel* const name = label(caption, "dim");
  name->setMinimumHeight(button->sizeHint().height());  // on one line with the button's text
  name->setBuddy(button);
  _form->addRow(name, button);
  connect(button, &FolderButton::chosen, this, &TransferPanel::showChoice);
  _places.push_back(button);
  orderTabs();
  showChoice();
  return *button;
}

// What is chosen comes before what is done with it.
void TransferPanel::orderTabs() {
  std::vector<QWidget*> stops(_places.begin(), _places.end());
  stops.insert(stops.end(), {_list, _show, _cancel, _begin});
  for (std::size_t i = 1; i < stops.size(); ++i) setTabOrder(stops[i - 1], stops[i]);
}

void TransferPanel::viewWillAppear() {
  DialogWindow::viewWillAppear();
  if (!_places.empty() && _places.front()->isEnabled()) _places.front()->setFocus();
}

TransferPanel::Places TransferPanel::places() const {
  Places all;
  for (const FolderButton* const place : _places) all.push_back(place->folder());
  return all;
}

void TransferPanel::showChoice() {
  const auto isOpen = [](const FolderButton* place) { return place->folder().empty(); };
  _begin->setEnabled(std::ranges::none_of(_places, isOpen));
}

void TransferPanel::begin() {
  _complaint->clear();
  _summary->clear();
  showStage(Stage::Working);
  _began = _clock();
  _job.begin(_make(places()));
  emit begun();
}

void TransferPanel::showProgress(const TransferJob::Progress& progress) {
  const double whole = static_cast<double>(std::max<std::uint64_t>(progress.total, 1));
  _bar->setValue(static_cast<int>(static_cast<double>(progress.done) / whole * kSteps));
  if (progress.files > 0) {
    _summary->setText(tr("%1 of %2 takes").arg(progress.filesDone).arg(progress.files));
  }
  if (_cancel->isEnabled()) _state->setText(stateText(progress));
  fixSize();
}

// By the bytes that took time: what was there already says nothing of the rest.
QString TransferPanel::stateText(const TransferJob::Progress& progress) const {
  const double seconds = std::chrono::duration<double>(_clock() - _began).count();
  const std::uint64_t left = progress.total - std::min(progress.done, progress.total);
  if (seconds < 1 || progress.worked == 0) return {};
  const auto worked = static_cast<double>(progress.worked);
  const QString speed =
      tr("%1/s").arg(ExportFacts::textOf(static_cast<std::uint64_t>(worked / seconds)));
  const QString time = TimeLeft::text(seconds, worked / (worked + static_cast<double>(left)));
  return time.isEmpty() ? speed : tr("%1 · %2").arg(speed, time);
}

void TransferPanel::add(const std::vector<TransferJob::Line>& lines) {
  for (const TransferJob::Line& line : lines) {
    auto* const row = new QListWidgetItem(line.text, _list);
    row->setToolTip(PlainText::of(line.text));
    if (!line.isRight) row->setForeground(Colors::warning());
    row->setData(kFile, QByteArray::fromStdString(line.file.native()));
  }
  _list->scrollToBottom();
}

// What could not even begin may begin elsewhere.
void TransferPanel::finish(const TransferJob::End& end) {
  _summary->setText(end.summary);
  _complaint->setText(end.complaint);
  showStage(end.summary.isEmpty() ? Stage::Choosing : Stage::Done);
  if (!isVisible()) show();
  emit ended(inShort(end));
}

// A summary has no full stop, a complaint is sentences.
QString TransferPanel::inShort(const TransferJob::End& end) const {
  if (end.summary.isEmpty()) return tr("%1: %2").arg(_words.title, end.complaint);
  if (end.complaint.isEmpty()) return tr("%1: %2.").arg(_words.title, end.summary);
  return tr("%1: %2. %3").arg(_words.title, end.summary, end.complaint);
}

void TransferPanel::showStage(Stage stage) {
  const bool isWorking = stage == Stage::Working;
  const bool isDone = stage == Stage::Done;
  for (FolderButton* const place : _places) place->setEnabled(stage == Stage::Choosing);
  _summary->setVisible(isWorking || isDone);
  _bar->setVisible(isWorking);
  _state->setVisible(isWorking);
  _list->setVisible(isWorking || (isDone && _list->count() > 0));
  _complaint->setHidden(_complaint->text().isEmpty());
  _show->setVisible(isDone && _list->count() > 0);
  _begin->setVisible(stage == Stage::Choosing);
  _cancel->setText(isDone ? tr("Close") : tr("Cancel"));
  _cancel->setEnabled(true);
  fixSize();
}

void TransferPanel::cancel() {
  _job.cancel();
  _cancel->setEnabled(false);
  _state->setText(tr("Cancelling"));
  fixSize();
}

// Of what is selected, or else of all.
void TransferPanel::showInFolder() {
  std::vector<std::filesystem::path> files;
  const bool hasSelection = !_list->selectedItems().empty();
  for (int row = 0; row < _list->count(); ++row) {
    const QListWidgetItem& item = *_list->item(row);
    const std::string file = item.data(kFile).toByteArray().toStdString();
    if (!file.empty() && (item.isSelected() || !hasSelection)) files.emplace_back(file);
  }
  if (!files.empty()) emit showInFolderRequested(files);
}

void TransferPanel::reject() {
  DialogWindow::reject();
  if (!isBusy()) deleteLater();
}
