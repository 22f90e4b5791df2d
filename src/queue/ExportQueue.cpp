// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/ExportQueue.h"

#include <algorithm>
#include <utility>

#include "base/EndPatience.h"

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kRefresh(40);

}  // namespace

ExportQueue::ExportQueue(ExportWorker::Work work, SteadyTime::Clock clock)
    : _work(std::move(work)), _clock(std::move(clock)) {
  connect(&_timer, &QTimer::timeout, this, &ExportQueue::look);
}

// A worker tells of its end while this is still there.
ExportQueue::~ExportQueue() {
  for (const Running& running : _running) running.worker->cancel();
  const auto began = _clock();
  for (Running& running : _running) {
    if (_patience) {
      const auto left = std::max(0ms, *_patience - (_clock() - began));
      running.worker->setPatience(EndPatience::atMost(left));
    }
    running.worker.reset();
  }
}

ExportQueue::Id ExportQueue::add(const ExportOrder& order) {
  const Id id = ++_last;
  _waiting.push_back({id, order});
  emit added(id, order);
  fill();
  return id;
}

void ExportQueue::setAtOnce(std::size_t count) {
  _atOnce = std::max<std::size_t>(1, count);
  fill();
}

void ExportQueue::fill() {
  while (_running.size() < _atOnce && !_waiting.empty()) {
    Waiting next = std::move(_waiting.front());
    _waiting.pop_front();
    begin(std::move(next));
  }
}

void ExportQueue::begin(Waiting next) {
  auto ended = std::make_unique<ThreadSignal>([this, id = next.id] { end(id); });
  auto worker = std::make_unique<ExportWorker>(next.order, _work,
                                               [signal = ended.get()] { signal->raise(); });
  _running.push_back({next.id, next.order, _clock(), std::move(ended), std::move(worker)});
  if (!_timer.isActive()) _timer.start(kRefresh);
  emit began(next.id, next.order);
}

void ExportQueue::look() {
  for (const Id id : ids()) {
    const auto it = std::ranges::find(_running, id, &Running::id);
    if (it == _running.end()) continue;  // it waits, or a slot has changed things
    emit progressed(id, it->worker->done(), _clock() - it->began);
  }
}

void ExportQueue::end(Id id) {
  const auto it = std::ranges::find(_running, id, &Running::id);
  const Running ended = std::move(*it);
  _running.erase(it);
  if (_running.empty()) _timer.stop();
  emit finished(id, ended.order, ended.worker->result());
  fill();
}

void ExportQueue::cancel(Id id) {
  const auto it = std::ranges::find(_running, id, &Running::id);
  if (it != _running.end()) {
    it->worker->cancel();
  } else {
    drop(id);
  }
}

void ExportQueue::drop(Id id) {
  const auto it = std::ranges::find(_waiting, id, &Waiting::id);
  if (it == _waiting.end()) return;
  const Waiting dropped = std::move(*it);
  _waiting.erase(it);
  emit finished(id, dropped.order, {ExportResult::End::Cancelled, {}});
}

void ExportQueue::cancelAll() {
  for (const Id id : ids()) cancel(id);
}

std::vector<ExportQueue::Id> ExportQueue::ids() const {
  std::vector<Id> all;
  all.reserve(_running.size() + _waiting.size());
  for (const Running& running : _running) all.push_back(running.id);
  for (const Waiting& waiting : _waiting) all.push_back(waiting.id);
  return all;
}

bool ExportQueue::isRunning(Id id) const {
  return std::ranges::find(_running, id, &Running::id) != _running.end();
}
