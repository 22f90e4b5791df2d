// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

/// Numbers as people read and type them: with the decimal sign of `QLocale()`, and without groups.
/// Any thread.
class NumberText {
 public:
  /// With so many decimals, and a plain minus sign.
  static QString of(double number, int decimals);
  /// With as many digits as are needed, six at most.
  static QString of(double number);
  /// A level to a tenth, with its sign, which is a plain one: "+2.0", "-23.1", "0.0".
  static QString level(double decibels);
  /// What has been written with a point, as it is written here.
  static QString localized(QString text);
  /// With the minus sign that is printed before every number in it. What assistive software reads
  /// keeps the plain one.
  static QString printed(QString text);
  /// The inverse: what has been printed, with plain minus signs.
  static QString plain(QString text);
  /// With either minus sign, and with the point, the comma, or the decimal sign of `QLocale()`.
  /// None where it is no number.
  static std::optional<double> typed(const QString& text);
};
