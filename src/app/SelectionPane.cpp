// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/SelectionPane.h"

#include <QLayout>

#include "controls/ClockText.h"

SelectionPane::SelectionPane(BrowserView& view, FolderBrowser& browser, const BrowserPane& files,
                             QObject* parent)
    : QObject(parent), _view(view), _browser(browser), _files(files) {
  _soon.setSingleShot(true);
  const auto soon = [this] { _soon.start(0); };
  connect(&_soon, &QTimer::timeout, this, &SelectionPane::update);
  connect(_view.tableFile, &FileList::selectionMoved, this, soon);
  connect(&_browser, &FolderBrowser::rowsAboutToChange, this, soon);
  connect(&_browser, &FolderBrowser::rowsChanged, this, soon);
  connect(&_browser.model(), &FileListModel::dataChanged, this, soon);
  connect(_view.btnExportSelected, &QPushButton::clicked, this, &SelectionPane::exportRequested);
}

void SelectionPane::update() {
  const std::vector<WavItem> takes = _files.selectedTakes();
  showBar(takes.size() > 1);
  if (takes.size() < 2) return;
  const std::optional<double> seconds = secondsOf(takes);
  const QString time = seconds ? ClockText::of(*seconds) : QStringLiteral("…");
  const QString count = tr("%n takes", nullptr, static_cast<int>(takes.size()));
  _view.lblSelection->setText(QStringLiteral("%1 · %2").arg(count, time));
  _view.btnExportSelected->setText(tr("Export %1…").arg(takes.size()));
}

// None until all of them have been looked at; what cannot be read is not long.
std::optional<double> SelectionPane::secondsOf(const std::vector<WavItem>& takes) const {
  const FileListModel& model = _browser.model();
  double all = 0;
  for (const WavItem& take : takes) {
    if (!model.isKnown(take)) return std::nullopt;
    all += model.factsOf(take).seconds.value_or(0);
  }
  return all;
}

// What was selected last stays in sight over the bar.
void SelectionPane::showBar(bool isShown) {
  if (_view.viewSelectionBG->isHidden() == !isShown) return;
  _view.viewSelectionBG->setHidden(!isShown);
  _view.layout()->activate();
  if (isShown) _view.tableFile->scrollTo(_view.tableFile->currentIndex());
}
