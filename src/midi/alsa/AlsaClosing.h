// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>

class AlsaSequencer;

/// Ends clients of the sequencer on threads of their own: the kernel lets a driver play out what it
/// was given, for up to ten seconds where the device takes nothing. Whoever is still at it when the
/// process ends is broken off. Interface thread.
class AlsaClosing {
 public:
  AlsaClosing();
  AlsaClosing(const AlsaClosing&) = delete;
  AlsaClosing& operator=(const AlsaClosing&) = delete;
  ~AlsaClosing();

  /// Where no thread can be had it is ended here, however long that takes.
  void begin(std::unique_ptr<AlsaSequencer> sequencer);
  /// Some have not ended yet.
  [[nodiscard]] bool isUnderWay() const;
  /// Returns when all have ended, or after this time.
  void wait(std::chrono::milliseconds patience) const;

 private:
  struct Desk;

  std::shared_ptr<Desk> _desk;  ///< shared with the threads, which may outlive this
};
