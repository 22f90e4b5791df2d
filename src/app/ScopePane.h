// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <memory>
#include <optional>
#include <vector>

#include "app/HeardCorrelation.h"
#include "app/HeardFrames.h"
#include "app/PicturePace.h"
#include "app/PictureTimer.h"
#include "app/StageView.h"
#include "app/TakeSession.h"

/// Shows where the sound stands between the channels, at the pace of the screen while a take plays:
/// each frame within the half of a picture from when it is heard. With reduced motion, four times a
/// second what was heard since, without a trace of what came before. Dark while nobody sees the
/// window. Interface thread.
class ScopePane : public QObject {
  Q_OBJECT

 public:
  /// Seconds from one picture to the next, with reduced motion.
  static constexpr double kCalmInterval = 0.25;

  /// Both outlive the pane.
  ScopePane(StageView& view, TakeSession& take, QObject* parent = nullptr);

  void reduceMotion(bool isReduced);
  /// The next picture: what is heard from where the last one ended to half an interval from now.
  void advance();

 private:
  void begin();
  void drop();
  void tick();
  void darken();
  void showState();
  void rest();
  void wait();
  /// Seconds from one picture to the next.
  [[nodiscard]] double interval() const;
  void showCorrelation(std::optional<double> value);

  StageView& _view;
  TakeSession& _take;
  std::unique_ptr<HeardFrames> _heard;  ///< null without a take
  HeardCorrelation _correlation;
  std::optional<int> _hundredths;  ///< of the correlation, that are shown
  std::vector<QString> _captions;  ///< for each hundredth from -1 on
  double _shownTo = 0;             ///< seconds
  bool _isCalm = false;
  PicturePace _pace;
  PictureTimer _timerScope{this};
};
