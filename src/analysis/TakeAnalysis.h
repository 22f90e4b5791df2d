// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "analysis/BlockSums.h"
#include "analysis/Loudness.h"
#include "analysis/TakeFigures.h"
#include "analysis/TakeFindings.h"
#include "analysis/Waveform.h"
#include "analysis/WaveformBins.h"
#include "wav/WaveFileReader.h"

/// Every figure and the waveform of a take at every width and every gain, from one pass over its
/// Mid and Side. Immutable; safe on any thread. An hour at 48 kHz takes less than 8 MiB.
///
/// Widths are whole degrees, 0 to 150, others count as the nearest; they make no difference to a
/// take that is not raw Mid/Side. Gains are dB, positive is louder. Frames count from the first one
/// that was analysed. docs/analysis.md tells why the figures are exact, and how exact.
class TakeAnalysis {
 public:
  explicit TakeAnalysis(TakeFindings findings);

  [[nodiscard]] const TakeLayout& layout() const { return _findings.layout; }
  /// Whether the whole take has been measured; else the figures are those of what has been.
  [[nodiscard]] bool isComplete() const;
  /// Whether it is one of these frames of the file that the reader opened, in the state that it
  /// had then, read as the reader reads it. Takes in memory are told apart by their frames alone.
  [[nodiscard]] bool isOf(const WaveFileReader& reader, std::uint64_t firstFrame,
                          std::uint64_t frames) const;

  /// Figures of the whole take. Less than a millisecond for an hour.
  [[nodiscard]] TakeFigures at(int width, double gain) const;
  /// The peaks alone of these figures, in no time worth mentioning.
  [[nodiscard]] TakeFigures peaksAt(int width, double gain) const;
  /// Figures of frames [from, to): loudness, correlation and balance of the blocks of 100 ms that
  /// are for the better part inside, peaks as bounds from the bins that are touched.
  [[nodiscard]] TakeFigures at(int width, double gain, std::uint64_t from, std::uint64_t to) const;

  /// The loudness of the 400 ms, or the 3 s, that end with the block of this frame.
  [[nodiscard]] std::optional<double> momentaryLufs(int width, double gain,
                                                    std::uint64_t frame) const;
  [[nodiscard]] std::optional<double> shortTermLufs(int width, double gain,
                                                    std::uint64_t frame) const;

  /// The greatest linear magnitude of the decoded samples before any gain, to the last bit what
  /// comes out of decoding them all.
  [[nodiscard]] float samplePeak(int width) const;

  /// Frames [from, to) in so many columns, from the bins that each column touches: never less than
  /// the truth. The peak of a column of whole blocks reads at most 0.5 dB high, at widths under 15
  /// at most 2.7 dB where Side is more than 10 dB over Mid; any single edge is at most a seventh of
  /// the peak of Side farther out, from width 111 on a tenth of the peak of the column. Columns
  /// narrower than a bin show the whole bin. Within two milliseconds for 1,000 columns of an hour.
  [[nodiscard]] Waveform waveform(int width, double gain, std::uint64_t from, std::uint64_t to,
                                  std::size_t columns) const;

  /// Bytes that are held, most of them together with what has been told of the same pass before.
  [[nodiscard]] std::size_t memory() const;
  [[nodiscard]] const TakeFindings& findings() const { return _findings; }

 private:
  struct Blocks {
    std::size_t first;
    std::size_t end;
  };

  [[nodiscard]] ChannelMix mixAt(int width) const;
  [[nodiscard]] Waveform::Column columnOf(const WaveformBins& bins, std::uint64_t from,
                                          std::uint64_t to) const;
  [[nodiscard]] Blocks blocksOf(std::uint64_t from, std::uint64_t to) const;
  void addLoudness(TakeFigures& figures, int width, double gain, const Blocks& blocks) const;
  void addCorrelation(TakeFigures& figures, int width, const Blocks& blocks) const;
  void addPeaks(TakeFigures& figures, int width, double gain) const;
  void addBounds(TakeFigures& figures, int width, double gain, std::uint64_t from,
                 std::uint64_t to) const;
  [[nodiscard]] bool hasTruePeak() const;

  TakeFindings _findings;
  Loudness _loudness;
};
