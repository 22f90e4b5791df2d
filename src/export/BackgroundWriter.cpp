// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/BackgroundWriter.h"

#include <exception>
#include <utility>

BackgroundWriter::~BackgroundWriter() {
  end(true);
}

void BackgroundWriter::submit(Block& block) {
  if (startOnce()) {
    hand(block);
  } else {
    append(block);
  }
  block.clear();
}

bool BackgroundWriter::startOnce() {
  if (_thread.joinable()) return true;
  try {
    _thread = std::thread(&BackgroundWriter::run, this);
  } catch (const std::exception&) {
    return false;  // asked for again with the next block, as there may be one by then
  }
  return true;
}

void BackgroundWriter::hand(Block& block) {
  std::unique_lock lock(_mutex);
  _changed.wait(lock, [this] { return _submitted - _written < kSlots; });
  std::swap(_slots[_submitted % kSlots], block);
  ++_submitted;
  _changed.notify_all();
}

void BackgroundWriter::append(const Block& block) {
  if (!hasFailed() && !_append(block)) _hasFailed = true;
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
    append(block);
    lock.lock();
    ++_written;
    _changed.notify_all();
  }
}
