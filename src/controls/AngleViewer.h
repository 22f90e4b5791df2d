// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QWidget>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

#include "controls/Adjustable.h"
#include "controls/AngleInfo.h"
#include "controls/ClickCounter.h"
#include "controls/CostRing.h"
#include "controls/KeyboardFocus.h"
#include "controls/StepInput.h"

class AngleViewer;

/// Who hears of a new angle.
class AngleViewerDelegate {
 public:
  AngleViewerDelegate() = default;
  AngleViewerDelegate(const AngleViewerDelegate&) = delete;
  AngleViewerDelegate& operator=(const AngleViewerDelegate&) = delete;
  virtual ~AngleViewerDelegate() = default;

  /// Called before the dial stores the angle: `dial->angle()` is still the old one.
  virtual void angleViewer(AngleViewer* /*dial*/, double /*angleChanged*/) {}
};

/// The dial of the stereo width: an arc of 150 degrees from the top to the lower left, with a thumb
/// to drag and six labels to click. The angle is 0.0 (mono) to 150.0 degrees; angle a stands at
/// a + 90 degrees, counter-clockwise from the positive x axis.
///
/// All points are y upward in device-independent pixels (class Upward). The geometry is built when
/// the size changes; then thumb and active arc are back at 0 while `angle` keeps its value, until
/// the owner calls `setNewAngle` again. Keys move it by 1 or 10 degrees. Interface thread.
class AngleViewer : public QWidget, public Adjustable {
  Q_OBJECT

 public:
  static constexpr double kMaxAngle = 150.0;

  explicit AngleViewer(QWidget* parent = nullptr);

  /// The one grey of arcs, tracks and disabled knobs: 88/255 in each component, lighter where
  /// the desktop wants more contrast.
  static QColor GrayBackgroundColor();

  [[nodiscard]] double angle() const { return _angle; }
  /// Stores only: no redraw, no report. See `setNewAngle`. Not a number is ignored by both.
  void setAngle(double angle) { _angle = std::isnan(angle) ? _angle : angle; }
  [[nodiscard]] bool enable() const { return _enable; }
  /// A disabled dial takes no presses, keys or focus, and lets go of a thumb that is dragged.
  /// Disabled until the owner enables it.
  void setEnable(bool enable);
  [[nodiscard]] std::weak_ptr<AngleViewerDelegate> delegate() const { return _delegate; }
  void setDelegate(const std::weak_ptr<AngleViewerDelegate>& delegate) { _delegate = delegate; }

  /// Sets the angle, reports it if it is new, moves thumb and active arc.
  void setNewAngle(double angle);

  /// Reports a new angle, then stores it; nothing if it is the old one.
  void updateAngle(double angle);
  /// The active arc for the angle stored.
  void rebuildArc();
  /// Turns the thumb to where `point` lies from the centre. Beyond the arc it stops at the nearer
  /// end, or, with `preventOutSide`, stays.
  void moveTheThumb(QPointF point, bool preventOutSide);
  /// A click on the dial: only its left half counts.
  void detectClick(QPointF point);
  /// A press on a label jumps to its angle. Its area reaches 10 further left and down, on purpose
  /// not to the right or up.
  void detectClickTitle(QPointF point);

  /// What each whole degree costs, drawn inside the arc while the dial is enabled.
  void setCosts(std::vector<CostRing::Cost> costs);
  [[nodiscard]] const std::vector<CostRing::Cost>& costs() const { return _ring.costs(); }
  /// That of the arc in a dial of this width.
  static double radiusOf(double width) { return width / 10.0 * 8.0 * 0.5; }
  /// The whole degree that the pointer is at, on the arc, on a label or with the thumb; none where
  /// it is elsewhere, and while the dial is disabled.
  [[nodiscard]] std::optional<int> pointedAngle() const { return _pointed; }

  [[nodiscard]] bool isAdjustable() const override { return _enable; }
  [[nodiscard]] double adjustableValue() const override { return _angle; }
  [[nodiscard]] double lowest() const override { return 0.0; }
  [[nodiscard]] double highest() const override { return kMaxAngle; }
  [[nodiscard]] double fineStep() const override { return 1.0; }
  [[nodiscard]] double coarseStep() const override { return 10.0; }
  [[nodiscard]] double stepOrigin() const override;
  [[nodiscard]] QString valueText() const override;
  void adjust(double value, AdjustCause cause) override;

  /// Wide enough for the label farthest left in the font of the dial, 330 or more.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {200, 200}; }

  // No program calls what follows; it belongs to the system's interface.

  /// Back to mono, with thumb and active arc.
  void resetTo0();

 signals:
  /// The angle is another one; stored by then.
  void turned();
  /// `pointedAngle` is another one.
  void pointedChanged();

 protected:
  /// Where things are drawn.
  [[nodiscard]] double radius() const { return RADIUS_OF_BIG_CURVE; }
  [[nodiscard]] double thumbSize() const { return THUMB_SIZE; }
  [[nodiscard]] QPointF thumbPosition() const { return _thumbPosition; }
  [[nodiscard]] const std::vector<AngleInfo>& angleTextList() const { return _angleTextList; }

  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  static constexpr double kTop = 90.0;  ///< where angle 0 is, in degrees from the right
  using Path = std::shared_ptr<const QPainterPath>;

  void initUI();
  void takeColors();
  void layoutGeometry();
  void measureTitles();
  void drawArcs(QPainter& painter) const;
  void drawThumb(QPainter& painter) const;
  void drawText(QPainter& painter, const QRectF& rect);
  void placeTitle(AngleInfo& title, QSizeF size, QPointF centre) const;
  void stopAt(double end, const Path& arc, QPointF place);
  void endDrag();
  void point(const QMouseEvent& event);
  void setPointed(std::optional<int> degree);
  void setPointer(std::optional<QPointF> place);
  [[nodiscard]] bool isThumbPointed() const;
  [[nodiscard]] std::optional<double> angleAt(QPointF point) const;
  [[nodiscard]] std::vector<AngleInfo>::const_iterator titleAt(QPointF point) const;
  [[nodiscard]] Path arcTo(double angle) const;
  [[nodiscard]] QPointF centre() const;
  [[nodiscard]] QPointF onArc(double radians) const;
  [[nodiscard]] QPointF upward(const QMouseEvent& event) const;
  [[nodiscard]] QRectF thumbSquare() const;

  QSizeF _cacheSize;
  Path _benBG;
  Path _benMove;
  Path _0ben;
  Path _150ben;
  Path _benThumb;
  QColor _grayCircleColor;
  QColor _disableColor;
  QColor _disableTextColor;
  double RADIUS_OF_BIG_CURVE = 0.0;
  double THUMB_SIZE = 0.0;
  QPointF _thumbPosition;
  QPointF _point0Deg;
  QPointF _point150Deg;
  bool _allow2Drag = false;  ///< the thumb is held
  bool _userDidDrag = false;
  bool _didTouchAngleTitle = false;
  std::vector<AngleInfo> _angleTextList;
  bool _enable = false;
  double _angle = 0.0;
  std::weak_ptr<AngleViewerDelegate> _delegate;

  std::vector<QSizeF> _titleSizes;  ///< measured when the font changes, not while painting
  CostRing _ring;
  std::optional<int> _pointed;
  std::optional<QPointF> _pointer;  ///< where it is over this
  ClickCounter _clicks;
  StepInput _steps;
  KeyboardFocus _focus;
};
