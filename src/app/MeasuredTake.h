// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "analysis/TakeAnalysis.h"
#include "app/RunningAnalysis.h"
#include "app/TakeSession.h"

/// What the open take measures, at every width and gain: its analysis, begun when it opens and
/// given up when it goes. Whatever shows figures or a picture of the whole take asks here.
///
/// What is decoded does not tell how Side looks alone: for that the channels are analysed as if
/// they were Left and Right, in a pass of its own, begun once somebody listens to Side. Interface
/// thread.
class MeasuredTake : public QObject {
  Q_OBJECT

 public:
  /// The session outlives it. What has been measured is kept in the cache, where there is one.
  explicit MeasuredTake(TakeSession& take, QObject* parent = nullptr,
                        std::shared_ptr<const AnalysisCache> cache = nullptr);

  /// What is known by now; null without a take, and before anything is known.
  [[nodiscard]] const std::shared_ptr<const TakeAnalysis>& analysis() const {
    return _decoded.analysis();
  }
  /// How far the work is, 0 to 1: what has only its waveform counts for a fifth; 0 without a take.
  [[nodiscard]] double progress() const { return _decoded.progress(); }
  /// Whether more is to come.
  [[nodiscard]] bool isRunning() const { return _decoded.isRunning(); }
  [[nodiscard]] bool isComplete() const { return analysis() && analysis()->isComplete(); }
  /// Frames [from, to) as they are heard, at the width and gain, or Mid or Side alone; see
  /// `TakeAnalysis::waveform`. No columns where nothing is known.
  [[nodiscard]] Waveform waveform(std::uint64_t from, std::uint64_t to, std::size_t columns) const;
  /// Whether all that `waveform` shows now is measured.
  [[nodiscard]] bool isWaveformComplete() const;
  /// Makes a waveform of the channels as they are one of Side alone.
  static void showRightOnBoth(Waveform& waveform);
  /// In whole degrees and dB, as the session has them.
  [[nodiscard]] int width() const;
  /// The width at which both sides are what is heard; of Side alone there is none.
  [[nodiscard]] int shownWidth() const;
  [[nodiscard]] double gain() const;

  /// Measures what is from this time on first.
  void lookAt(double seconds);
  /// Has what has been found since fetched.
  void collect();

 signals:
  /// More is known, or another take, or none.
  void measured();

 private:
  void begin();
  void beginSide();
  void drop();
  [[nodiscard]] Waveform sideWaveform(std::uint64_t from, std::uint64_t to,
                                      std::size_t columns) const;

  TakeSession& _take;
  std::shared_ptr<const AnalysisCache> _cache;
  RunningAnalysis _decoded{this};
  RunningAnalysis _recorded{this};  ///< of the channels as they are
};
