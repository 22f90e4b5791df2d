// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "analysis/TakeLayout.h"
#include "analysis/UnitResult.h"
#include "analysis/WidthGrid.h"
#include "dsp/AnalysisKernels.h"
#include "dsp/KWeighting.h"
#include "wav/FrameStream.h"
#include "wav/WaveFileReader.h"

/// The pass over the units of a take, one at a time, in any order: the work of one worker.
///
/// A unit is read with the block before it, for the filters to settle: each of its stretches begins
/// a block early with a filter at rest, and what came before that is 180 dB down. So the result of
/// a unit depends on the take alone. Memory: some 2 MiB at 48 kHz, at most 6, whatever the length
/// of the take.
///
/// Samples that are infinite or not a number count as silence, but for the sample peak and the
/// waveform, where infinity counts. One thread at a time.
class UnitPass {
 public:
  /// `firstFrame` of the file is frame 0 of the layout. `*cancel` ends the reading early.
  UnitPass(const WaveFileReader& reader, const TakeLayout& layout, std::uint64_t firstFrame,
           const std::atomic<bool>* cancel);

  /// Reads a unit. False on a cancel or a failure.
  bool fill(std::size_t unit);
  /// Fills in blocks, keys and peaks of `result.unit`, which has been read; the peaks that are
  /// there already spare the search for lower ones.
  void run(UnitResult& result);
  /// Fills in the keys alone of a unit that has been read: a fraction of the work.
  void runWaveform(UnitResult& result);

  /// Why reading failed; empty when it did not.
  [[nodiscard]] const std::string& failure() const { return _stream.failure(); }

  /// Bytes that a pass over this layout holds at a time.
  static std::uint64_t memory(const TakeLayout& layout);

 private:
  /// Frames that are looked at as one for the peaks; numbered as in the buffer.
  struct Piece {
    std::size_t begin;
    std::size_t end;
    std::array<float, PeakEnvelope::kRawExtremes> extremes;
  };

  void makeRoom();
  bool read(std::size_t begin, std::size_t end);
  [[nodiscard]] std::span<float> frames(std::size_t begin, std::size_t end);
  void findExtremes(UnitResult& result);
  void addBin(std::size_t begin, std::size_t end);
  void addPiece(std::size_t begin, std::size_t end);
  void storeKeys(UnitResult& result, std::size_t bin, std::size_t firstPiece);
  void raisePeakLine(std::span<const float> frames);
  void findLoudest();
  void raiseSamplePeaks(PeakEnvelope& peaks);
  void makeFinite();
  void raiseTruePeaks(PeakEnvelope& peaks);
  void raiseBetween(std::size_t piece, PeakEnvelope& peaks);
  void raiseBetween(std::span<const float> reach, PeakEnvelope& peaks);
  [[nodiscard]] std::array<float, PeakEnvelope::kRawExtremes> around(std::size_t piece) const;
  void weigh(UnitResult& result);
  void weighHalf(std::size_t step, std::size_t from, std::size_t to, WeighingLanes& lanes);
  void storeWeighted(UnitResult& result, std::size_t block, std::size_t half,
                     const WeighingLanes& lanes) const;

  TakeLayout _layout;
  std::uint64_t _firstFrame;
  KWeighting _weighting;
  std::size_t _extremes;  ///< values of each piece that count
  bool _mayBeInfinite;    ///< as samples of the file
  const std::atomic<bool>* _cancel;
  FrameStream _stream;
  std::vector<float> _buffer;  ///< a block before the unit, the unit, and a few frames after it
  std::size_t _unitFrames = 0;
  bool _isFinite = true;
  std::vector<Piece> _pieces;  ///< with the frames before the first one and after the last
  std::array<float, WidthGrid::kPeakNodes.size()> _peakLine{};  ///< of the block so far
  std::vector<std::size_t> _loudest;                            ///< pieces that come first
  std::vector<float> _between;  ///< values between the samples of a part of a piece
};
