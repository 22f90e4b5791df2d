// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/PlainText.h"

#include <QTextDocument>

// What does not look like markup would be shown with the signs of markup.
QString PlainText::of(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}
