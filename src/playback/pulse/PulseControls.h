// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "base/ThreadSignal.h"
#include "playback/AudioOutput.h"
#include "playback/Lent.h"
#include "playback/PlayedClock.h"
#include "playback/SourceSlot.h"

/// What the two threads of a `PulseOutput` share. Every field is atomic, or written before an
/// atomic one that tells of it. Lives as long as the longer of them uses it.
struct PulseControls {
  static constexpr std::uint32_t kNoDrain = UINT32_MAX;

  explicit PulseControls(const AudioOutput::Format& outputFormat)
      : format(outputFormat), clock(outputFormat.sampleRate) {}

  /// Tells the owner that the output is gone; why is a sentence for people. The output's thread, or
  /// the owner's where that could not be started.
  void lose(const std::string& reason) {
    why = reason;
    isLost.store(true);
    tellOwner();
  }

  /// Has the owner look at the news, where there still is one. As `lose`.
  void tellOwner() {
    owner.use([](const ThreadSignal& signal) { signal.raise(); });
  }

  AudioOutput::Format format;  ///< constant
  SourceSlot source;
  Lent<const ThreadSignal> owner;
  PlayedClock clock;

  // Wishes of the owner.
  std::atomic<bool> isRunning{false};
  std::atomic<bool> isDraining{false};
  std::atomic<std::uint32_t> flushes{0};  ///< how many were asked for
  std::atomic<float> volume{1.0F};
  std::atomic<bool> isEnding{false};

  // News of the output's thread.
  std::atomic<std::uint32_t> flushed{0};  ///< how many are done
  std::atomic<bool> hasProgressed{false};
  std::atomic<std::uint32_t> drained{
      kNoDrain};  ///< number of flushes before the drain that is done
  std::atomic<std::uint64_t> underruns{0};
  std::atomic<bool> isLost{false};
  std::string why;  ///< written before `isLost`
};
