// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Lengths of time as a clock shows them. Stateless; any thread.
class ClockText {
 public:
  /// "01:27:36", cut to whole seconds; as many digits of hours as it takes.
  static QString of(double seconds);
};
