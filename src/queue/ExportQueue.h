// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "base/SteadyTime.h"
#include "base/ThreadSignal.h"
#include "queue/ExportOrder.h"
#include "queue/ExportResult.h"
#include "queue/ExportWorker.h"

/// Carries out export orders in the background, in the order in which they came: one after the
/// other, or as many at once as is wished. Knows no widget.
///
/// Each order has one `added` and one `finished`; between them one `began` and, while it runs,
/// `progressed`, unless it is cancelled before its turn. Interface thread, whose event loop has to
/// run; slots may add and cancel, but not destroy the queue. The end of the queue cancels
/// everything, waits for the workers and tells nothing any more.
class ExportQueue : public QObject {
  Q_OBJECT

 public:
  /// Tells orders apart; never used twice in a queue.
  using Id = int;

  /// `work` is called on the workers' threads, several times at once where that is wished.
  explicit ExportQueue(ExportWorker::Work work = ExportWorker::carryOut,
                       SteadyTime::Clock clock = SteadyTime::now);
  /// Cancels everything and waits for what runs, as long as `setPatience` says.
  ~ExportQueue() override;

  /// Tells `added`, and `began` where it is its turn, before it returns.
  Id add(const ExportOrder& order);
  /// One that waits is finished before this returns; one that runs ends soon. One that is neither
  /// is left alone.
  void cancel(Id id);
  void cancelAll();

  /// How many run at once, 1 to begin with; fewer than run already lets those run on.
  void setAtOnce(std::size_t count);
  [[nodiscard]] std::size_t atOnce() const { return _atOnce; }

  /// How long the queue's end waits for all exports to stop, at the end of the program no longer
  /// than `EndPatience` allows; at first as long as it takes. One whose medium hangs ends by itself
  /// later, or with the program.
  void setPatience(std::chrono::milliseconds most) { _patience = most; }

  /// Whether anything runs or waits.
  [[nodiscard]] bool isBusy() const { return !_running.empty() || !_waiting.empty(); }
  /// What runs, then what waits, each with the oldest first.
  [[nodiscard]] std::vector<Id> ids() const;
  [[nodiscard]] bool isRunning(Id id) const;

 signals:
  void added(int id, const ExportOrder& order);
  void began(int id, const ExportOrder& order);
  /// 25 times a second while it runs. `done` is 0 to 1, `elapsed` counts from `began`.
  void progressed(int id, double done, std::chrono::milliseconds elapsed);
  /// It neither runs nor waits any more.
  void finished(int id, const ExportOrder& order, const ExportResult& result);

 private:
  struct Waiting {
    Id id;
    ExportOrder order;
  };
  struct Running {
    Id id;
    ExportOrder order;
    std::chrono::milliseconds began;
    std::unique_ptr<ThreadSignal> end;  ///< outlives the worker, which raises it
    std::unique_ptr<ExportWorker> worker;
  };

  void fill();
  void begin(Waiting next);
  void look();
  void end(Id id);
  void drop(Id id);

  ExportWorker::Work _work;
  SteadyTime::Clock _clock;
  std::size_t _atOnce = 1;
  std::optional<std::chrono::milliseconds> _patience;
  Id _last = 0;
  std::deque<Waiting> _waiting;
  std::vector<Running> _running;
  QTimer _timer;
};
