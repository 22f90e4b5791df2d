// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// The colours of the window, by the names that layouts and drawings use. Constant; any thread.
class Colors {
 public:
  static QColor AppBG() { return {0x17, 0x18, 0x1B}; }
  static QColor AppBGLight() { return {0x20, 0x22, 0x26}; }
  static QColor ControlColor() { return {0x2D, 0x30, 0x36}; }
  static QColor WHITE() { return {0xFF, 0xFF, 0xFF}; }

  static QColor dimText() { return {0x9A, 0xA0, 0xA8}; }
  /// Folder icons and the used part of the card.
  static QColor accent() { return {0x8F, 0xA3, 0xB8}; }
  /// The ring on what has the keyboard: 3:1 or more against white and against the backgrounds.
  static QColor focusRing() { return {0x3D, 0x8B, 0xFD}; }
  /// Labels of a control that cannot be used.
  static QColor disabledText() { return {0xFF, 0xFF, 0xFF, 0x80}; }
};
