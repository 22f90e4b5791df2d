// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "wav/WavArray.h"

/// One broadcast extension in memory, as it goes into a written file. Texts are UTF-8; what is not
/// ASCII in them cannot be stored in the chunk. Plain data: one thread at a time.
struct BextChunkInfo {
  /// Everything empty, version 1, dated now, `Reserved` a block of 190 zero bytes.
  BextChunkInfo();

  /// `keptDate`, else `OriginationDateTime` as "yyyy-MM-dd" in the user's time zone (Gregorian,
  /// digits 0 to 9).
  [[nodiscard]] std::string OriginationDate() const;
  /// `keptTime`, else `OriginationDateTime` as "HH:mm:ss", 24-hour clock, in the user's time zone.
  [[nodiscard]] std::string OriginationTime() const;

  /// Frees `Reserved`; the destructor does it too.
  void dispose() { Reserved.dispose(); }

  std::int64_t TimeReference = 0;  ///< samples since midnight
  std::uint16_t Version = 1;
  std::string Description;
  std::string Originator;
  std::string OriginatorReference;
  std::chrono::system_clock::time_point OriginationDateTime;
  std::string keptDate;  ///< of another file, as it has it; empty for that of the moment
  std::string keptTime;
  std::string UniqueMaterialIdentifier;
  WavArray Reserved;
  std::string CodingHistory;
};
