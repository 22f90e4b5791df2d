// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "midi/simulator/SimulatedRecorder.h"

/// What people call the parts of a simulated recorder. Stateless.
class RecorderWords {
 public:
  /// identity, start, version, card, battery, auto-power-off, date-time, set-battery,
  /// set-auto-power-off.
  static std::optional<RecorderRequest> request(std::string_view name);
  static std::string_view nameOf(RecorderRequest request);
  /// silent, slow, wrong-length, long-identity, garbage, split, merged, interleaved, disappear.
  static std::optional<RecorderFault> fault(std::string_view name);

  /// Makes the recorder what a word says: firmware=X.YZ, battery=N, auto-power-off=N,
  /// remaining=HH:MM:SS, card=USED/CAPACITY in bytes, no-card, FAULT@REQUEST, behave. False, with
  /// no effect, for a word that means nothing.
  static bool apply(std::string_view word, SimulatedRecorder& recorder);
};
