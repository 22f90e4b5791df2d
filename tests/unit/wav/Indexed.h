// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "wav/WaveImage.h"
#include "wav/WaveIndex.h"

/// The index of a file that consists of these bytes.
inline WaveIndex indexOf(const std::vector<std::byte>& file) {
  WaveIndex index;
  index.parse(*WaveImage::fromBytes(file));
  return index;
}

/// Why it is no valid one; empty when it is.
inline std::string whyInvalid(const std::vector<std::byte>& file) {
  return std::string(indexOf(file).whyInvalid(file.size()));
}
