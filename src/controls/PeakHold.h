// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The greatest magnitude since it was cleared, for as long as nobody clears it. Pure figures; any
/// thread.
class PeakHold {
 public:
  /// Linear, 1 is full scale; what is not a number does not count.
  void add(double magnitude);
  void clear() { _peak = 0; }

  [[nodiscard]] double peak() const { return _peak; }
  [[nodiscard]] bool isOver() const { return _peak > 1; }
  /// dB over full scale to a tenth, as `text` has it: who shows it need not write what stays.
  [[nodiscard]] double tenths() const;
  /// "+0.2", "-7.4", in dB; "–" for silence.
  [[nodiscard]] QString text() const;
  /// dB over full scale; minus infinity for silence.
  [[nodiscard]] double decibels() const;

 private:
  double _peak = 0;
};
