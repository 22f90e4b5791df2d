// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "playback/AudioOutput.h"
#include "playback/Lent.h"

/// The source that an output pulls from, exchangeable while it plays.
///
/// `pull` belongs to the output's thread and never waits. `set` belongs to the owner's thread and
/// waits at most for one pull under way, which is a copy of some milliseconds of samples.
class SourceSlot {
 public:
  void set(AudioSource* source) { _source.set(source); }

  /// `mayPull` is asked after the source has been looked up, so it sees at least what the owner had
  /// done before it set that source.
  template <class Predicate>
  AudioSource::Pulled pull(std::span<float> to, Predicate mayPull) {
    AudioSource::Pulled pulled;
    _source.use([&](AudioSource& source) {
      if (mayPull()) pulled = source.pull(to);
    });
    return pulled;
  }

 private:
  Lent<AudioSource> _source;
};
