// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

#include "export/AtomicFile.h"
#include "export/FrameRange.h"
#include "export/LoudnessGain.h"

/// What an export is to be, settled before it begins.
struct ExportOrder {
  std::filesystem::path source;
  std::filesystem::path target;
  double gain = 0;   ///< dB, positive is louder
  double angle = 0;  ///< degrees, 0 to 150
  bool is24bit = true;
  bool isNormalized = false;
  AtomicFile::Existing existing = AtomicFile::Existing::Refuse;
  std::optional<LoudnessTarget> loudness = std::nullopt;  ///< in place of gain and normalising
  std::optional<FrameRange> range = std::nullopt;         ///< these frames alone
  /// Of what is to be exported, where somebody has it.
  std::shared_ptr<const TakeAnalysis> analysis = nullptr;
  bool keepsMetadata = false;  ///< the source's recording time, history and markers go with it
  bool isOfBatch = false;      ///< one of many that were ordered together
  std::uint64_t size = 0;      ///< bytes of the target, where somebody knows
};
