// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportDesk.h"

#include <utility>

#include "base/EB.h"
#include "controls/Reason.h"
#include "dialogs/Alert.h"
#include "dialogs/PathText.h"
#include "dialogs/TimeLeft.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kBeforeShown = 250ms;  // a short export needs no window

// What went wrong, as the jobs tell it, ends without a full stop.
QString sentence(const ExportOrder& order, const std::string& why) {
  return ExportDesk::tr("%1 was not exported: %2.")
      .arg(PathText::nameOf(order.source), Reason::text(why));
}

}  // namespace

ExportDesk::ExportDesk(ExportQueue& queue, QWidget& window) : _queue(queue), _window(window) {
  connect(&queue, &ExportQueue::began, this, &ExportDesk::prepareProgress);
  connect(&queue, &ExportQueue::progressed, this, &ExportDesk::showProgress);
  connect(&queue, &ExportQueue::finished, this, &ExportDesk::end);
}

void ExportDesk::ask(const std::shared_ptr<Export>& job, const ExportVC::Extra& extra) {
  if (_queue.isBusy()) return _progress.empty() ? emit queueWanted() : raiseProgress();
  auto* const dialog = new ExportVC(&_window);
  dialog->setExporter(job);
  dialog->setExtra(extra);
  dialog->setParentFrame(_window.window()->frameGeometry());
  connect(dialog, &ExportVC::ordered, &_queue, &ExportQueue::add);
  dialog->open();
}

void ExportDesk::prepareProgress(int id, const ExportOrder& order) {
  if (order.isOfBatch) return;
  auto progress = std::make_unique<ExportProgress>(PathText::nameOf(order.source),
                                                   PathText::nameOf(order.target), &_window);
  progress->setParentFrame(_window.window()->frameGeometry());
  connect(progress.get(), &ExportProgress::cancelRequested, this,
          [this, id] { _queue.cancel(id); });
  _progress[id] = std::move(progress);
}

void ExportDesk::showProgress(int id, double done, std::chrono::milliseconds elapsed) {
  const auto found = _progress.find(id);
  if (found == _progress.end()) return;
  ExportProgress& progress = *found->second;
  const double seconds = std::chrono::duration<double>(elapsed).count();
  progress.update(done, TimeLeft::text(seconds, done));
  if (elapsed >= kBeforeShown) progress.show();
}

void ExportDesk::raiseProgress() {
  _progress.begin()->second->bringUp();
}

void ExportDesk::end(int id, const ExportOrder& order, const ExportResult& result) {
  if (order.isOfBatch) return;
  _progress.erase(id);
  EB::FIRE(EB::kReloadFileList);
  switch (result.end) {
    case ExportResult::End::Written:
      emit exported(order.target);
      break;
    case ExportResult::End::TargetIsSource:
      refuse(tr("Fail to open."), sentence(order, result.failure));
      break;
    case ExportResult::End::Failed:
      refuse(tr("Fail to save."), sentence(order, result.failure));
      break;
    case ExportResult::End::Cancelled:
      break;
  }
}

void ExportDesk::refuse(const QString& alert, const QString& why) {
  emit failed(why);
  Alert::show(&_window, alert);
}
