// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/SelectionPane.h"

#include <QLayout>
#include <string>
#include <vector>

#include "dialogs/ClockText.h"

SelectionPane::SelectionPane(BrowserView& view, FolderBrowser& browser, const BrowserPane& files,
                             QObject* parent)
    : QObject(parent), _view(view), _files(files) {
  _soon.setSingleShot(true);
  const auto soon = [this] { _soon.start(0); };
  connect(&_soon, &QTimer::timeout, this, &SelectionPane::update);
  connect(_view.tableFile, &FileList::selectionMoved, this, soon);
  connect(&browser, &FolderBrowser::rowsAboutToChange, this, soon);
  connect(&browser, &FolderBrowser::rowsChanged, this, soon);
  connect(&_durations, &TakeDurations::known, this, &SelectionPane::show);
  connect(_view.btnExportSelected, &QPushButton::clicked, this, &SelectionPane::exportRequested);
}

void SelectionPane::update() {
  const std::vector<WavItem> takes = _files.selectedTakes();
  showBar(takes.size() > 1);
  if (takes.size() < 2) return _durations.forget();
  _count = takes.size();
  std::vector<std::string> paths;
  paths.reserve(takes.size());
  for (const WavItem& take : takes) paths.push_back(take.fullPath);
  _durations.ask(paths);
  show();
}

void SelectionPane::show() {
  const auto& seconds = _durations.total();
  const QString time = seconds ? ClockText::of(*seconds) : QStringLiteral("…");
  const QString takes = tr("%n takes", nullptr, static_cast<int>(_count));
  _view.lblSelection->setText(QStringLiteral("%1 · %2").arg(takes, time));
  _view.btnExportSelected->setText(tr("Export %1…").arg(_count));
}

// What was selected last stays in sight over the bar.
void SelectionPane::showBar(bool isShown) {
  if (_view.viewSelectionBG->isHidden() == !isShown) return;
  _view.viewSelectionBG->setHidden(!isShown);
  _view.layout()->activate();
  if (isShown) _view.tableFile->scrollTo(_view.tableFile->currentIndex());
}
