// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/ClipLamp.h"

#include <QEvent>
#include <QPainter>
#include <cmath>
#include <optional>

#include "controls/AccessibleFactory.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "controls/FigureAccessible.h"
#include "controls/NumberText.h"

namespace {

constexpr double kLampWidth = 20;
constexpr double kLampHeight = 6;
constexpr double kLampRadius = 2;
constexpr double kGap = 4;

}  // namespace

class ClipLamp::FigureButton : public QAbstractButton, public ReadableFigure {
 public:
  explicit FigureButton(ClipLamp& lamp) : QAbstractButton(&lamp), _lamp(lamp) {}

  [[nodiscard]] QString figureText() const override {
    return figure() ? _lamp._figure + QStringLiteral(" dBFS") : _lamp._figure;
  }
  [[nodiscard]] std::optional<double> figure() const override {
    return std::isfinite(_lamp._tenths) ? std::optional(_lamp._tenths) : std::nullopt;
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {}

 private:
  const ClipLamp& _lamp;
};

namespace {

/// A figure that can be pressed.
class PeakAccessible : public FigureAccessible {
 public:
  PeakAccessible(QAbstractButton& button, const ReadableFigure& figure)
      : FigureAccessible(button, figure, QAccessible::Button), _button(button) {}

  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = FigureAccessible::actionNames();
    if (_button.isEnabled()) names.prepend(pressAction());
    return names;
  }
  void doAction(const QString& name) override {
    name == pressAction() ? _button.click() : FigureAccessible::doAction(name);
  }

 private:
  QAbstractButton& _button;
};

// Other buttons are the toolkit's.
QAccessibleInterface* makeReadablePeak(QAbstractButton& button) {
  const auto* const figure = dynamic_cast<const ReadableFigure*>(&button);
  return figure != nullptr ? new PeakAccessible(button, *figure) : nullptr;
}

}  // namespace

ClipLamp::ClipLamp(QWidget* parent)
    : QAbstractButton(parent), _figureButton(new FigureButton(*this)) {
  AccessibleFactory::install<QAbstractButton, makeReadablePeak>();
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
  _figureButton->setFocusPolicy(Qt::NoFocus);
  connect(_figureButton, &QAbstractButton::clicked, this, &QAbstractButton::click);
  setPeak(PeakHold());
}

void ClipLamp::setNames(const QString& figure, const QString& lamp) {
  _figureButton->setAccessibleName(figure);
  setAccessibleName(lamp);
}

void ClipLamp::describe() {
  _figureButton->setAccessibleDescription(_figureButton->figureText());
  setAccessibleDescription(_isLit ? tr("over full scale") : tr("not over full scale"));
}

void ClipLamp::setPeak(const PeakHold& peak) {
  if (peak.tenths() == _tenths && peak.isOver() == _isLit) return;
  _tenths = peak.tenths();
  _figure = peak.text();
  _printed = NumberText::printed(_figure);
  _isLit = peak.isOver();
  describe();
  update();
}

QFont ClipLamp::figureFont() const {
  return Appearance::small(font());
}

QRectF ClipLamp::lamp() const {
  const double left = std::floor((width() - kLampWidth) / 2);
  return {left, height() - kLampHeight, kLampWidth, kLampHeight};
}

QSize ClipLamp::sizeHint() const {
  const QFontMetrics metrics(figureFont());
  const int width = metrics.horizontalAdvance(NumberText::localized(QStringLiteral("+88.8"))) + 6;
  return {std::max(width, static_cast<int>(kLampWidth)),
          metrics.height() + static_cast<int>(kGap + kLampHeight)};
}

QRectF ClipLamp::figurePlace() const {
  return {0, 0, static_cast<double>(width()), lamp().top() - kGap + 2};
}

void ClipLamp::resizeEvent(QResizeEvent* event) {
  _figureButton->setGeometry(figurePlace().toRect());
  QAbstractButton::resizeEvent(event);
}

bool ClipLamp::event(QEvent* event) {
  if (event->type() == QEvent::FontChange) updateGeometry();
  return QAbstractButton::event(event);
}

void ClipLamp::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(_isLit ? Colors::over() : Colors::lampEdge(), 1));
  painter.setBrush(_isLit ? Colors::over() : Colors::overDark());
  painter.drawRoundedRect(lamp().adjusted(0.5, 0.5, -0.5, -0.5), kLampRadius, kLampRadius);
  painter.setFont(figureFont());
  const bool isNone = _figure == QStringLiteral("–");
  const QColor plain = isNone || !isEnabled() ? Colors::dimText() : Colors::WHITE();
  painter.setPen(_isLit ? Colors::overText() : plain);
  painter.drawText(figurePlace(), Qt::AlignHCenter | Qt::AlignBottom, _printed);
  if (!hasFocus() || !_focus.isShown()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Colors::focusRing(), 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

void ClipLamp::focusInEvent(QFocusEvent* event) {
  _focus.gained(event->reason());
  QAbstractButton::focusInEvent(event);
}
