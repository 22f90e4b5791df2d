// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "FuzzInput.h"

/// A file for a target, made from the input. The first byte chooses: even, the rest is the file as
/// it stands; odd, the rest is a recipe for a file of the recorder's, whole but for what the recipe
/// says. So an input reaches past the recognition without having to guess 700 bytes.
namespace recipe {

/// The first byte.
inline constexpr std::uint8_t kRawFile = 0;
inline constexpr std::uint8_t kRecipe = 1;

/// A recipe is a byte for the sample format, a byte of these, the values that they ask for in this
/// order, and the sample bytes.
enum Twist : std::uint8_t {
  kDecoded = 1,       ///< the history says that the file is not raw Mid/Side
  kOwnFormat = 2,     ///< tag, channels, rate (32 bits) and width from the input
  kShortBext = 4,     ///< the broadcast extension is cut to a 16-bit count
  kOddChunk = 8,      ///< an unknown chunk of 3 bytes comes first, without a pad byte
  kDataClaims = 16,   ///< the data chunk states a 32-bit size of the input's
  kRiffClaims = 32,   ///< so does the RIFF header
  kFormatLast = 64,   ///< "fmt " after "data"
  kSecondData = 128,  ///< an empty data chunk at the end
};

std::vector<std::byte> takeFile(FuzzInput& input);

}  // namespace recipe
