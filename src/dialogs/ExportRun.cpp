// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportRun.h"

#include <QFile>
#include <chrono>

#include "dialogs/TimeLeft.h"

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kRefresh(40);
constexpr qint64 kBeforeShown = 250;  // milliseconds; a short export needs no window

QString nameOf(const std::filesystem::path& path) {
  return QFile::decodeName(path.filename().c_str());
}

}  // namespace

ExportRun::ExportRun(const ExportOrder& order, const QRect& parentFrame, QWidget* parent)
    : _worker(order),
      _progress(new ExportProgress(nameOf(order.source), nameOf(order.target), parent)) {
  _clock.start();
  _progress->setParentFrame(parentFrame);
  connect(_progress, &ExportProgress::cancelRequested, this, &ExportRun::cancel);
  connect(&_timer, &QTimer::timeout, this, &ExportRun::look);
  _timer.start(kRefresh);
}

void ExportRun::raiseProgress() {
  _progress->show();
  _progress->raise();
  _progress->activateWindow();
}

void ExportRun::look() {
  if (_worker.isFinished()) {
    _timer.stop();
    _progress->hide();
    emit finished();
    return;
  }
  const qint64 elapsed = _clock.elapsed();
  _progress->update(_worker.done(),
                    TimeLeft::text(static_cast<double>(elapsed) / 1000.0, _worker.done()));
  if (elapsed >= kBeforeShown && !_progress->isVisible()) _progress->show();
}
