// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDialog>

/// Gives the toolkit's file panel the program's own pictures, and the button that ends it the look
/// of the one to press. Interface thread.
class PanelLook {
 public:
  /// To be called when the panel knows what it is for.
  static void apply(QFileDialog& panel);
};
