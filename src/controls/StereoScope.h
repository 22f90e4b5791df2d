// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>
#include <span>

#include "controls/ScopePoints.h"

/// Where the sound stands between the channels: a point a frame, fading, over lines for Left,
/// Right, Mid and Side. Square. The owner feeds it in step with what is heard. Interface thread.
class StereoScope : public QWidget {
  Q_OBJECT

 public:
  explicit StereoScope(QWidget* parent = nullptr);

  /// The next picture, `seconds` after the one before: what was there fades, and frames are added,
  /// interleaved pairs, Left and Right. Nothing is painted where nothing changes.
  void advance(std::span<const float> frames, double seconds);
  /// Dark at once.
  void clear();
  /// Whether any point is to be seen.
  [[nodiscard]] bool isDark() const { return _points.isDark(); }
  [[nodiscard]] const ScopePoints& points() const { return _points; }

  [[nodiscard]] QSize sizeHint() const override { return {144, 144}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {80, 80}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fit();
  void drawStill();
  [[nodiscard]] QPixmap stillPicture() const;
  void drawGround(QPainter& painter) const;
  void drawLetters(QPainter& painter) const;

  ScopePoints _points;
  // What is the same in every picture: under the points, and over them.
  QPixmap _ground;
  QPixmap _letters;
};
