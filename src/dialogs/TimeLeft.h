// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// How long work will still take, judged by how long it took so far. Stateless.
class TimeLeft {
 public:
  /// "About 12 s left" or "About 3 min left"; empty as long as too little is known: in the first
  /// second, and before a hundredth is done. `done` is 0 to 1.
  static QString text(double elapsedSeconds, double done);
};
