// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ValueLabel.h"

#include <QAccessibleWidget>
#include <QMouseEvent>

#include "controls/AccessibleFactory.h"
#include "controls/NumberText.h"

namespace {

class ValueLabelAccessible : public QAccessibleWidget {
 public:
  explicit ValueLabelAccessible(ValueLabel& label)
      : QAccessibleWidget(&label, QAccessible::StaticText), _label(label) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    return NumberText::plain(_label.text());
  }
  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (_label.isTypable()) names.prepend(pressAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    emit _label.pressed();
  }

 private:
  ValueLabel& _label;
};

QAccessibleInterface* makeReadableValue(ValueLabel& label) {
  return new ValueLabelAccessible(label);
}

}  // namespace

ValueLabel::ValueLabel(QWidget* parent) : TabularLabel(parent) {
  AccessibleFactory::install<ValueLabel, makeReadableValue>();
}

void ValueLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return TabularLabel::mousePressEvent(event);
  emit pressed();
}
