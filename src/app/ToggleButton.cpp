// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ToggleButton.h"

#include <QAccessibleWidget>

#include "controls/AccessibleFactory.h"

namespace {

class ToggleButtonAccessible : public QAccessibleWidget {
 public:
  explicit ToggleButtonAccessible(ToggleButton& button)
      : QAccessibleWidget(&button, QAccessible::CheckBox), _button(button) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = _button.isChecked();
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (_button.isEnabled()) names.prepend(toggleAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (name != toggleAction()) return QAccessibleWidget::doAction(name);
    _button.click();
  }

 private:
  ToggleButton& _button;
};

QAccessibleInterface* makeReadableToggle(ToggleButton& button) {
  return new ToggleButtonAccessible(button);
}

}  // namespace

ToggleButton::ToggleButton(QWidget* parent) : QToolButton(parent) {
  AccessibleFactory::install<ToggleButton, makeReadableToggle>();
  setCheckable(true);
}
