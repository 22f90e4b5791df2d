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
  /// Edges of menus and fields, handles of scroll bars.
  static QColor line() { return {0x3F, 0x43, 0x4A}; }
  /// Behind the chosen entry of a list or menu.
  static QColor selection() { return {0x3A, 0x3F, 0x47}; }
  /// The same where several entries of a list are chosen.
  static QColor severalSelected() { return {0x2B, 0x39, 0x4A}; }
  /// A button under the pointer, and pressed.
  static QColor hover() { return {0x3A, 0x3E, 0x46}; }
  static QColor pressed() { return {0x25, 0x28, 0x2D}; }
  /// The same for the white button that a dialog expects to be pressed.
  static QColor primaryHover() { return {0xE4, 0xE7, 0xEB}; }
  static QColor primaryPressed() { return {0xC4, 0xC9, 0xD0}; }
  /// Text that warns.
  static QColor warning() { return {0xE8, 0xB3, 0x4B}; }
  /// The ring on what has the keyboard: 3:1 or more against white and against the backgrounds.
  static QColor focusRing() { return {0x3D, 0x8B, 0xFD}; }
  /// A waveform before and after it was played; 3:1 or more against the ground under it.
  static QColor waveAhead() { return {0x6E, 0x73, 0x7B}; }
  static QColor wavePlayed() { return {0xC8, 0xCD, 0xD4}; }
  /// What is over full scale, and what will be when it is played.
  static QColor over() { return {0xE5, 0x48, 0x4D}; }
  static QColor overAhead() { return {0xB8, 0x3C, 0x42}; }
  /// A lamp that is not lit, and a figure that is over: bright enough for a text.
  static QColor overDark() { return {0x4A, 0x28, 0x2C}; }
  static QColor overText() { return {0xF2, 0x7A, 0x7E}; }
  /// A level that is safe, and the points of the scope.
  static QColor safe() { return {0x56, 0xC9, 0x8C}; }
  /// Labels of a control that cannot be used.
  static QColor disabledText() { return {0xFF, 0xFF, 0xFF, 0x80}; }
};
