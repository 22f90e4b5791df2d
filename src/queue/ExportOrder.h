// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "export/AtomicFile.h"

/// What an export is to be, settled before it begins.
struct ExportOrder {
  std::filesystem::path source;
  std::filesystem::path target;
  double gain = 0;   ///< dB, positive is louder
  double angle = 0;  ///< degrees, 0 to 150
  bool is24bit = true;
  bool isNormalized = false;
  AtomicFile::Existing existing = AtomicFile::Existing::Refuse;
};
