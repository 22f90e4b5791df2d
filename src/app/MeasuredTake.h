// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeAnalyzer.h"
#include "app/MeasuredSide.h"
#include "app/TakeSession.h"
#include "base/Errand.h"

/// What the open take measures, at every width and gain: its analysis, made on workers from the
/// moment it opens, given up when it goes. Whatever shows figures or a picture of the whole take
/// asks here; nothing here reads the file, or copies what is known, on the interface thread,
/// unless no thread can be had.
/// Interface thread.
class MeasuredTake : public QObject {
  Q_OBJECT

 public:
  /// The session outlives it.
  explicit MeasuredTake(TakeSession& take, QObject* parent = nullptr);

  /// What is known by now; null without a take, and before anything is known.
  [[nodiscard]] const std::shared_ptr<const TakeAnalysis>& analysis() const { return _analysis; }
  /// How much of the take is known, 0 to 1; 0 without one.
  [[nodiscard]] double progress() const { return _progress; }
  /// Whether more is to come.
  [[nodiscard]] bool isRunning() const { return _analyzer != nullptr; }
  [[nodiscard]] bool isComplete() const { return _analysis && _analysis->isComplete(); }
  /// Frames [from, to) as they are heard, at the width and gain, or Mid or Side alone; see
  /// `TakeAnalysis::waveform`. No columns where nothing is known.
  [[nodiscard]] Waveform waveform(std::uint64_t from, std::uint64_t to, std::size_t columns) const;
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
  void drop();
  void fetch(bool isLast);
  void take(std::shared_ptr<const TakeAnalysis> known, double progress, bool isLast);

  TakeSession& _take;
  MeasuredSide _side{_take, this};
  std::shared_ptr<TakeAnalyzer> _analyzer;  ///< while it works
  Errand _errand;                           ///< copies what is known: megabytes of a long take
  QElapsedTimer _fetched;                   ///< since the errand began
  std::shared_ptr<const TakeAnalysis> _analysis;
  double _progress = 0;
  QTimer _timerMeasured{this};
};
