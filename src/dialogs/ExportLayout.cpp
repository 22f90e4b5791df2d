// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QButtonGroup>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "dialogs/ExportVC.h"

namespace {

constexpr int kWidth = 380;

}  // namespace

void ExportVC::layOut() {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(28, 24, 28, 20);
  column->setSpacing(8);
  _name = label({}, "title");
  column->addWidget(_name);
  column->addLayout(facts());
  column->addSpacing(8);
  column->addWidget(label(tr("Format"), "heading"));
  column->addLayout(choices());
  column->addSpacing(4);
  _warning = label({}, "warning");
  column->addWidget(_warning);
  column->addLayout(buttons());
  setMinimumWidth(kWidth);
}

QLayout* ExportVC::facts() {
  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(24);
  form->setVerticalSpacing(4);
  form->addRow(label(tr("Stereo width"), "dim"), _width = label({}));
  form->addRow(label(tr("Gain"), "dim"), _gain = label({}));
  form->addRow(label(tr("File size"), "dim"), _size = label({}));
  return form;
}

QLayout* ExportVC::choices() {
  _radio24 = new QRadioButton(this);
  _radio32 = new QRadioButton(this);
  _checkboxNormalize = new QCheckBox(tr("Normalize to full scale"), this);
  connect(_radio24, &QRadioButton::toggled, this, &ExportVC::radio_check);
  connect(_checkboxNormalize, &QCheckBox::toggled, this, &ExportVC::showFacts);
  auto* const column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(_radio24, 0, Qt::AlignLeft);
  column->addWidget(_radio32, 0, Qt::AlignLeft);
  column->addSpacing(6);
  column->addWidget(_checkboxNormalize, 0, Qt::AlignLeft);
  return column;
}

QLayout* ExportVC::buttons() {
  auto* const cancel = new QPushButton(tr("Cancel"), this);
  cancel->setAutoDefault(false);
  connect(cancel, &QPushButton::clicked, this, &ExportVC::btnCancel_Click);
  _save = new QPushButton(tr("Save"), this);
  _save->setProperty("primary", true);
  _save->setDefault(true);
  connect(_save, &QPushButton::clicked, this, &ExportVC::btnSave_Click);
  auto* const row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(cancel);
  row->addWidget(_save);
  return row;
}
