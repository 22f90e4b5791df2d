// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "analysis/TakeAnalyzer.h"
#include "analysis/Waveform.h"
#include "wav/WaveFileReader.h"

/// Interleaved frames, Left and Right or Mid and Side.
using Frames = std::vector<float>;

/// Takes to analyse, and what they are made of.
class TestTake {
 public:
  /// A WAVE file of 32-bit floats over these frames.
  static std::vector<std::byte> file(const Frames& frames, std::uint32_t rate);
  static std::unique_ptr<WaveFileReader> reader(const Frames& frames, std::uint32_t rate,
                                                bool isRawMidSide);
  static std::shared_ptr<const TakeAnalysis> analyse(const Frames& frames, std::uint32_t rate,
                                                     bool isRawMidSide,
                                                     const TakeAnalyzer::Options& options = {});

  /// Both channels alike: a sine at a level in dBFS, with its phase in degrees, after what is
  /// there.
  static void addSine(Frames& frames, std::uint32_t rate, double seconds, double level,
                      double frequency = 1000, double phase = 0);
  static void addSilence(Frames& frames, std::uint32_t rate, double seconds);

  /// The least and the greatest of frames [from, to), at least one, looked at one by one.
  static Waveform::Column truthOf(const Frames& leftRight, std::uint64_t from, std::uint64_t to);
  /// The greatest magnitude of both channels.
  static float peakOf(const Waveform::Column& column);

  /// Left and Right as Mid and Side that decode to them at this width, but for rounding.
  static Frames encoded(const Frames& leftRight, int width);
  /// Mid and Side as the program decodes them.
  static Frames decoded(const Frames& midSide, int width);

  /// Noise whose level and width wander, with silence, bursts and single peaks in it.
  static Frames wandering(std::uint32_t rate, double seconds, std::uint32_t seed);
  /// Tones with Mid and Side out of phase, and clicks.
  static Frames tones(std::uint32_t rate, double seconds);
};
