// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QString>

/// How the whole program looks: dark and calm, white for what is active. Text is as large, and
/// contrast as high, as the desktop wants it. Interface thread.
///
/// The style sheet knows labels by their property "role" ("title", "heading", "dim", "warning") and
/// the button to press by its property "primary".
class Appearance {
 public:
  /// Gives style, colours, font, style sheet and icon to the application; before its first window.
  /// The first time the font that is there is the desktop's.
  static void apply(QApplication& application);
  /// The same where the desktop's font asks for text so many times as large as usual.
  static void apply(QApplication& application, double desktopScale);

  /// Text so many times as large as usual, from 1 to 3, in all windows, from now on; larger where
  /// the desktop's font asks for more.
  static void setTextScale(QApplication& application, double scale);
  /// What the font that a desktop gives to programs asks for: 1 where it is of a usual size.
  static double scaleOf(const QFont& desktop);
  /// So many pixels of text with the usual size of it, in the size that it has now.
  static int pixels(int usual);
  /// More contrast, or the usual one, in all windows, from now on.
  static void setHighContrast(QApplication& application, bool isHigh);

  static QPalette palette();
  /// 13 pixels of the usual size; the user's own font family where Inter is not there.
  static QFont font();
  /// The same for what is written small: the marks of rulers and scales, units.
  static QFont small(const QFont& from);
  /// The width of a line of text in pixels: so many in the usual font, more in a larger one.
  static int lineWidth(int usual, const QFont& font);
  /// The style sheet, with colours for their names.
  static QString styleSheet();
};
