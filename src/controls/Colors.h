// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

/// The colours of the window, by the names that layouts and drawings use: the usual ones, or those
/// of a desktop that wants more contrast. Interface thread.
class Colors {
 public:
  /// From now on. Who keeps a colour, or a picture of it, hears of it by `QEvent::PaletteChange`.
  static void setHighContrast(bool isHigh) { isHighContrast() = isHigh; }

  static QColor AppBG() { return either({0x17, 0x18, 0x1B}, {0x00, 0x00, 0x00}); }
  static QColor AppBGLight() { return either({0x20, 0x22, 0x26}, {0x0A, 0x0B, 0x0D}); }
  static QColor ControlColor() { return either({0x2D, 0x30, 0x36}, {0x1E, 0x20, 0x24}); }
  static QColor WHITE() { return {0xFF, 0xFF, 0xFF}; }

  static QColor dimText() { return either({0x9A, 0xA0, 0xA8}, {0xE0, 0xE4, 0xE8}); }
  /// Folder icons and the used part of the card.
  static QColor accent() { return either({0x8F, 0xA3, 0xB8}, {0xB9, 0xD3, 0xF2}); }
  /// Edges of menus and fields, handles of scroll bars.
  static QColor line() { return either({0x3F, 0x43, 0x4A}, {0xA0, 0xA6, 0xAE}); }
  /// What guides the eye and tells nothing: lines under the scope, the middle of a waveform. Where
  /// it is to be 3:1, half of it is so too, as of a line between two pixels.
  static QColor guide() { return either({0x2D, 0x30, 0x36}, {0xC0, 0xC6, 0xCE}); }
  /// What is left of a track or an arc, and a knob that cannot be moved. The usual one is given;
  /// the other is 4.5:1 to its ground, and 3:1 to the white part beside it.
  static QColor track() { return either({0x58, 0x58, 0x58}, {0x7C, 0x7C, 0x7C}); }
  /// Behind the chosen entry of a list or menu.
  static QColor selection() { return either({0x3A, 0x3F, 0x47}, {0x12, 0x4A, 0x8C}); }
  /// The same where several entries of a list are chosen.
  static QColor severalSelected() { return either({0x2B, 0x39, 0x4A}, {0x12, 0x4A, 0x8C}); }
  /// A button under the pointer, and pressed.
  static QColor hover() { return {0x3A, 0x3E, 0x46}; }
  static QColor pressed() { return either({0x25, 0x28, 0x2D}, {0x00, 0x00, 0x00}); }
  /// The same for the white button that a dialog expects to be pressed.
  static QColor primaryHover() { return {0xE4, 0xE7, 0xEB}; }
  static QColor primaryPressed() { return {0xC4, 0xC9, 0xD0}; }
  /// Text that warns.
  static QColor warning() { return either({0xE8, 0xB3, 0x4B}, {0xFF, 0xD0, 0x6B}); }
  /// The ring on what has the keyboard: 3:1 or more against white and against the backgrounds.
  static QColor focusRing() { return {0x3D, 0x8B, 0xFD}; }
  /// A waveform before and after it was played; 3:1 or more against the ground under it, inside of
  /// a loop too.
  static QColor waveAhead() { return either({0x6E, 0x73, 0x7B}, {0x9A, 0xA0, 0xA8}); }
  static QColor wavePlayed() { return either({0xC8, 0xCD, 0xD4}, {0xFF, 0xFF, 0xFF}); }
  /// What is over full scale, and what will be when it is played.
  static QColor over() { return either({0xE5, 0x48, 0x4D}, {0xFF, 0x6B, 0x70}); }
  static QColor overAhead() { return either({0xC4, 0x46, 0x4C}, {0xE5, 0x48, 0x4D}); }
  /// The edge of what would hardly be seen without: a lamp that is not lit, an empty bar.
  static QColor lampEdge() { return either({0xA8, 0x66, 0x6C}, {0xC8, 0x84, 0x8A}); }
  static QColor barEdge() { return either({0x7A, 0x80, 0x8A}, {0x9A, 0xA0, 0xA8}); }
  /// A lamp that is not lit, and a figure that is over: bright enough for a text.
  static QColor overDark() { return either({0x4A, 0x28, 0x2C}, {0x5A, 0x30, 0x34}); }
  static QColor overText() { return either({0xF2, 0x7A, 0x7E}, {0xFF, 0xA8, 0xAB}); }
  /// A level that is safe, and the points of the scope.
  static QColor safe() { return either({0x56, 0xC9, 0x8C}, {0x7F, 0xE8, 0xB2}); }
  /// Labels of a control that cannot be used.
  static QColor disabledText() {
    return either({0xFF, 0xFF, 0xFF, 0x80}, {0xFF, 0xFF, 0xFF, 0xC0});
  }

 private:
  static bool& isHighContrast() {
    static bool isHigh = false;
    return isHigh;
  }
  static QColor either(QColor usual, QColor high) { return isHighContrast() ? high : usual; }
};
