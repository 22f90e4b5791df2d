// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/FigureLine.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/AccessibleFactory.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "controls/FigureAccessible.h"
#include "controls/NumberText.h"

namespace {

constexpr int kUnitRoom = 32;  // to the right of the number, at least
constexpr int kHeight = 18;

QAccessibleInterface* makeReadableLine(FigureLine& line) {
  return new FigureAccessible(line, line);
}

std::optional<double> tenthsOf(std::optional<double> figure) {
  return figure ? std::optional(std::round(*figure * 10)) : std::nullopt;
}

QFont titleFont(const QFont& from) {
  QFont font = from;
  if (font.pixelSize() > 1) font.setPixelSize(font.pixelSize() - 1);
  return font;
}

QFont numberFont(const QFont& from, FigureLine::Look look) {
  QFont font = from;
  if (look != FigureLine::Look::Plain) font.setWeight(QFont::DemiBold);
  return font;
}

}  // namespace

FigureLine::FigureLine(QString title, QString unit, QWidget* parent)
    : QWidget(parent), _title(std::move(title)), _unit(std::move(unit)) {
  AccessibleFactory::install<FigureLine, makeReadableLine>();
}

void FigureLine::setFigure(std::optional<double> figure) {
  if (figure && !std::isfinite(*figure)) figure.reset();
  const bool isSame = tenthsOf(figure) == tenthsOf(_figure);
  _figure = figure;
  if (!isSame) update();
}

void FigureLine::setLook(Look look) {
  if (look == _look) return;
  _look = look;
  update();
}

void FigureLine::setNote(const QString& note) {
  if (note == _note) return;
  _note = note;
  update();
}

QString FigureLine::digits() const {
  return _figure ? NumberText::level(*_figure) : QStringLiteral("–");
}

// With three digits before the point there is no room for a tenth, and no use.
QString FigureLine::shownText() const {
  constexpr double kLong = 99.95;
  const bool isLong = _figure && std::abs(*_figure) >= kLong;
  const QString text = isLong ? NumberText::of(*_figure, 0) : digits();
  return NumberText::printed(text);
}

QString FigureLine::figureText() const {
  const QString number = _figure ? digits() + u' ' + _unit : digits();
  return _note.isEmpty() ? number : number + QStringLiteral(", ") + _note;
}

int FigureLine::unitRoom() const {
  return Appearance::lineWidth(kUnitRoom, font());
}

QSize FigureLine::sizeHint() const {
  const QFontMetrics metrics(font());
  const int text = metrics.horizontalAdvance(_title) +
                   metrics.horizontalAdvance(NumberText::localized(QStringLiteral("−88.8")));
  return {std::max(144, text + unitRoom()), std::max(kHeight, metrics.height() + 2)};
}

void FigureLine::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) updateGeometry();
  QWidget::changeEvent(event);
}

QColor FigureLine::numberColor() const {
  if (!_figure || !isEnabled()) return Colors::dimText();
  if (_look == Look::Over) return Colors::overText();
  return _look == Look::Warning ? Colors::warning() : Colors::WHITE();
}

void FigureLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(Colors::dimText());
  painter.setFont(titleFont(font()));
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, _title);
  drawNumber(painter, width() - unitRoom());
  painter.setFont(Appearance::small(font()));
  painter.setPen(Colors::dimText());
  painter.drawText(rect(), Qt::AlignRight | Qt::AlignVCenter, _note.isEmpty() ? _unit : _note);
}

void FigureLine::drawNumber(QPainter& painter, double right) const {
  painter.setFont(numberFont(font(), _look));
  painter.setPen(numberColor());
  const QFontMetricsF metrics(painter.font());
  double widest = 0;
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) {
    widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
  }
  const QString text = shownText();
  double at = right;
  for (qsizetype i = text.size(); i-- > 0;) {
    const double room = text[i].isDigit() ? widest : metrics.horizontalAdvance(text[i]);
    at -= room;
    painter.drawText(QRectF(at - 4, 0, room + 8, height()), Qt::AlignCenter, QString(text[i]));
  }
}
