// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QWidget>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "dialogs/ExportProgress.h"
#include "dialogs/ExportVC.h"
#include "queue/ExportQueue.h"

class Export;

/// What the user sees of the window's exports: the dialog that takes an order, the progress of each
/// order that runs for a while, and how it ended. Orders of a batch are `BatchDesk`'s.
///
/// When an order has ended, its progress goes, "EB_RELOAD_FILE_LIST" is fired, and then `exported`
/// comes, or `failed` and an alert; neither after a cancel. Interface thread.
class ExportDesk : public QObject {
  Q_OBJECT

 public:
  /// Everything is shown over `window`. Queue and window outlive this.
  ExportDesk(ExportQueue& queue, QWidget& window);

  /// Asks for an order and hands it to the queue; while an export runs, shows its progress instead.
  /// The job need not live on once the dialog is shown.
  void ask(const std::shared_ptr<Export>& job, const ExportVC::Extra& extra = {});

 signals:
  /// An export has been written to `path`, and the list was told.
  void exported(const std::filesystem::path& path);
  /// An export could not be written; `why` is a sentence for the window's quiet line.
  void failed(const QString& why);
  /// What runs is a batch, which somebody else shows.
  void queueWanted();

 private:
  void prepareProgress(int id, const ExportOrder& order);
  void showProgress(int id, double done, std::chrono::milliseconds elapsed);
  void raiseProgress();
  void end(int id, const ExportOrder& order, const ExportResult& result);
  void refuse(const QString& alert, const QString& why);

  ExportQueue& _queue;
  QWidget& _window;
  std::map<int, std::unique_ptr<ExportProgress>> _progress;  ///< of what runs
};
