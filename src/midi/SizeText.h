// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Sizes for people, in single precision throughout. Stateless; any thread.
class SizeText {
 public:
  /// Of a size in bytes: "0.75 MB", "29.7 GB", "119 GB"; GB from 2^30 bytes on.
  static std::string of(float size);
};
