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
    : _worker(order) {
  auto* const progress = new ExportProgress(nameOf(order.source), nameOf(order.target), parent);
  progress->setParentFrame(parentFrame);
  connect(progress, &ExportProgress::cancelRequested, this, &ExportRun::cancel);
  _progress = progress;
  connect(&_timer, &QTimer::timeout, this, &ExportRun::look);
  _clock.start();
  _timer.start(kRefresh);
}

void ExportRun::raiseProgress() {
  if (ExportProgress* const progress = _progress) {
    progress->show();
    progress->raise();
    progress->activateWindow();
  }
}

void ExportRun::look() {
  if (_worker.isFinished()) {
    _timer.stop();
    delete _progress;
    emit finished();
  } else if (ExportProgress* const progress = _progress) {
    show(*progress);
  }
}

void ExportRun::show(ExportProgress& progress) {
  const qint64 elapsed = _clock.elapsed();
  const double done = _worker.done();
  progress.update(done, TimeLeft::text(static_cast<double>(elapsed) / 1000.0, done));
  if (elapsed >= kBeforeShown) progress.show();
}
