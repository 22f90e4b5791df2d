// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeLayout.h"

/// A complete analysis as bytes, with a checksum, for this machine to read again: every figure that
/// is asked of it afterwards is the same to the last bit. Pure functions; any thread.
class AnalysisBytes {
 public:
  /// One higher whenever the bytes mean something else, or an analysis would find anything else.
  static constexpr unsigned kVersion = 1;

  static std::vector<std::byte> write(const TakeAnalysis& analysis);
  /// None where the bytes are not those of an analysis with this layout, or damaged.
  static std::shared_ptr<const TakeAnalysis> read(std::span<const std::byte> bytes,
                                                  const TakeLayout& layout);
  /// How many bytes an analysis with this layout takes.
  static std::size_t sizeOf(const TakeLayout& layout);
};
