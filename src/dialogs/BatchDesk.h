// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <memory>
#include <vector>

#include "base/SteadyTime.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/QueueModel.h"
#include "dialogs/QueuePanel.h"
#include "queue/ExportQueue.h"

/// What the user sees of takes that are exported together: the dialog that takes the orders, and
/// the panel with the queue.
///
/// With each export that is written "EB_RELOAD_FILE_LIST" is fired. When the last order has ended
/// and some failed, the panel is shown again and `failed` comes; then, or else, `ended`. Interface
/// thread.
class BatchDesk : public QObject {
  Q_OBJECT

 public:
  /// Everything is shown over `window`. Queue and window outlive this.
  BatchDesk(ExportQueue& queue, QWidget& window, SteadyTime::Clock clock = SteadyTime::now);

  /// Asks how to export these takes at this gain and width, and hands the orders to the queue,
  /// behind what is in it.
  void ask(const std::vector<std::filesystem::path>& files, double gain, double angle,
           const BatchTake::Recall& recall = {});
  /// No more exports at once than so many, whatever the medium is good for.
  void setMost(unsigned count) { _most = count; }
  /// Shows the queue, where there is something in it.
  void showQueue();

 signals:
  /// Some were not exported; `why` is a sentence for the window's quiet line.
  void failed(const QString& why);
  /// Nothing of a batch runs or waits any more. Both count since something was ordered where
  /// nothing was under way; what was cancelled is neither.
  void ended(int written, int failed);
  void showInFolderRequested(const std::vector<std::filesystem::path>& files);

 private:
  void order(const std::vector<ExportOrder>& orders, unsigned atOnce);
  void progress(int id, double done, std::chrono::milliseconds elapsed);
  void finish(int id, const ExportOrder& order, const ExportResult& result);
  void cancel(const std::vector<int>& ids);
  void end();
  void refreshSoon();
  void refresh();

  ExportQueue& _queue;
  QWidget& _window;
  SteadyTime::Clock _clock;
  std::chrono::milliseconds _began{0};
  std::size_t _writtenBefore = 0;  ///< lines of what was over before
  std::size_t _failedBefore = 0;
  std::size_t _most = std::numeric_limits<std::size_t>::max();
  QueueModel _model;
  std::unique_ptr<QueuePanel> _panel;
  QTimer _soon;  ///< what lines tell meanwhile is one refresh
};
