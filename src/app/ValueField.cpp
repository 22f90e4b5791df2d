// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ValueField.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/NumberText.h"

namespace {

constexpr QSize kField{64, 26};

// The focus is only lent to a menu of the field's own.
bool isAbandoned(const QEvent& event) {
  return event.type() == QEvent::FocusOut &&
         static_cast<const QFocusEvent&>(event).reason() != Qt::PopupFocusReason;
}

}  // namespace

ValueField::ValueField(ValueLabel& label, Adjustable& control, QString name, QObject* parent)
    : QObject(parent), _label(label), _control(control), _name(std::move(name)) {
  _label.setCursor(Qt::IBeamCursor);
  _label.setToolTip(tr("Click to type a value"));
  _label.setTypable([field = QPointer<const ValueField>(this)] {
    const ValueField* const still = field;
    return still != nullptr && still->_control.isAdjustable();
  });
  connect(&_label, &ValueLabel::pressed, this, &ValueField::open);
}

std::optional<double> ValueField::numberIn(const QString& text) {
  static const QRegularExpression kNumber(
      QStringLiteral("^\\s*([+-]?[0-9]+([.,][0-9]*)?)\\s*"
                     "(°|dB|degrees)?\\s*$"));
  QString plain = text;
  const auto match = kNumber.match(plain.replace(u'−', u'-'));
  if (!match.hasMatch()) return std::nullopt;
  return match.captured(1).replace(u',', u'.').toDouble();
}

void ValueField::open() {
  if (_field || !_control.isAdjustable()) return;
  auto* const field = new QLineEdit(_label.parentWidget());
  field->setAccessibleName(_name);
  field->setAlignment(Qt::AlignCenter);
  _shown = _label.text();
  const auto number = numberIn(_shown);
  field->setText(number ? NumberText::of(*number) : QString());
  const QSize size(kField.width(), std::max(kField.height(), field->sizeHint().height()));
  const QPoint half(size.width() / 2, size.height() / 2);
  QRect place(_label.geometry().center() - half, size);
  place.moveBottom(std::min(place.bottom(), _label.parentWidget()->rect().bottom()));
  field->setGeometry(place);
  field->installEventFilter(this);
  field->selectAll();
  field->show();
  field->setFocus();
  _field = field;
}

bool ValueField::eventFilter(QObject* watched, QEvent* event) {
  if (watched != _field) return false;
  if (isAbandoned(*event)) abandon();
  if (event->type() != QEvent::KeyPress) return false;
  return keyPressed(static_cast<const QKeyEvent*>(event)->key());
}

bool ValueField::keyPressed(int key) {
  const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (isReturn) apply();
  if (key == Qt::Key_Escape) close();
  return isReturn || key == Qt::Key_Escape;
}

// By the wheel, a key or another take the value may have become newer than what is in the field.
void ValueField::abandon() {
  _label.text() == _shown ? apply() : close();
}

void ValueField::apply() {
  const QLineEdit* const field = _field;
  if (field == nullptr) return;
  const auto number = numberIn(field->text());
  close();
  if (number && _control.isAdjustable()) {
    _control.adjust(std::round(*number), AdjustCause::Key);
  }
}

// It may be in one of its own events.
void ValueField::close() {
  QLineEdit* const field = _field;
  if (field == nullptr) return;
  _field = nullptr;
  field->removeEventFilter(this);
  field->hide();
  field->deleteLater();
}
