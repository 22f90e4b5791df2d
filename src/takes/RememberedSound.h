// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "export/FrameRange.h"

/// How a take was heard last. Plain data.
struct RememberedSound {
  std::optional<double> width;  ///< degrees, 0 to 150; none of a take that has no width
  std::int64_t gain = 0;        ///< dB, -36 to 36
  std::optional<FrameRange> loop;

  bool operator==(const RememberedSound&) const = default;
};
