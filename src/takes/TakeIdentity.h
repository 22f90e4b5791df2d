// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "wav/WaveFileReader.h"

/// What a take is, whatever it is called and wherever it lies: a text made of its length, its
/// broadcast extension, its header and three stretches of its sound, at the beginning, in the
/// middle and at the end. A copy has the same one; another take of the same length has another.
///
/// What is changed elsewhere in the sound and leaves the length does not show. Any thread.
class TakeIdentity {
 public:
  /// Bytes that are read at most of each of the five, the length being known.
  static constexpr std::size_t kMostOfEach = 65536;

  /// 32 hexadecimal digits; empty where the file is no WAVE file or cannot be read. Waits for the
  /// medium.
  static std::string of(const WaveFileReader& reader);
};
