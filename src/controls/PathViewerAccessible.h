// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class PathViewer;

/// The folder's name for assistive software: a text whose value is what it shows. Interface thread.
class PathViewerAccessible : public QAccessibleWidget {
 public:
  explicit PathViewerAccessible(PathViewer& path);

  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

 private:
  PathViewer& _path;
};
