// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "analysis/BlockSums.h"

/// Loudness of a take at any mix of its two channels (ITU-R BS.1770, EBU Tech 3341 and 3342), from
/// the K-weighted sums of its blocks. Immutable; safe on any thread.
///
/// Momentary is a window of 4 blocks that moves by half a block, short-term one of 30 that moves by
/// a block. Integrated loudness is gated at -70 LUFS and 10 LU under the mean of what is left; the
/// range takes a short-term value every second, gated at -70 LUFS and 20 LU under their mean, from
/// the 10th to the 95th in a hundred. Windows that touch a block that has not been read do not
/// count.
class Loudness {
 public:
  static constexpr std::size_t kMomentaryBlocks = 4;
  static constexpr std::size_t kShortTermBlocks = 30;

  /// LUFS and LU; none where nothing is over the gates, the window never fills, or the sums are
  /// past what a float holds.
  struct Figures {
    std::optional<double> integrated;
    std::optional<double> range;
    std::optional<double> momentaryMax;
    std::optional<double> shortTermMax;
  };

  Loudness() = default;
  using Halves = std::vector<BlockSums::Weighted>;

  /// Of both halves of whole blocks, `blockFrames` long, one after the other.
  Loudness(const Halves& halves, std::size_t blockFrames);

  /// Of the windows within blocks [first, end), with a gain as a factor of power. The gates are
  /// applied after it.
  [[nodiscard]] Figures measure(const ChannelMix& mix, double powerGain, std::size_t first,
                                std::size_t end) const;

  /// Loudness of the window that begins at a block; none where it does not fit.
  [[nodiscard]] std::optional<double> momentary(const ChannelMix& mix, double powerGain,
                                                std::size_t block) const;
  [[nodiscard]] std::optional<double> shortTerm(const ChannelMix& mix, double powerGain,
                                                std::size_t block) const;

  /// Bytes that are held.
  [[nodiscard]] std::size_t memory() const;

 private:
  /// Mean squares of both channels over a window.
  struct Window {
    [[nodiscard]] double power(const ChannelMix::Weights& weights) const {
      return weights.first * static_cast<double>(first) +
             weights.second * static_cast<double>(second);
    }

    float first;
    float second;
  };
  using Weights = ChannelMix::Weights;
  using Windows = std::vector<Window>;
  using View = std::span<const Window>;

  /// Of `length` halves, a window every `step` halves.
  static Windows slide(const Halves& halves, std::size_t length, std::size_t step, double frames);
  static View within(const Windows& windows, std::size_t length, std::size_t first,
                     std::size_t end);
  static double greatest(View windows, const Weights& weights);
  static double gatedMean(View halfSteps, const Weights& weights, double gate);
  static std::optional<double> integrated(View windows, const Weights& weights, double powerGain);
  static std::optional<double> range(View windows, const Weights& weights, double powerGain);

  Windows _momentary;  ///< that begin at each half of a block
  Windows _shortTerm;  ///< that begin at each block
};
