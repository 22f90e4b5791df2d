// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/QueueModel.h"

#include <algorithm>
#include <utility>

#include "controls/Reason.h"
#include "dialogs/PathText.h"
#include "dialogs/TimeLeft.h"

namespace {

QueueModel::State stateOf(ExportResult::End end) {
  switch (end) {
    case ExportResult::End::Written:
      return QueueModel::State::Written;
    case ExportResult::End::Cancelled:
      return QueueModel::State::Cancelled;
    default:
      return QueueModel::State::Failed;
  }
}

bool hasEnded(const QueueModel::Line& line) {
  using State = QueueModel::State;
  return line.state != State::Waiting && line.state != State::Running &&
         line.state != State::Cancelling;
}

}  // namespace

void QueueModel::add(int id, const ExportOrder& order) {
  const int row = rowCount();
  beginInsertRows({}, row, row);
  Line line;
  line.id = id;
  line.source = order.source;
  line.target = order.target;
  line.size = order.size;
  _rows[id] = _lines.size();
  _lines.push_back(std::move(line));
  ++_unended;
  endInsertRows();
}

const QueueModel::Line* QueueModel::lineOf(int id) const {
  const auto found = _rows.find(id);
  return found == _rows.end() ? nullptr : &_lines[found->second];
}

template <class Change>
void QueueModel::change(int id, const Change& change) {
  const auto found = _rows.find(id);
  if (found == _rows.end()) return;
  change(_lines[found->second]);
  const QModelIndex changed = index(static_cast<int>(found->second));
  emit dataChanged(changed, changed);
}

void QueueModel::begin(int id) {
  change(id, [](Line& line) { line.state = State::Running; });
}

void QueueModel::progress(int id, double done, std::chrono::milliseconds elapsed) {
  const double seconds = std::chrono::duration<double>(elapsed).count();
  change(id, [done, seconds](Line& line) {
    line.done = done;
    line.timeLeft = TimeLeft::text(seconds, done);
  });
}

void QueueModel::cancelling(int id) {
  change(id, [](Line& line) { line.state = State::Cancelling; });
}

void QueueModel::finish(int id, const ExportResult& result) {
  change(id, [this, &result](Line& line) {
    if (!hasEnded(line)) --_unended;
    line.state = stateOf(result.end);
    if (line.state == State::Failed) line.why = Reason::text(result.failure);
  });
}

void QueueModel::clear() {
  beginResetModel();
  _lines.clear();
  _rows.clear();
  _unended = 0;
  endResetModel();
}

std::size_t QueueModel::count(State state) const {
  return static_cast<std::size_t>(std::ranges::count(_lines, state, &Line::state));
}

// A line whose size nobody knows counts for a byte.
double QueueModel::done() const {
  double all = 0;
  double done = 0;
  for (const Line& line : _lines) {
    const double size = std::max(1.0, static_cast<double>(line.size));
    all += size;
    done += hasEnded(line) ? size : size * line.done;
  }
  return all > 0 ? done / all : 0;
}

std::set<std::filesystem::path> QueueModel::awaited() const {
  std::set<std::filesystem::path> targets;
  for (const Line& line : _lines) {
    if (!hasEnded(line)) targets.insert(line.target);
  }
  return targets;
}

int QueueModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_lines.size());
}

QVariant QueueModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount()) return {};
  const Line& line = _lines[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return PathText::textOf(line.source.filename());
  if (role == Qt::ToolTipRole) return tipOf(line);
  if (role == kDoneRole) return line.done;
  if (role == kRunningRole) return line.state == State::Running;
  if (role == kFailedRole) return line.state == State::Failed;
  if (role == kStateRole || role == Qt::AccessibleDescriptionRole) return stateText(line);
  return {};
}

QString QueueModel::stateText(const Line& line) {
  switch (line.state) {
    case State::Waiting:
      return tr("Waiting");
    case State::Running: {
      const QString percent = tr("%1 %").arg(static_cast<int>(line.done * 100.0));
      return line.timeLeft.isEmpty() ? percent : tr("%1 · %2").arg(percent, line.timeLeft);
    }
    case State::Cancelling:
      return tr("Cancelling");
    case State::Written:
      return tr("Exported");
    case State::Cancelled:
      return tr("Cancelled");
    case State::Failed:
      return line.why;
  }
  return {};
}

// A name may look like markup.
QString QueueModel::tipOf(const Line& line) {
  const QString target = PathText::textOf(line.target).toHtmlEscaped();
  if (line.state != State::Failed) return QStringLiteral("<p>%1</p>").arg(target);
  return QStringLiteral("<p>%1</p><p>%2</p>").arg(target, line.why.toHtmlEscaped());
}
