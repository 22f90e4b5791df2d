// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "dialogs/ChoiceField.h"

/// A loudness to bring takes to: one of the usual ones, or a number from -70 to 0, typed with or
/// without the unit. Interface thread.
class LoudnessField : public ChoiceField {
  Q_OBJECT

 public:
  explicit LoudnessField(QWidget* parent = nullptr);

  /// LUFS; none where what is typed is no such number.
  [[nodiscard]] std::optional<double> lufs() const;
};
