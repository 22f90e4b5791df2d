// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include "dsp/GainStage.h"
#include "dsp/SideGain.h"

/// What the options of the commands accept.
inline constexpr double kMostAngle = SideGain::kMaxAngle;       ///< degrees of stereo width
inline constexpr double kDefaultAngle = SideGain::kUnityAngle;  ///< where none is given
inline constexpr double kMostGain = GainStage::kMostGain;       ///< dB up and down
inline constexpr double kMostSeconds = 1e9;

/// Accepts a finite real number from `least` to `most`, both included; not "nan".
CLI::Validator realBetween(double least, double most);
/// A number without a fraction in that range.
CLI::Validator wholeBetween(double least, double most);
