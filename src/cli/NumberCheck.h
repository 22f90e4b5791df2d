// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

/// What the options of the commands accept.
inline constexpr double kMostAngle = 150;  ///< degrees of stereo width
inline constexpr double kMostGain = 36;    ///< dB up and down
inline constexpr double kMostSeconds = 1e9;

/// Accepts a finite real number from `least` to `most`, both included; not "nan".
CLI::Validator realBetween(double least, double most);
