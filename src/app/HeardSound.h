// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "dsp/SoloStage.h"
#include "playback/FrameLoop.h"
#include "playback/PlayedSettings.h"

/// What becomes of the frames of a take on their way to the ear, volume apart: what is set, and for
/// frames that a player has filled with something else, that. Plain data.
struct HeardSound {
  int width = 0;           ///< whole degrees
  double gain = 0;         ///< dB, positive is louder
  Solo solo = Solo::None;  ///< of a raw take
  std::optional<FrameLoop> loop = std::nullopt;
  PlayedSettings played = {};
};
