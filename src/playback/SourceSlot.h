// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <span>
#include <thread>

#include "playback/AudioOutput.h"

/// The source that an output pulls from, exchangeable while it plays.
///
/// `pull` belongs to the output's thread and never waits. `set` belongs to the owner's thread and
/// waits at most for one pull under way, which is a copy of some milliseconds of samples. The two
/// flags are read after the other side's has been written, in one order for all threads: either
/// `pull` sees the new source, or `set` sees the pull.
class SourceSlot {
 public:
  void set(AudioSource* source) {
    _source.store(source);
    while (_isPulling.load()) std::this_thread::yield();
  }

  /// `mayPull` is asked after the source has been looked up, so it sees at least what the owner had
  /// done before it set that source.
  template <class Predicate>
  AudioSource::Pulled pull(std::span<float> to, Predicate mayPull) {
    _isPulling.store(true);
    AudioSource* const source = _source.load();
    AudioSource::Pulled pulled;
    if (source != nullptr && mayPull()) pulled = source->pull(to);
    _isPulling.store(false);
    return pulled;
  }

 private:
  std::atomic<AudioSource*> _source{nullptr};
  std::atomic<bool> _isPulling{false};
};
