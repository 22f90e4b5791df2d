// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QToolButton>
#include <QWidget>

/// Small pieces that the main view is put together from. Interface thread.
class MainViewParts {
 public:
  /// Makes the widget a rounded ground of a named colour; see the window's style sheet.
  static void makeGround(QWidget& widget, const char* name);
  /// A ground of its own.
  static QWidget* ground(QWidget* parent, const char* name);
  /// A line of text in one of the style sheet's roles; an empty role is plain text.
  template <class Label = QLabel>
  static Label* label(QWidget* parent, const char* role, const QString& text = {}) {
    auto* const made = new Label(parent);
    style(*made, role, text);
    return made;
  }
  /// A button that is only a picture.
  template <class Button = QToolButton>
  static Button* pictureButton(QWidget* parent, int side, int picture) {
    auto* const made = new Button(parent);
    made->setFixedSize(side, side);
    made->setIconSize({picture, picture});
    made->setCursor(Qt::PointingHandCursor);
    return made;
  }
  /// Marks an action that stands for a button: picture and name for assistive software.
  static void setFace(QAbstractButton& button, const QString& artwork, const QString& name);
  /// Text colour of a caption at this opacity, 0 to 1.
  static void setAlpha(QLabel& caption, double alpha);

 private:
  static void style(QLabel& label, const char* role, const QString& text);
};
