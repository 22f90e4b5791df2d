// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QSizeF>
#include <QWidget>
#include <cstdint>

#include "controls/LevelMeterAccessible.h"
#include "controls/LevelMeterPicture.h"
#include "controls/LevelMeterScale.h"

/// An upright level bar: a dim picture, and over it a bright one that a mask reveals from the
/// bottom up to the level. The level is in whole units, as LevelMeterScale maps them to heights;
/// how a measured level becomes one is the owner's concern.
///
/// All meters of a process share the unit heights of the first that was laid out; they are not
/// computed again, also not on a resize, on purpose. Interface thread.
class LevelMeter : public QWidget, public ReadableLevel {
  Q_OBJECT

 public:
  explicit LevelMeter(QWidget* parent = nullptr);

  [[nodiscard]] std::int64_t level() const override { return _level; }
  /// Clamped to at most `maxValue`, then to at least `minValue`. Shown once the meter is laid out.
  void setLevel(std::int64_t level);
  [[nodiscard]] std::int64_t maxValue() const override { return _maxValue; }
  void setMaxValue(std::int64_t value) { _maxValue = value; }
  [[nodiscard]] std::int64_t minValue() const override { return _minValue; }
  [[nodiscard]] std::int64_t zero() const override { return _zero; }
  /// Which level is 0 dB; 0 unless it is told.
  void setZero(std::int64_t level) { _zero = level; }

  /// A line at a level between the units, such as the greatest one so far; none where it is below
  /// the bar, or not a number.
  void setHold(double level);
  [[nodiscard]] double hold() const { return _hold; }

  [[nodiscard]] QSize sizeHint() const override { return {16, 260}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {4, 28}; }

  // No program calls what follows; it belongs to the system's interface.

  void setMinValue(std::int64_t value) { _minValue = value; }

 protected:
  /// Where the mask lies, y upward. The bright picture shows from the bottom up to its upper edge.
  [[nodiscard]] QRectF maskFrame() const { return _layerMaskOfRainBow; }

  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Layer {
    LevelMeterPicture contents;
    QRectF frame;  ///< y upward
  };

  void initUI();
  void layoutLayers();
  void updateFrame();
  void updateBetween(double one, double other);
  void drawBright(QPainter& painter, double top) const;
  static LevelMeterScale& sharedScale();
  [[nodiscard]] double holdTop(double level) const;

  Layer _layerGray;
  Layer _layerRainBow;
  QRectF _layerMaskOfRainBow;
  QSizeF _cacheSize{0.0, 0.0};
  std::int64_t _maxValue = 100;
  std::int64_t _minValue = 0;
  std::int64_t _zero = 0;
  std::int64_t _level = 0;
  double _hold = 0.0;
};
