// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/BackgroundWriter.h"

#include <utility>

BackgroundWriter::~BackgroundWriter() {
  end(true);
}

void BackgroundWriter::submit(Block& block) {
  if (!_thread.joinable()) _thread = std::thread(&BackgroundWriter::run, this);
  std::unique_lock lock(_mutex);
  _changed.wait(lock, [this] { return _submitted - _written < kSlots; });
  std::swap(_slots[_submitted % kSlots], block);
  ++_submitted;
  _changed.notify_all();
  block.clear();
}

void BackgroundWriter::finish() {
  end(false);
}

void BackgroundWriter::end(bool dropRest) {
  if (!_thread.joinable()) return;
  {
    const std::lock_guard lock(_mutex);
    _isEnding = true;
    if (dropRest) _hasFailed = true;
    _changed.notify_all();
  }
  _thread.join();
}

void BackgroundWriter::run() {
  std::unique_lock lock(_mutex);
  while (true) {
    _changed.wait(lock, [this] { return _written < _submitted || _isEnding; });
    if (_written == _submitted) return;
    const Block& block = _slots[_written % kSlots];
    lock.unlock();
    if (!hasFailed() && !_append(block)) _hasFailed = true;
    lock.lock();
    ++_written;
    _changed.notify_all();
  }
}
