// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QRectF>
#include <QStringList>
#include <QWidget>
#include <optional>

#include "controls/Adjustable.h"
#include "controls/KeyboardFocus.h"
#include "controls/LoopMarks.h"
#include "controls/TimeWindow.h"
#include "controls/WaveformColumns.h"
#include "controls/WaveformRuler.h"

/// The sound of a take over its time: Left up, Right down, what has been played brighter, what is
/// over full scale red, under a ruler of time. A press or a drag moves the play head, the pointer
/// reads time and level, the wheel zooms around it, a double click shows all. A drag in the ruler
/// marks a stretch, whose marks can be moved there; a click in it is one as elsewhere.
///
/// It holds a stretch of time and asks for columns for it; where none have come, or those of
/// another stretch, what is there is shown in its place. Values are seconds. Interface thread.
class WaveformViewer : public QWidget, public Adjustable {
  Q_OBJECT

 public:
  explicit WaveformViewer(QWidget* parent = nullptr);

  /// A take of so many seconds, all of it in view, nothing known of it, the play head at 0; 0 is
  /// none.
  void setLength(double seconds);
  [[nodiscard]] double length() const { return _stretch.length(); }
  /// Where the play head is. While zoomed, the picture turns the page with it.
  void setPosition(double seconds);
  [[nodiscard]] double position() const { return _position; }
  /// As many columns as `columnsWanted`, of the stretch in view.
  void setColumns(WaveformColumns columns);
  [[nodiscard]] const WaveformColumns& columns() const { return _columns; }

  /// The stretch that is marked; one whose second mark is missing shows its first. None without.
  void setMarks(const std::optional<LoopMarks::Marks>& marks);
  [[nodiscard]] const std::optional<LoopMarks::Marks>& marks() const { return _marks.marks(); }

  [[nodiscard]] const TimeWindow& stretch() const { return _stretch; }
  /// One for each pixel of the screen.
  [[nodiscard]] int columnsWanted() const;
  /// Whether the pointer drags the play head.
  [[nodiscard]] bool isHeld() const { return _isHeld; }

  /// Shows `factor` times as much, around a place of the widget.
  void zoom(double factor, double x);
  /// By so many pixels; to the right shows what is later.
  void scroll(double pixels);
  void showAll();

  /// Where columns are drawn; the play head of the first and last moment stands on its edges, and
  /// where the knob of a position slider of the same width would.
  [[nodiscard]] double ruler() const { return _ruler.height(); }
  [[nodiscard]] QRectF body() const;
  [[nodiscard]] double xOf(double seconds) const;
  [[nodiscard]] double timeAt(double x) const;
  /// What the pointer reads: time, and each channel in dB; empty without pointer or take.
  [[nodiscard]] QStringList reading() const;

  [[nodiscard]] bool isAdjustable() const override { return isEnabled() && length() > 0; }
  [[nodiscard]] double adjustableValue() const override { return _position; }
  [[nodiscard]] double lowest() const override { return 0; }
  [[nodiscard]] double highest() const override { return length(); }
  [[nodiscard]] double fineStep() const override { return 1; }
  [[nodiscard]] double coarseStep() const override { return 10; }
  /// "hh:mm:ss".
  [[nodiscard]] QString valueText() const override;
  void adjust(double value, AdjustCause cause) override;

  [[nodiscard]] QSize sizeHint() const override { return {640, 64}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {200, 40}; }

 signals:
  /// The user moved the play head.
  void valueAdjusted(AdjustCause cause);
  /// The user has marked a stretch, in seconds.
  void stretchMarked(double from, double to);
  /// Other columns are wanted: another stretch, or another number.
  void stretchChanged();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  /// Asks for columns where the stretch is another than it was.
  void tellStretch(const TimeWindow& before);
  void revealHead();
  void drawPictures();
  /// The ruler, and what stands in it and on the picture.
  void drawRuler(QPainter& painter);
  void drawWave(QPainter& painter) const;
  void drawHead(QPainter& painter) const;
  [[nodiscard]] QRectF readingBox(const QStringList& texts) const;
  void drawReading(QPainter& painter, const QStringList& texts, const QRectF& box) const;
  void markTo(double x);
  void endMarking(double x);
  void endHolding();
  void showCursor(QPointF at);
  [[nodiscard]] bool isRuler(QPointF at) const;
  [[nodiscard]] double placeOf(double x) const;
  void updateBetween(double x1, double x2);
  void hover(std::optional<double> x);
  [[nodiscard]] std::optional<double> keyTarget(const QKeyEvent& event) const;
  [[nodiscard]] double headX() const;

  TimeWindow _stretch;
  WaveformColumns _columns;
  QImage _ahead;  ///< the columns as not yet played
  QImage _played;
  double _position = 0;
  std::optional<double> _hover;  ///< where the pointer is
  bool _isHeld = false;
  LoopMarks _marks;
  WaveformRuler _ruler;
  KeyboardFocus _focus;
};
