// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/PathViewerAccessible.h"

#include "controls/PathViewer.h"

PathViewerAccessible::PathViewerAccessible(PathViewer& path)
    : QAccessibleWidget(&path, QAccessible::StaticText), _path(path) {}

QString PathViewerAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? _path.lastPathComponent() : QAccessibleWidget::text(kind);
}

QAccessible::State PathViewerAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}
