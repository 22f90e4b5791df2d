// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>
#include <algorithm>
#include <vector>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

/// What assistive software is told while this lives, as if a screen reader had come: the toolkit
/// tells nothing to nobody. One at a time.
class AccessibleEvents {
 public:
  struct Told {
    QAccessible::Event type;
    QAccessible::Role role;
    QString name;
  };

  AccessibleEvents() {
    _told.clear();
    setActive(true);
    _previous = QAccessible::installUpdateHandler(take);
  }
  ~AccessibleEvents() {
    QAccessible::installUpdateHandler(_previous);
    setActive(false);
  }
  AccessibleEvents(const AccessibleEvents&) = delete;
  AccessibleEvents& operator=(const AccessibleEvents&) = delete;

  [[nodiscard]] static const std::vector<Told>& told() { return _told; }
  [[nodiscard]] static long count(QAccessible::Event type) {
    return std::ranges::count(_told, type, &Told::type);
  }

 private:
  static void setActive(bool active) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
  }
  static void take(QAccessibleEvent* event) {
    const QAccessibleInterface* const item = event->accessibleInterface();
    if (item == nullptr) return;
    _told.push_back({event->type(), item->role(), item->text(QAccessible::Name)});
  }

  QAccessible::UpdateHandler _previous;
  static inline std::vector<Told> _told;
};
