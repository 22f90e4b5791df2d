// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <vector>

#include "queue/ExportOrder.h"
#include "queue/ExportResult.h"

/// A line a take that is exported with others: how far it is and, in the end, what came of it.
/// Interface thread.
class QueueModel : public QAbstractListModel {
  Q_OBJECT

 public:
  enum class State { Waiting, Running, Cancelling, Written, Cancelled, Failed };
  Q_ENUM(State)

  /// Roles beside the usual ones: how far, 0 to 1; the state as people read it; whether it failed,
  /// or runs.
  static constexpr int kDoneRole = Qt::UserRole + 1;
  static constexpr int kStateRole = Qt::UserRole + 2;
  static constexpr int kFailedRole = Qt::UserRole + 3;
  static constexpr int kRunningRole = Qt::UserRole + 4;

  struct Line {
    int id = 0;  ///< in the queue
    std::filesystem::path source;
    std::filesystem::path target;
    std::uint64_t size = 0;
    State state = State::Waiting;
    double done = 0;
    QString timeLeft;
    QString why;  ///< of a failure
  };

  using QAbstractListModel::QAbstractListModel;

  void add(int id, const ExportOrder& order);
  /// The line of this order; null where it has none.
  [[nodiscard]] const Line* lineOf(int id) const;
  void begin(int id);
  void progress(int id, double done, std::chrono::milliseconds elapsed);
  /// It is to end soon.
  void cancelling(int id);
  void finish(int id, const ExportResult& result);
  void clear();

  [[nodiscard]] const std::vector<Line>& lines() const { return _lines; }
  [[nodiscard]] std::size_t count(State state) const;
  /// Whether something runs or waits.
  [[nodiscard]] bool isBusy() const { return _unended > 0; }
  /// How much of all of it is done, by bytes, 0 to 1.
  [[nodiscard]] double done() const;
  /// What those that have not ended are about to write.
  [[nodiscard]] std::set<std::filesystem::path> awaited() const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
  template <class Change>
  void change(int id, const Change& change);
  static QString stateText(const Line& line);
  static QString tipOf(const Line& line);

  std::vector<Line> _lines;
  std::map<int, std::size_t> _rows;  ///< by the orders' numbers
  std::size_t _unended = 0;
};
