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

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool _isSeeking = false;
};
