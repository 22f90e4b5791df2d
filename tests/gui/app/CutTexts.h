// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

/// Measures what a window shows. What is cut short on purpose, names of files, does not count.
class CutTexts {
 public:
  /// The texts that have less room in the window than they need, each with what it lacks.
  static QStringList in(const QWidget& window);
};
