// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeAnalyzer.h"
#include "app/TakeSession.h"

/// What the open take measures, at every width and gain: its analysis, made on workers from the
/// moment it opens, given up when it goes. Whatever shows figures or a picture of the whole take
/// asks here; nothing here reads the file on the interface thread. Interface thread.
class MeasuredTake : public QObject {
  Q_OBJECT

 public:
  /// The session outlives it.
  explicit MeasuredTake(TakeSession& take, QObject* parent = nullptr);

  /// What is known by now; null without a take, and before anything is known. Of a take longer than
  /// an hour and a half nothing before all is.
  [[nodiscard]] const std::shared_ptr<const TakeAnalysis>& analysis() const { return _analysis; }
  /// How much of the take is known, 0 to 1; 0 without one.
  [[nodiscard]] double progress() const { return _progress; }
  /// Whether more is to come.
  [[nodiscard]] bool isRunning() const { return _analyzer != nullptr; }
  [[nodiscard]] bool isComplete() const { return _analysis && _analysis->isComplete(); }
  /// In whole degrees and dB, as the session has them.
  [[nodiscard]] int width() const;
  [[nodiscard]] double gain() const;

  /// Measures what is from this time on first.
  void lookAt(double seconds);
  /// Looks what has been found since.
  void collect();

 signals:
  /// More is known, or another take, or none.
  void measured();

 private:
  void begin();
  void drop();
  void finish();

  TakeSession& _take;
  std::unique_ptr<TakeAnalyzer> _analyzer;  ///< while it works
  std::shared_ptr<const TakeAnalysis> _analysis;
  double _progress = 0;
  bool _comesInParts = false;
  QTimer _timerMeasured{this};
};
