// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "dsp/AdjustInfo.h"

/// What of raw Mid/Side frames is heard.
enum class Solo : std::uint8_t {
  None,  ///< Left and Right, as decoded
  Mid,   ///< Mid alone, on both sides
  Side   ///< Side alone as it was recorded, whatever the width, on both sides
};

/// Listening to one of the two microphones. Frames are interleaved pairs of floats, in place.
/// Stateless; safe on any thread; no allocation.
class SoloStage {
 public:
  /// Frames over which one fades into another, 20 ms at 48 kHz.
  static constexpr std::size_t kFadeFrames = 960;

  /// Puts Mid or Side on both sides; nothing for none.
  static void apply(std::span<float> frames, Solo solo);
  /// Fades from one to the other over the first `kFadeFrames` frames, or over the whole buffer
  /// where it is shorter, then holds. What is decoded glides as in `MidSideDecoder::glide`.
  static void glide(std::span<float> frames, const AdjustAngleInfo& angle, Solo from, Solo to);
};
