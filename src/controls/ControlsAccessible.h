// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// Makes the controls readable for assistive software. Each control's constructor calls it, and a
/// window with pop-ups before it makes them; calling again changes nothing. Interface thread.
class ControlsAccessible {
 public:
  static void install();
};
