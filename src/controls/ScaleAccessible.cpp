// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/ScaleAccessible.h"

#include <cstddef>

#include "controls/Upward.h"

ScaleLabelAccessible::ScaleLabelAccessible(QWidget& widget, ReadableScale& scale, int index)
    : _widget(widget), _scale(scale), _index(index) {}

bool ScaleLabelAccessible::isValid() const {
  return static_cast<std::size_t>(_index) < _scale.textRectList().size();
}

QAccessibleInterface* ScaleLabelAccessible::parent() const {
  return QAccessible::queryAccessibleInterface(&_widget);
}

QString ScaleLabelAccessible::text(QAccessible::Text kind) const {
  if (!isValid() || kind != QAccessible::Name) return {};
  return _scale.textRectList()[static_cast<std::size_t>(_index)].text();
}

QRect ScaleLabelAccessible::rect() const {
  if (!isValid()) return {};
  const QRectF frame = _scale.textRectList()[static_cast<std::size_t>(_index)].frame();
  const QRect local = Upward::rect(frame, _widget.height()).toAlignedRect();
  return {_widget.mapToGlobal(local.topLeft()), local.size()};
}

QAccessible::Role ScaleLabelAccessible::role() const {
  return _scale.isHeard() ? QAccessible::Button : QAccessible::StaticText;
}

QAccessible::State ScaleLabelAccessible::state() const {
  QAccessible::State state;
  state.readOnly = !_scale.isHeard();
  state.disabled = isValid() && !_scale.enable();
  state.invisible = !isValid() || !_widget.isVisible();
  return state;
}

void* ScaleLabelAccessible::interface_cast(QAccessible::InterfaceType type) {
  const bool isAction = type == QAccessible::ActionInterface;
  return isAction ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList ScaleLabelAccessible::actionNames() const {
  const bool isHeard = isValid() && _scale.isHeard();
  return isHeard ? QStringList{pressAction()} : QStringList{};
}

void ScaleLabelAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  _scale.click(_scale.textRectList()[static_cast<std::size_t>(_index)]);
}

ScaleAccessible::ScaleAccessible(QWidget& widget, ReadableScale& scale)
    : QAccessibleWidget(&widget, QAccessible::Grouping), _widget(widget), _scale(scale) {}

ScaleAccessible::~ScaleAccessible() {
  for (const QAccessible::Id label : _labels) {
    if (label != 0) QAccessible::deleteAccessibleInterface(label);
  }
}

int ScaleAccessible::childCount() const {
  return static_cast<int>(_scale.textRectList().size());
}

QAccessibleInterface* ScaleAccessible::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  const auto at = static_cast<std::size_t>(index);
  if (_labels.size() <= at) _labels.resize(at + 1, 0);
  if (_labels[at] == 0) {
    auto* label = new ScaleLabelAccessible(_widget, _scale, index);
    // The registry keeps it. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    _labels[at] = QAccessible::registerAccessibleInterface(label);
  }
  return QAccessible::accessibleInterface(_labels[at]);
}

QAccessibleInterface* ScaleAccessible::childAt(int x, int y) const {
  for (int i = 0; i < childCount(); ++i) {
    if (QAccessibleInterface* label = child(i); label->rect().contains(x, y)) return label;
  }
  return nullptr;
}

int ScaleAccessible::indexOfChild(const QAccessibleInterface* child) const {
  for (int i = 0; i < childCount(); ++i) {
    if (this->child(i) == child) return i;
  }
  return -1;
}
