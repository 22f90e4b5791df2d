// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Where things stand in a RIFF file, in bytes.
namespace riff {

constexpr std::uint64_t kChunkHeader = 8;  ///< identifier and size, in front of each payload
constexpr std::uint64_t kFirstChunk = 12;  ///< behind the file's own header and its form

}  // namespace riff
