// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>
#include <optional>

#include "controls/ReadableFigure.h"

/// One figure of a table: what it is, its number with one decimal, its unit. Digits take the same
/// room each, so that a running figure stands still. Interface thread.
class FigureLine : public QWidget, public ReadableFigure {
  Q_OBJECT

 public:
  enum class Look { Plain, Strong, Warning, Over };
  Q_ENUM(Look)

  FigureLine(QString title, QString unit, QWidget* parent = nullptr);

  /// Rounded to a tenth; none shows as "–".
  void setFigure(std::optional<double> figure);
  void setLook(Look look);
  [[nodiscard]] Look look() const { return _look; }
  /// In place of the unit, such as how much is known; empty for the unit.
  void setNote(const QString& note);
  [[nodiscard]] const QString& note() const { return _note; }

  /// The number as it is drawn, with a minus sign.
  [[nodiscard]] QString shownText() const;
  [[nodiscard]] QString figureText() const override;
  [[nodiscard]] std::optional<double> figure() const override { return _figure; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] QString digits() const;
  [[nodiscard]] QColor numberColor() const;
  [[nodiscard]] int unitRoom() const;
  void drawNumber(QPainter& painter, double right) const;

  QString _title;
  QString _unit;
  QString _note;
  std::optional<double> _figure;
  Look _look = Look::Plain;
};
