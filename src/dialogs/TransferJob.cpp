// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TransferJob.h"

#include <exception>
#include <utility>

#include "base/EndPatience.h"
#include "base/ErrorReason.h"
#include "controls/Reason.h"

namespace {

constexpr int kRefresh = 100;  // ms

TransferJob::End guarded(const TransferJob::Work& work, TransferJob::Desk& desk) {
  try {
    return work(desk);
  } catch (const std::exception& error) {  // as where there is no memory left
    return {.complaint = Reason::text(reasonOf(error))};
  }
}

}  // namespace

void TransferJob::Desk::tell(const Progress& progress) {
  const std::lock_guard lock(_mutex);
  _progress = progress;
}

void TransferJob::Desk::add(const Line& line) {
  const std::lock_guard lock(_mutex);
  _lines.push_back(line);
}

void TransferJob::Desk::end() {
  const std::lock_guard lock(_mutex);
  _hasEnded = true;
  _ended.notify_all();
}

void TransferJob::Desk::waitForEnd(std::chrono::milliseconds most) {
  std::unique_lock lock(_mutex);
  _ended.wait_for(lock, most, [this] { return _hasEnded; });
}

TransferJob::TransferJob(QObject* parent) : QObject(parent) {
  connect(&_timer, &QTimer::timeout, this, &TransferJob::look);
}

// What the work tells is put into words by the toolkit, which does not outlive the program's end.
TransferJob::~TransferJob() {
  if (!isUnderWay()) return;
  cancel();
  _desk->waitForEnd(EndPatience::atMost(_patience));
}

void TransferJob::begin(const Work& work) {
  _desk = std::make_shared<Desk>();
  const bool hasBegun = _errand.begin([this, work, desk = _desk]() -> Errand::Outcome {
    // Its texts go over as a whole, as all that the work tells.
    const auto end = std::make_shared<End>(guarded(work, *desk));
    desk->end();
    return [this, end] { finish(std::exchange(*end, {})); };
  });
  if (!hasBegun) return finish({.complaint = Reason::text(QStringLiteral("no thread can be had"))});
  _timer.start(kRefresh);
}

void TransferJob::cancel() {
  if (_desk) _desk->_isCancelled = true;
}

void TransferJob::look() {
  std::vector<Line> lines;
  Progress progress;
  {
    const std::lock_guard lock(_desk->_mutex);
    lines = std::exchange(_desk->_lines, {});
    progress = _desk->_progress;
  }
  if (!lines.empty()) emit told(lines);
  emit progressed(progress);
}

void TransferJob::finish(const End& end) {
  _timer.stop();
  look();
  emit ended(end);
}
