// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaClosing.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "midi/alsa/AlsaSequencer.h"

struct AlsaClosing::Desk {
  void add(int count) {
    const std::lock_guard lock(mutex);
    open += count;
    changed.notify_all();
  }

  std::mutex mutex;  ///< guards the number
  std::condition_variable changed;
  int open = 0;
};

AlsaClosing::AlsaClosing() : _desk(std::make_shared<Desk>()) {}

AlsaClosing::~AlsaClosing() = default;

void AlsaClosing::begin(std::unique_ptr<AlsaSequencer> sequencer) {
  const auto held = std::make_shared<std::unique_ptr<AlsaSequencer>>(std::move(sequencer));
  _desk->add(1);
  const auto end = [desk = _desk, held] {
    held->reset();
    desk->add(-1);
  };
  try {
    std::thread(end).detach();
  } catch (const std::exception&) {  // no thread, or no memory for one
    end();
  }
}

bool AlsaClosing::isUnderWay() const {
  const std::lock_guard lock(_desk->mutex);
  return _desk->open > 0;
}

void AlsaClosing::wait(std::chrono::milliseconds patience) const {
  std::unique_lock lock(_desk->mutex);
  _desk->changed.wait_for(lock, patience, [this] { return _desk->open == 0; });
}
