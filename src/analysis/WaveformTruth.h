// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/Waveform.h"
#include "wav/FrameStream.h"
#include "wav/WaveFileReader.h"

/// Reads the columns of a waveform that seem to clip again, and puts the truth in their place:
/// bounds are never low, but a mark of clipping should be right. One thread at a time; waits for
/// the medium.
class WaveformTruth {
 public:
  /// `firstFrame` of the file is frame 0 of the analysis that the waveform is of.
  WaveformTruth(const WaveFileReader& reader, std::uint64_t firstFrame, int width, double gain);

  /// False where reading failed or `*cancel` became true; columns read by then are right.
  bool settle(Waveform& waveform, const std::atomic<bool>* cancel = nullptr);
  /// Why reading failed; empty when it did not.
  [[nodiscard]] const std::string& failure() const { return _stream.failure(); }

 private:
  bool read(std::uint64_t from, std::uint64_t to, Waveform::Column& column);
  void goTo(std::uint64_t frame);
  void widen(std::uint64_t frames, Waveform::Column& column);

  FrameStream _stream;
  const std::uint64_t _frames;  ///< of the file
  std::uint64_t _firstFrame;
  bool _isRawMidSide;
  float _sideGain;
  float _gain;
  std::vector<float> _block;
};
