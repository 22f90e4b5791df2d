// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <limits>

/// Frames heard, told now and then by the output's thread and read at any moment by the owner's,
/// without locks.
///
/// Between two reports the clock runs on by the machine's steady time, never past the frames handed
/// over. Each value is one atomic number: while it moves, the moment at which frame 0 was heard.
/// Threads: `heard` and `rewind` on the owner's, everything else on the output's.
class PlayedClock {
 public:
  explicit PlayedClock(double sampleRate) : _sampleRate(sampleRate) {}

  /// This many frames have been heard by now, and more are on their way.
  void moving(double frames);
  /// This many have been heard, and no more are for now.
  void standing(double frames);
  /// Frames handed over, all together.
  void setHandedOver(std::uint64_t frames);
  [[nodiscard]] std::uint64_t handedOver() const;
  /// Frames heard by now. Any thread.
  [[nodiscard]] double estimate() const;
  /// Nothing handed over, nothing heard.
  void reset();

  /// Never goes back between two calls of `rewind`.
  [[nodiscard]] double heard();
  void rewind() { _last = 0; }

 private:
  static constexpr double kNever = std::numeric_limits<double>::infinity();

  std::atomic<double> _start{kNever};  ///< seconds of the steady clock; never: standing
  std::atomic<double> _floor{0};       ///< frames heard for sure
  std::atomic<double> _handedOver{0};
  double _sampleRate;
  double _last = 0;
};
