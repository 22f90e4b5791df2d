// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeLayout.h"

/// A complete analysis as bytes, with a checksum, for this machine to read again: every figure that
/// is asked of it afterwards is the same to the last bit. They come and go in pieces of a few
/// kilobytes, so that a long take does not need the room twice. Stateless; any thread.
class AnalysisBytes {
 public:
  /// One higher whenever the bytes mean something else, or an analysis would find anything else.
  static constexpr unsigned kVersion = 2;

  /// Takes the next bytes; false ends the writing.
  using Sink = std::function<bool(std::span<const std::byte> bytes)>;
  /// Fills in the next bytes, all that are asked for; false ends the reading.
  using Source = std::function<bool(std::span<std::byte> bytes)>;

  /// False where the sink wanted no more.
  static bool write(const TakeAnalysis& analysis, const Sink& sink);
  /// Reads as many bytes as `sizeOf` tells. None where they are not those of an analysis with this
  /// layout, or damaged, or there are fewer. The analysis is one of `file`, all of it.
  static std::shared_ptr<const TakeAnalysis> read(const Source& source, const TakeLayout& layout,
                                                  const FileState& file = {});
  /// How many bytes an analysis with this layout takes.
  static std::uint64_t sizeOf(const TakeLayout& layout);
};
