// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QString>

/// How the whole program looks: dark and calm, white for what is active. Interface thread.
///
/// The style sheet knows labels by their property "role" ("title", "heading", "dim", "warning") and
/// the button to press by its property "primary".
class Appearance {
 public:
  /// Gives style, colours, font, style sheet and icon to the application; before its first window.
  static void apply(QApplication& application);

  static QPalette palette();
  /// 13 pixels; the user's own font family where Inter is not there.
  static QFont font();
  /// The same for what is written small: the marks of rulers and scales, units.
  static QFont small(const QFont& from);
  /// The width of a line of text in pixels: so many in the usual font, more in a larger one.
  static int lineWidth(int usual, const QFont& font);
  /// The style sheet, with colours for their names.
  static QString styleSheet();
};
