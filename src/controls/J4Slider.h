// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/Slider.h"

/// The slider of the playback position. A press on it sets `isSeeking`; its owner reads the flag
/// to leave the slider alone meanwhile, and clears it when it has handled the end of the drag.
/// Interface thread.
class J4Slider : public Slider {
  Q_OBJECT

 public:
  explicit J4Slider(QWidget* parent = nullptr);

  [[nodiscard]] bool isSeeking() const { return _isSeeking; }
  void setIsSeeking(bool seeking) { _isSeeking = seeking; }
  /// Seconds that the range stands for, by which the position is read out and moved by keys and
  /// wheel: 1 s or 10 s at a time. 0: it is read and moved in hundredths of the range.
  void setDuration(double seconds) { _duration = seconds; }

  [[nodiscard]] double unit() const override { return _duration > 0.0 ? _duration : 1.0; }
  [[nodiscard]] double fineStep() const override;
  [[nodiscard]] double coarseStep() const override;
  /// "00:01:05", or per cent.
  [[nodiscard]] QString valueText() const override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  /// Per cent: seconds would be told one after the other while it plays.
  [[nodiscard]] QString announcedText() const override { return Slider::valueText(); }

 private:
  [[nodiscard]] double valueOf(double seconds) const;

  double _duration = 0.0;
  bool _isSeeking = false;
};
