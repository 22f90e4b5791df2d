// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <cstdint>
#include <memory>
#include <optional>

#include "analysis/TakeAnalysis.h"
#include "base/LatestErrand.h"
#include "export/FrameRange.h"
#include "export/LoudnessGain.h"
#include "wav/WaveFileReader.h"

/// How loud an export is going to be, and where 24 bits would clip: measured on workers over a
/// reader of its own, given up with the object. Interface thread, which has an event loop.
class ExportLevels : public QObject {
  Q_OBJECT

 public:
  /// What is to become of the level.
  struct Aim {
    bool isNormalized = false;
    std::optional<LoudnessTarget> loudness;  ///< in place of everything else
    double gain = 0;                         ///< dB, where there is no other aim
    int width = 0;                           ///< whole degrees

    friend bool operator==(const Aim&, const Aim&) = default;
  };

  explicit ExportLevels(QObject* parent = nullptr) : QObject(parent) {}

  /// Measures these frames of the file, all of them where there is no range; `whole` spares that
  /// for all of them, where it is complete, and tells where to look for what clips.
  void measure(const WaveFileReader& reader, const std::optional<FrameRange>& range,
               const std::shared_ptr<const TakeAnalysis>& whole);
  /// What is wanted now.
  void aim(const Aim& aim);

  /// Of the frames that are measured; null before all is known.
  [[nodiscard]] const std::shared_ptr<const TakeAnalysis>& analysis() const { return _analysis; }
  /// Whether the frames that were to be measured could not be: read, or for want of memory or a
  /// thread.
  [[nodiscard]] bool hasFailed() const;
  /// The gain that comes of the aim, dB; none before it is known, and where there is none.
  [[nodiscard]] std::optional<double> gain() const;
  /// "-23.1 LUFS", "-1.2 dBTP"; "–" where there is none, "…" before it is known.
  [[nodiscard]] QString loudnessText() const;
  [[nodiscard]] QString truePeakText() const;
  /// "Would clip in 24 bit at 3 places"; empty where it would not.
  [[nodiscard]] QString clippingText() const;

 signals:
  /// More is known.
  void changed();

 private:
  void analyse();
  void search();
  void count(double gain);
  [[nodiscard]] TakeFigures figures() const;
  [[nodiscard]] QString text(const std::optional<double>& figure, const QString& unit) const;

  std::unique_ptr<WaveFileReader> _reader;
  FrameRange _range;
  std::shared_ptr<const TakeAnalysis> _whole;     ///< of the whole file, where somebody had it
  std::shared_ptr<const TakeAnalysis> _analysis;  ///< of the range, its figures alone
  Aim _aim;
  std::optional<std::uint64_t> _places;  ///< that clip, once they are counted
  LatestErrand _measuring;
  LatestErrand _search;
};
