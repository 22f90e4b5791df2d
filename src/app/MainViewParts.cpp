// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MainViewParts.h"

QWidget* MainViewParts::ground(QWidget* parent, const char* name) {
  auto* const made = new QWidget(parent);
  made->setObjectName(QLatin1String(name));
  made->setAttribute(Qt::WA_StyledBackground);
  return made;
}

void MainViewParts::style(QLabel& label, const char* role, const QString& text) {
  label.setProperty("role", QString::fromLatin1(role));
  label.setTextFormat(Qt::PlainText);
  label.setText(text);
}

QToolButton* MainViewParts::pictureButton(QWidget* parent, int side, int picture) {
  auto* const made = new QToolButton(parent);
  made->setFixedSize(side, side);
  made->setIconSize({picture, picture});
  return made;
}
