// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "analysis/TakeAnalysis.h"
#include "analysis/TakeAnalyzer.h"
#include "app/TakeSession.h"

/// Mid and Side of the open take as they were recorded: the analysis of its channels as if they
/// were Left and Right. What is decoded does not tell how Side looks alone, so this is a pass of
/// its own, made once somebody listens to Side. Interface thread.
class MeasuredSide : public QObject {
  Q_OBJECT

 public:
  /// The session outlives it.
  explicit MeasuredSide(TakeSession& take, QObject* parent = nullptr);

  /// The analysis, once its pass has ended; null until then, and while nobody has asked.
  [[nodiscard]] const std::shared_ptr<const TakeAnalysis>& analysis() const { return _analysis; }

 signals:
  /// More is known, or nothing any more.
  void measured();

 private:
  void begin();
  void drop();
  void collect();

  TakeSession& _take;
  std::unique_ptr<TakeAnalyzer> _analyzer;  ///< while it works
  std::shared_ptr<const TakeAnalysis> _analysis;
  QTimer _timer{this};
};
