// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "analysis/UpperKey.h"
#include "analysis/Waveform.h"
#include "wav/FrameStream.h"
#include "wav/WaveFileReader.h"

/// The waveform of a stretch whose columns are narrower than the bins of an analysis, at every
/// width and gain: for each column what an analysis keeps for each bin. Immutable; safe on any
/// thread.
class CloseUp {
 public:
  /// Frames [from, to) of the file in so many columns. Waits for the medium. None where `*cancel`
  /// became true or reading failed.
  static std::shared_ptr<const CloseUp> read(const WaveFileReader& reader, std::uint64_t from,
                                             std::uint64_t to, std::size_t columns,
                                             const std::atomic<bool>* cancel = nullptr);

  /// Never less than the truth; the peak of a column at most 0.5 dB high, at widths under 15 at
  /// most 2.7 dB where Side is more than 10 dB over Mid.
  [[nodiscard]] Waveform at(int width, double gain) const;
  /// Whether it is of this stretch in so many columns.
  [[nodiscard]] bool isOf(std::uint64_t from, std::uint64_t to, std::size_t columns) const;

 private:
  CloseUp(const WaveFileReader& reader, std::uint64_t from, std::uint64_t to, std::size_t columns);
  bool readColumn(FrameStream& stream, std::size_t column, std::vector<float>& block);

  Waveform _columns;  ///< the stretch; columns without their values
  bool _isRawMidSide;
  std::vector<UpperKey::Key> _keys;
  std::vector<UpperKey::Key> _peakKeys;
};
