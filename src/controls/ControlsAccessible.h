// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "controls/PopupAccessible.h"

/// Makes readable for assistive software what cannot see to it by itself: the toolkit's pop-ups. A
/// window calls it before it makes them. Interface thread.
class ControlsAccessible {
 public:
  static void install() { PopupAccessible::install(); }
};
