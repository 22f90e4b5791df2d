// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MainViewParts.h"

#include "controls/Artwork.h"
#include "controls/Colors.h"

void MainViewParts::makeGround(QWidget& widget, const char* name) {
  widget.setObjectName(QLatin1String(name));
  widget.setAttribute(Qt::WA_StyledBackground);
}

QWidget* MainViewParts::ground(QWidget* parent, const char* name) {
  auto* const made = new QWidget(parent);
  makeGround(*made, name);
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

void MainViewParts::setFace(QAbstractButton& button, const QString& artwork, const QString& name) {
  button.setIcon(Artwork::icon(artwork));
  button.setAccessibleName(name);
  button.setToolTip(name);
}

void MainViewParts::setAlpha(QLabel& caption, double alpha) {
  QPalette palette = caption.palette();
  QColor colour = Colors::WHITE();
  colour.setAlphaF(static_cast<float>(alpha));
  palette.setColor(QPalette::WindowText, colour);
  caption.setPalette(palette);
}
