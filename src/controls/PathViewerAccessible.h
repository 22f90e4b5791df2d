// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <functional>

/// The folder's name for assistive software: a text whose value is what it shows. Interface thread.
class PathViewerAccessible : public QAccessibleWidget {
 public:
  using Shown = std::function<QString()>;

  /// `shown` is asked as long as `path` lives.
  PathViewerAccessible(QWidget& path, Shown shown);

  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

 private:
  Shown _shown;
};
