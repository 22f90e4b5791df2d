// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

/// That a take was exported. Plain data.
struct ExportNote {
  std::filesystem::path source;
  std::filesystem::path target;
  std::optional<double> width;  ///< degrees; none where it is not known
  std::optional<double> gain;   ///< dB, as set or as found; none where it is not known
  std::int64_t written = 0;     ///< the target's own time of change then; seconds since 1970

  bool operator==(const ExportNote&) const = default;
};
