// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/LoudnessField.h"

namespace {

constexpr double kLeastLufs = -70;

}  // namespace

LoudnessField::LoudnessField(QWidget* parent) : QComboBox(parent) {
  setAccessibleName(tr("Loudness to aim at"));
  setEditable(true);
  setInsertPolicy(NoInsert);
  for (const int lufs : {-23, -18, -16, -14}) {
    addItem(QString::number(lufs) + u' ' + tr("LUFS"));
  }
}

// With either minus, with either decimal sign, with or without the unit.
std::optional<double> LoudnessField::lufs() const {
  QString typed = currentText();
  typed.replace(u'−', u'-').replace(u',', u'.').remove(tr("LUFS"));
  bool isNumber = false;
  const double lufs = typed.toDouble(&isNumber);
  if (!isNumber || !(lufs >= kLeastLufs && lufs <= 0)) return std::nullopt;
  return lufs;
}
