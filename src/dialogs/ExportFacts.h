// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <cstdint>
#include <filesystem>

#include "export/Export.h"

/// What a job has to tell about an export, taken down once: the job may be closed afterwards.
struct ExportFacts {
  ExportFacts() = default;
  explicit ExportFacts(const Export& job);

  /// "<name>_Decode.WAV" in the folder.
  [[nodiscard]] std::filesystem::path proposal() const;
  /// "90°", or that the channels stay as they are.
  [[nodiscard]] QString widthText() const;
  /// "+6 dB", or what takes its place in a normalised export.
  [[nodiscard]] QString gainText(bool isNormalized) const;
  /// "14.4 MB".
  [[nodiscard]] QString sizeText(bool is24bit) const;
  /// Why the export would be noise, or would not fit into its folder or into a file; empty when it
  /// is neither, and where that cannot be told. Asks the file system.
  [[nodiscard]] QString warning(bool is24bit) const;

  bool isValid = false;
  std::filesystem::path source;
  std::filesystem::path folder;  ///< where the save panel starts
  double gain = 0;
  double angle = 0;
  bool isRawMidSide = false;
  int oddBits = 0;           ///< of a sample that does not decode to sound; 0 where it does
  std::uint64_t size24 = 0;  ///< bytes of the output
  std::uint64_t size32 = 0;
};
