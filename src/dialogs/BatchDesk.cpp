// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/BatchDesk.h"

#include <algorithm>
#include <utility>

#include "base/EB.h"

namespace {

constexpr int kQueueRefresh = 40;  // ms

}  // namespace

BatchDesk::BatchDesk(ExportQueue& queue, QWidget& window, SteadyTime::Clock clock)
    : _queue(queue),
      _window(window),
      _clock(std::move(clock)),
      _panel(std::make_unique<QueuePanel>(_model, &window)) {
  connect(&queue, &ExportQueue::added, this, [this](int id, const ExportOrder& order) {
    if (order.isOfBatch) _model.add(id, order);
  });
  connect(&queue, &ExportQueue::began, this, [this](int id) { _model.begin(id); });
  connect(&queue, &ExportQueue::progressed, this, &BatchDesk::progress);
  connect(&queue, &ExportQueue::finished, this, &BatchDesk::finish);
  connect(_panel.get(), &QueuePanel::cancelRequested, this, &BatchDesk::cancel);
  connect(_panel.get(), &QueuePanel::showInFolderRequested, this,
          &BatchDesk::showInFolderRequested);
  _soon.setSingleShot(true);
  connect(&_soon, &QTimer::timeout, this, &BatchDesk::refresh);
}

void BatchDesk::ask(const std::vector<std::filesystem::path>& files, double gain, double angle,
                    const BatchTake::Recall& recall) {
  if (files.empty()) return;
  auto* const dialog = new BatchDialog({files, gain, angle, _model.awaited(), recall}, &_window);
  dialog->setParentFrame(_window.window()->frameGeometry());
  connect(dialog, &BatchDialog::ordered, this, &BatchDesk::order);
  dialog->open();
}

void BatchDesk::order(const std::vector<ExportOrder>& orders, unsigned atOnce) {
  const std::size_t before = _queue.isBusy() ? _queue.atOnce() : _most;
  _queue.setAtOnce(std::min({before, _most, std::size_t{atOnce}}));
  if (!_model.isBusy()) {
    _began = _clock();
    _writtenBefore = _model.count(QueueModel::State::Written);
    _failedBefore = _model.count(QueueModel::State::Failed);
  }
  for (const ExportOrder& order : orders) _queue.add(order);
  refresh();
  if (_panel->isVisible()) return;
  _panel->setParentFrame(_window.window()->frameGeometry());
  _panel->show();
}

void BatchDesk::showQueue() {
  if (_model.rowCount() > 0) _panel->bringUp();
}

void BatchDesk::progress(int id, double done, std::chrono::milliseconds elapsed) {
  const QueueModel::Line* const line = _model.lineOf(id);
  if (line == nullptr || line->state != QueueModel::State::Running) return;
  _model.progress(id, done, elapsed);
  refreshSoon();
}

void BatchDesk::finish(int id, const ExportOrder& order, const ExportResult& result) {
  if (!order.isOfBatch) return;
  _model.finish(id, result);
  refreshSoon();
  if (result.end == ExportResult::End::Written) EB::FIRE(EB::kReloadFileList);
  if (!_model.isBusy()) end();
}

void BatchDesk::end() {
  refresh();
  const auto written = static_cast<int>(_model.count(QueueModel::State::Written) - _writtenBefore);
  const auto count = static_cast<int>(_model.count(QueueModel::State::Failed) - _failedBefore);
  if (count > 0) {
    _panel->show();
    emit failed(count == 1 ? tr("One take was not exported.")
                           : tr("%n takes were not exported.", nullptr, count));
  } else if (!_panel->isVisible()) {
    _model.clear();
  }
  emit ended(written, count);
}

void BatchDesk::cancel(const std::vector<int>& ids) {
  for (const int id : ids) {
    _model.cancelling(id);
    _queue.cancel(id);
  }
  refresh();
}

// Each look at the panel goes through all lines, and many of them may end at once.
void BatchDesk::refreshSoon() {
  if (!_soon.isActive()) _soon.start(kQueueRefresh);
}

void BatchDesk::refresh() {
  _soon.stop();
  _panel->refresh(_clock() - _began);
}
