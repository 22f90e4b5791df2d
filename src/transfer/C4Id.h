// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// The name of a content by SMPTE ST 2114 ("C4"), by which a chain of manifests knows each of them.
namespace c4 {

/// SHA-512 (FIPS 180-4) of the text.
std::array<std::uint8_t, 64> sha512(std::string_view text);
/// "c4" and 88 digits to the base 58 of its SHA-512.
std::string idOf(std::string_view text);

}  // namespace c4
