// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/NumberText.h"

#include <QLocale>
#include <cmath>

QString NumberText::localized(QString text) {
  return text.replace(u'.', QLocale().decimalPoint());
}

QString NumberText::of(double number, int decimals) {
  return localized(QString::number(number, 'f', decimals));
}

QString NumberText::of(double number) {
  return localized(QString::number(number));
}

QString NumberText::level(double decibels) {
  const double tenths = std::round(decibels * 10);
  QString digits = of(std::abs(tenths) / 10, 1);
  if (tenths == 0) return digits;
  return (tenths > 0 ? u'+' : u'-') + digits;
}

QString NumberText::printed(QString text) {
  for (qsizetype i = 0; i + 1 < text.size(); ++i) {
    if (text.at(i) == u'-' && text.at(i + 1).isDigit()) text[i] = u'−';
  }
  return text;
}

QString NumberText::plain(QString text) {
  return text.replace(u'−', u'-');
}

std::optional<double> NumberText::typed(const QString& text) {
  QString digits = plain(text.trimmed());
  digits.replace(QLocale().decimalPoint(), QStringLiteral(".")).replace(u',', u'.');
  bool isNumber = false;
  const double number = digits.toDouble(&isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}
