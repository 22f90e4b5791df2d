// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// What a program plays with on a real system. Owner's thread.
class SystemBackends {
 public:
  /// Adds the file back end "wave" and the output back end "pulse", and has new players use them.
  static void choose();
};
