// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "dialogs/ExportProgress.h"
#include "dialogs/ExportWorker.h"

/// An export under way: the worker, and its progress window, which appears once the export has
/// taken a moment. Interface thread.
class ExportRun : public QObject {
  Q_OBJECT

 public:
  /// Begins at once. `parentFrame` is where the progress window appears.
  ExportRun(const ExportOrder& order, const QRect& parentFrame, QWidget* parent);
  ~ExportRun() override { delete _progress; }

  void cancel() { _worker.cancel(); }
  /// Brings the progress window to the front.
  void raiseProgress();
  /// To be asked after `finished`.
  [[nodiscard]] const ExportWorker& worker() const { return _worker; }

 signals:
  /// The worker is through; the progress window is closed.
  void finished();

 private:
  void look();
  void show(ExportProgress& progress);

  ExportWorker _worker;
  QElapsedTimer _clock;
  QTimer _timer;
  QPointer<ExportProgress> _progress;  ///< may go before this, with its parent
};
