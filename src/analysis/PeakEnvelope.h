// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "analysis/WidthGrid.h"

/// The greatest magnitude of Left and of Right at every width, of the frames given to it.
///
/// Raw Mid/Side frames count at all 151 widths, each rounded as the decode rounds it; plain ones
/// count as they are, whatever the width. As a function of the side gain a peak is convex; so
/// whether frames could raise it at any width is told by their extremes at the few nodes of the
/// grid. The order in which frames come makes no difference. One thread at a time.
class PeakEnvelope {
 public:
  /// As `AnalysisKernels::raiseExtremes` makes them with the gains of the nodes but the first.
  static constexpr std::size_t kRawExtremes = 4 * WidthGrid::kNodes.size();
  static constexpr std::size_t kPlainExtremes = 4;

  explicit PeakEnvelope(bool isRawMidSide = false);
  /// With peaks of another envelope of the same kind as `like`, which were kept meanwhile.
  PeakEnvelope(const PeakEnvelope& like, std::span<const float> lefts,
               std::span<const float> rights);

  /// What is asked about: frames, or whatever oversampling can find between them.
  enum class Values : std::size_t { Samples, Between };

  /// False only where frames with these extremes can raise no peak at any width.
  [[nodiscard]] bool mayRaise(std::span<const float> extremes, Values values) const;
  /// The same of finite frames themselves: a closer look.
  [[nodiscard]] bool framesMayRaise(std::span<const float> frames, Values values) const;
  /// Raises the peaks to those of the frames; what is not a number does not count.
  void raise(std::span<const float> frames);
  /// Raises the peaks to those of another envelope of the same kind.
  void merge(const PeakEnvelope& other);

  /// Linear, 0 where nothing came; angles outside 0 to 150 count as the nearest.
  [[nodiscard]] float left(int angle) const { return _left[indexOf(angle)]; }
  [[nodiscard]] float right(int angle) const { return _right[indexOf(angle)]; }

  /// All that it holds, one value a width, or one.
  [[nodiscard]] std::span<const float> lefts() const { return _left; }
  [[nodiscard]] std::span<const float> rights() const { return _right; }

  friend bool operator==(const PeakEnvelope& a, const PeakEnvelope& b) {
    return a._left == b._left && a._right == b._right;
  }

 private:
  static constexpr std::size_t kNodeCount = WidthGrid::kNodes.size();
  static constexpr std::array kCoarseNodes{0, 120, 150};
  using Line = std::array<float, kNodeCount>;
  using CoarseLine = std::array<float, kCoarseNodes.size()>;

  /// At each node, what no value may exceed that is to be left out; finely, and for a first look.
  struct Lines {
    Line left{};
    Line right{};
    CoarseLine coarseLeft{};
    CoarseLine coarseRight{};
  };

  [[nodiscard]] const Lines& linesOf(Values values) const {
    return _lines[static_cast<std::size_t>(values)];
  }
  [[nodiscard]] std::size_t indexOf(int angle) const;
  [[nodiscard]] bool plainMayRaise(std::span<const float> frames, Values values) const;
  void raisePlain(std::span<const float> frames);
  void drawLines();
  static void drawLine(std::span<const float> peaks, std::span<const int> nodes,
                       std::span<float> line);

  bool _isRawMidSide;
  std::vector<float> _left;  ///< of each width, or of all
  std::vector<float> _right;
  std::array<Lines, 2> _lines;  ///< of samples, and of what is between them
};
