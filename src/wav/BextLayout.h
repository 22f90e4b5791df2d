// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// A fixed-width field of the "bext" payload: offset from its first byte, and width, in bytes.
struct BextField {
  std::size_t offset;
  std::size_t size;
};

/// The payload of a "bext" chunk, version 1 (EBU Tech 3285): 602 fixed bytes, then the coding
/// history to the end of the chunk. Texts are ASCII, zero-filled; integers little-endian.
namespace bext {

inline constexpr BextField kDescription{0, 256};
inline constexpr BextField kOriginator{256, 32};
inline constexpr BextField kOriginatorReference{288, 32};
inline constexpr BextField kOriginationDate{320, 10};  ///< "yyyy-MM-dd"
inline constexpr BextField kOriginationTime{330, 8};   ///< "HH:mm:ss"
inline constexpr BextField kTimeReference{338, 8};     ///< signed sample count
inline constexpr BextField kVersion{346, 2};
inline constexpr BextField kUniqueMaterialIdentifier{348, 64};
inline constexpr BextField kReserved{412, 190};
inline constexpr std::size_t kFixedSize = 602;
/// So much of a coding history is looked at: hundreds of generations. A chunk may claim 4 GiB.
inline constexpr std::size_t kMostHistory = 65536;
inline constexpr std::size_t kMostUsed = kFixedSize + kMostHistory;

}  // namespace bext
