// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/ClickCounter.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <algorithm>

bool ClickCounter::continuesRow(const QMouseEvent& event) const {
  // Only the toolkit can tell a double click; from the second on the row is ours to follow.
  if (_count < 2 || event.timestamp() < _time) return false;
  const QStyleHints& hints = *QGuiApplication::styleHints();
  const auto waited = event.timestamp() - _time;
  const double moved = (event.globalPosition() - _place).manhattanLength();
  return waited <= static_cast<quint64>(hints.mouseDoubleClickInterval()) &&
         moved <= hints.mouseDoubleClickDistance();
}

int ClickCounter::press(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseButtonDblClick) {
    _count = continuesRow(event) ? _count + 1 : 2;
  } else {
    _count = continuesRow(event) ? _count + 1 : 1;
  }
  _time = event.timestamp();
  _place = event.globalPosition();
  return _count;
}
