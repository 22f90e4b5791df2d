// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/FigureAccessible.h"

#include <QWidget>
#include <limits>

FigureAccessible::FigureAccessible(QWidget& widget, const ReadableFigure& figure,
                                   QAccessible::Role role)
    : QAccessibleWidget(&widget, role), _figure(figure) {}

void* FigureAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QString FigureAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? _figure.figureText() : QAccessibleWidget::text(kind);
}

QAccessible::State FigureAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}

QVariant FigureAccessible::currentValue() const {
  return _figure.figure().value_or(std::numeric_limits<double>::quiet_NaN());
}

QString FigureAccessible::text(int start, int end) const {
  return _figure.figureText().mid(start, end < 0 ? -1 : end - start);
}

int FigureAccessible::characterCount() const {
  return static_cast<int>(_figure.figureText().size());
}

QString FigureAccessible::attributes(int /*offset*/, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

QRect FigureAccessible::characterRect(int /*offset*/) const {
  return rect();
}

void FigureAccessible::selection(int /*index*/, int* start, int* end) const {
  *start = *end = 0;
}
