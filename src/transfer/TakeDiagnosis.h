// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "wav/WaveImage.h"

/// Whether the recording of a take broke off before its sizes were written, and what can be had of
/// it. Sizes and positions in bytes. Plain data: one thread at a time.
///
/// Broken is a data or file size of none, of more than the file holds, or of less than there is
/// (the file's less than the data, the data's by whole 4 GiB), half a frame at the end of the data,
/// and zeros after the end that the file states: such a tail is room that was kept for sound that
/// never came. Where the size of the sound is not known the zeros at its end are taken for that,
/// too, from 512 of them on; where it is known they are silence and belong to the take. The sound
/// of another, deleted file in that room cannot be told from that of the take.
struct TakeDiagnosis {
  enum class State { Sound, Broken, Hopeless };

  /// Waits for the medium. `*cancel`, where given, ends the search for zeros, with `isCancelled`.
  static TakeDiagnosis of(const WaveImage& image, const std::atomic<bool>* cancel = nullptr);

  State state = State::Hopeless;
  std::string whyHopeless;            ///< a phrase for people; empty unless hopeless
  std::vector<std::string> findings;  ///< phrases for people, in the order of the file
  bool isCancelled = false;

  std::uint64_t dataAt = 0;      ///< of the first sample byte; the chunks before it end there
  std::uint64_t keptBytes = 0;   ///< whole frames from there on that are sound
  std::uint64_t frameBytes = 0;  ///< of the last format before the sound, as is what follows
  std::uint32_t sampleRate = 0;
  std::uint16_t channels = 0;
  std::uint64_t tailAt = 0;     ///< chunks after the data, which are kept as they are,
  std::uint64_t tailBytes = 0;  ///< and how much of them there is
};
