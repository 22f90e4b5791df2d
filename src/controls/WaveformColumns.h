// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// The sound of a stretch of a take in columns of equal length, from left to right, as it is heard.
struct WaveformColumns {
  struct Column {
    float left = 0;  ///< the greatest magnitude; 1 is full scale
    float right = 0;
    bool isKnown = false;  ///< whether any of it has been measured
  };

  std::vector<Column> columns;
  double from = 0;  ///< seconds
  double to = 0;
};
