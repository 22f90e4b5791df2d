// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/LoudnessField.h"

#include "controls/NumberText.h"

namespace {

constexpr double kLeastLufs = -70;

}  // namespace

LoudnessField::LoudnessField(QWidget* parent) : ChoiceField(parent) {
  setAccessibleName(tr("Loudness to aim at"));
  setEditable(true);
  setInsertPolicy(NoInsert);
  for (const int lufs : {-23, -18, -16, -14}) {
    const QString told = QString::number(lufs) + u' ' + tr("LUFS");
    addItem(NumberText::printed(told));
    setItemData(count() - 1, told, Qt::AccessibleTextRole);
  }
}

// With either minus, with either decimal sign, with or without the unit.
std::optional<double> LoudnessField::lufs() const {
  const auto lufs = NumberText::typed(currentText().remove(tr("LUFS")));
  return lufs >= kLeastLufs && lufs <= 0.0 ? lufs : std::nullopt;
}
