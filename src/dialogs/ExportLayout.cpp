// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QButtonGroup>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/Appearance.h"
#include "dialogs/ExportVC.h"

namespace {

constexpr int kUnderWarning = 8;  // more than what stands between other lines

}  // namespace

void ExportVC::layOut() {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargins);
  column->setSpacing(8);
  _name = label({}, "title");
  column->addWidget(_name);
  column->addLayout(facts());
  column->addSpacing(8);
  column->addWidget(label(tr("Format"), "heading"));
  column->addLayout(choices());
  column->addSpacing(4);
  _note = label({}, "dim");
  _note->hide();
  column->addWidget(_note);
  _clipping = label({}, "warning");
  _clipping->setObjectName(QStringLiteral("clipping"));
  _clipping->setContentsMargins(0, 0, 0, kUnderWarning);
  column->addWidget(_clipping);
  _warning = label({}, "warning");
  _warning->setContentsMargins(0, 0, 0, kUnderWarning);
  column->addWidget(_warning);
  column->addLayout(buttons());
  setMinimumWidth(Appearance::lineWidth(kTextWidth, font()) + kMarginsAcross);
}

QLayout* ExportVC::facts() {
  auto* const form = new QFormLayout;
  form->setHorizontalSpacing(24);
  form->setVerticalSpacing(4);
  const auto addFact = [this, form](const QString& name) {
    QLabel* const caption = label(name, "dim");
    QLabel* const value = label({});
    caption->setBuddy(value);
    form->addRow(caption, value);
    return value;
  };
  _width = addFact(tr("Stereo width"));
  _gain = addFact(tr("Gain"));
  _size = addFact(tr("File size"));
  _loudness = addFact(tr("Loudness"));
  _truePeak = addFact(tr("True peak"));
  return form;
}

QLayout* ExportVC::choices() {
  _radio24 = new QRadioButton(this);
  _radio32 = new QRadioButton(this);
  _checkboxNormalize = new QCheckBox(tr("Normalize to full scale"), this);
  _radio24->setObjectName(QStringLiteral("radio24"));
  _radio32->setObjectName(QStringLiteral("radio32"));
  _checkboxNormalize->setObjectName(QStringLiteral("checkboxNormalize"));
  connect(_radio24, &QRadioButton::toggled, this, &ExportVC::radio_check);
  connect(_checkboxNormalize, &QCheckBox::toggled, this,
          [this] { chooseLevel(_checkboxNormalize); });
  auto* const column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(_radio24, 0, Qt::AlignLeft);
  column->addWidget(_radio32, 0, Qt::AlignLeft);
  column->addSpacing(6);
  column->addWidget(_checkboxNormalize, 0, Qt::AlignLeft);
  column->addLayout(loudness());
  _checkboxSelection = new QCheckBox(tr("Selection only"), this);
  _checkboxSelection->setObjectName(QStringLiteral("checkboxSelection"));
  _checkboxSelection->hide();
  _checkboxKeep = new QCheckBox(tr("Keep recording time and markers"), this);
  _checkboxKeep->setObjectName(QStringLiteral("checkboxKeep"));
  connect(_checkboxSelection, &QCheckBox::toggled, this, &ExportVC::measure);
  for (const QCheckBox* const box : {_checkboxSelection, _checkboxKeep}) {
    connect(box, &QCheckBox::toggled, this, &ExportVC::askForKept);
    connect(box, &QCheckBox::toggled, this, &ExportVC::showFacts);
  }
  column->addSpacing(6);
  column->addWidget(_checkboxSelection, 0, Qt::AlignLeft);
  column->addWidget(_checkboxKeep, 0, Qt::AlignLeft);
  return column;
}

QLayout* ExportVC::loudness() {
  _checkboxLoudness = new QCheckBox(tr("To a loudness"), this);
  _checkboxLoudness->setObjectName(QStringLiteral("checkboxLoudness"));
  _comboLoudness = new LoudnessField(this);
  _comboLoudness->setObjectName(QStringLiteral("comboLoudness"));
  _comboLoudness->setEnabled(false);
  connect(_checkboxLoudness, &QCheckBox::toggled, _comboLoudness, &QWidget::setEnabled);
  connect(_checkboxLoudness, &QCheckBox::toggled, this, [this] { chooseLevel(_checkboxLoudness); });
  connect(_comboLoudness, &QComboBox::editTextChanged, this, &ExportVC::showFacts);
  auto* const row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(_checkboxLoudness);
  row->addWidget(_comboLoudness);
  row->addStretch();
  return row;
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
