// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <memory>
#include <optional>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeAnalyzer.h"
#include "base/Errand.h"
#include "takes/AnalysisCache.h"
#include "wav/WaveFileReader.h"

/// An analysis while it is made, on workers, and what is known of it by now; one that was kept is
/// there at once. Nothing here reads the file, or looks at what is known, on the interface thread,
/// which is the one that has it.
class RunningAnalysis : public QObject {
  Q_OBJECT

 public:
  explicit RunningAnalysis(QObject* parent = nullptr);

  using Cache = std::shared_ptr<const AnalysisCache>;

  /// Begins, and gives up what was before. Of a valid file, which it reads through an image of its
  /// own. Kept nowhere where there is no cache.
  void begin(const WaveFileReader& reader, const Cache& cache = {});
  /// Gives up; nothing is known any more.
  void drop();

  /// What is known by now; null before anything is.
  [[nodiscard]] const std::shared_ptr<const TakeAnalysis>& analysis() const { return _analysis; }
  /// How far the work is, 0 to 1: what has only its waveform counts for a fifth.
  [[nodiscard]] double progress() const { return _progress; }
  /// Whether more is to come.
  [[nodiscard]] bool isRunning() const { return _analyzer || _isLooking; }

  /// Measures what is from this frame on first.
  void lookAt(std::uint64_t frame);
  /// Has what has been found since fetched.
  void collect();

 signals:
  /// More is known.
  void measured();

 private:
  void look(const WaveFileReader& reader);
  void analyse(const WaveFileReader& reader);
  void keep();
  void fetch(bool isLast);
  void take(std::shared_ptr<const TakeAnalysis> known, double progress, bool isLast);

  std::shared_ptr<TakeAnalyzer> _analyzer;  ///< while it works
  Errand _errand;                           ///< looks at what is known: milliseconds of a long take
  QElapsedTimer _fetched;                   ///< since the errand began
  std::shared_ptr<const TakeAnalysis> _analysis;
  double _progress = 0;
  Cache _cache;
  AnalysisCache::Key _key;  ///< of what is analysed
  bool _isLooking = false;  ///< for one that was kept
  std::optional<std::uint64_t> _lookAt;
  Errand _keeping;
  QTimer _timerMeasured{this};
};
