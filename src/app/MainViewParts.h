// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QToolButton>
#include <QWidget>

/// Small pieces that the main view is put together from. Interface thread.
class MainViewParts {
 public:
  /// A rounded ground of a named colour; see the view's style sheet.
  static QWidget* ground(QWidget* parent, const char* name);
  /// A line of text in one of the style sheet's roles; an empty role is plain text.
  template <class Label = QLabel>
  static Label* label(QWidget* parent, const char* role, const QString& text = {}) {
    auto* const made = new Label(parent);
    style(*made, role, text);
    return made;
  }
  /// A button that is only a picture.
  static QToolButton* pictureButton(QWidget* parent, int side, int picture);

 private:
  static void style(QLabel& label, const char* role, const QString& text);
};
