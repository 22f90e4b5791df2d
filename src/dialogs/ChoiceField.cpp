// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ChoiceField.h"

#include <QFontMetrics>
#include <algorithm>

QSize ChoiceField::sizeHint() const {
  return QComboBox::sizeHint() + forgotten();
}

QSize ChoiceField::minimumSizeHint() const {
  return QComboBox::minimumSizeHint() + forgotten();
}

QSize ChoiceField::forgotten() const {
  const QFontMetrics metrics = fontMetrics();
  int most = 0;
  for (int i = 0; i < count(); ++i) {
    const QString text = itemText(i);
    most = std::max(most, metrics.horizontalAdvance(text) - metrics.boundingRect(text).width());
  }
  return {most, 0};
}
