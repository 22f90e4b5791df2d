// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/PathViewerAccessible.h"

#include <utility>

PathViewerAccessible::PathViewerAccessible(QWidget& path, Shown shown)
    : QAccessibleWidget(&path, QAccessible::StaticText), _shown(std::move(shown)) {}

QString PathViewerAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? _shown() : QAccessibleWidget::text(kind);
}

QAccessible::State PathViewerAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}
