// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/BatchChoices.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <array>
#include <cstddef>

namespace {

constexpr int kUnderHeading = 6;  // more than between other lines

}  // namespace

BatchChoices::BatchChoices(QWidget* parent) : QWidget(parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  column->addWidget(heading(tr("Format")));
  column->addSpacing(kUnderHeading);
  column->addLayout(formats());
  column->addSpacing(4);
  column->addLayout(levels());
  column->addSpacing(8);
  column->addWidget(heading(tr("Place")));
  column->addSpacing(kUnderHeading);
  column->addLayout(places());
  column->addSpacing(8);
  column->addLayout(existing());
}

QLabel* BatchChoices::heading(const QString& text) {
  auto* const made = new QLabel(text, this);
  made->setProperty("role", "heading");
  return made;
}

QLayout* BatchChoices::formats() {
  _radio24 = new QRadioButton(tr("24-bit Linear"), this);
  _radio32 = new QRadioButton(tr("32-bit Float"), this);
  _radio24->setObjectName(QStringLiteral("radio24"));
  _radio32->setObjectName(QStringLiteral("radio32"));
  auto* const group = new QButtonGroup(this);
  group->addButton(_radio24);
  group->addButton(_radio32);
  _radio24->setChecked(true);
  connect(_radio24, &QRadioButton::toggled, this, &BatchChoices::changed);
  auto* const column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(_radio24, 0, Qt::AlignLeft);
  column->addWidget(_radio32, 0, Qt::AlignLeft);
  return column;
}

QLayout* BatchChoices::levels() {
  _remembered = new QCheckBox(tr("Each at its remembered width and gain"), this);
  _remembered->setObjectName(QStringLiteral("remembered"));
  _remembered->hide();
  connect(_remembered, &QCheckBox::toggled, this, &BatchChoices::changed);
  _normalize = new QCheckBox(tr("Normalize each to full scale"), this);
  _toLoudness = new QCheckBox(tr("Each to a loudness"), this);
  _loudness = new LoudnessField(this);
  _normalize->setObjectName(QStringLiteral("normalize"));
  _toLoudness->setObjectName(QStringLiteral("toLoudness"));
  _loudness->setEnabled(false);
  _keepMetadata = new QCheckBox(tr("Keep recording time and markers"), this);
  _keepMetadata->setObjectName(QStringLiteral("keepMetadata"));
  connect(_keepMetadata, &QCheckBox::toggled, this, &BatchChoices::changed);
  connect(_normalize, &QCheckBox::toggled, this, [this] { chooseLevel(_normalize); });
  connect(_toLoudness, &QCheckBox::toggled, this, [this] { chooseLevel(_toLoudness); });
  connect(_loudness, &QComboBox::editTextChanged, this, &BatchChoices::changed);
  auto* const row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(_toLoudness);
  row->addWidget(_loudness);
  row->addStretch();
  auto* const column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(_remembered, 0, Qt::AlignLeft);
  column->addWidget(_normalize, 0, Qt::AlignLeft);
  column->addLayout(row);
  column->addWidget(_keepMetadata, 0, Qt::AlignLeft);
  return column;
}

// One level or the other.
void BatchChoices::chooseLevel(const QCheckBox* changedOne) {
  QCheckBox* const other = changedOne == _normalize ? _toLoudness : _normalize;
  if (changedOne->isChecked()) other->setChecked(false);
  _loudness->setEnabled(_toLoudness->isChecked());
  emit changed();
}

QLayout* BatchChoices::places() {
  _beside = new QRadioButton(tr("Beside each take"), this);
  _into = new QRadioButton(tr("Into a folder"), this);
  _folder = new FolderButton(tr("Folder for the exports"), this);
  _beside->setObjectName(QStringLiteral("beside"));
  _into->setObjectName(QStringLiteral("intoFolder"));
  _folder->setObjectName(QStringLiteral("folder"));
  auto* const group = new QButtonGroup(this);
  group->addButton(_beside);
  group->addButton(_into);
  _beside->setChecked(true);
  connect(_into, &QRadioButton::toggled, this, &BatchChoices::choosePlace);
  connect(_folder, &FolderButton::chosen, this, &BatchChoices::takeFolder);
  auto* const row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(_into);
  row->addWidget(_folder);
  row->addStretch();
  auto* const column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(_beside, 0, Qt::AlignLeft);
  column->addLayout(row);
  return column;
}

QLayout* BatchChoices::existing() {
  auto* const caption = new QLabel(tr("Where an export exists"), this);
  _existing = new ChoiceField(this);
  _existing->setObjectName(QStringLiteral("existing"));
  _existing->addItem(tr("Skip the take"));
  _existing->addItem(tr("Replace it"));
  _existing->addItem(tr("Number the new one"));
  _existing->setAccessibleName(caption->text());
  caption->setBuddy(_existing);
  connect(_existing, &QComboBox::currentIndexChanged, this, &BatchChoices::changed);
  auto* const row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(caption);
  row->addWidget(_existing);
  row->addStretch();
  return row;
}

void BatchChoices::offerRemembered() {
  _remembered->show();
}

void BatchChoices::choosePlace() {
  if (_into->isChecked() && _folder->folder().empty()) _folder->ask();
  emit changed();
}

void BatchChoices::takeFolder() {
  _into->setChecked(true);
  emit changed();
}

bool BatchChoices::isWhole() const {
  const bool hasPlace = _beside->isChecked() || !_folder->folder().empty();
  return hasPlace && (!isToLoudness() || lufs());
}

void BatchChoices::putInto(BatchWish& wish) const {
  using Existing = BatchWish::Existing;
  wish.folder = _into->isChecked() ? _folder->folder() : std::filesystem::path();
  wish.existing = std::array{Existing::Skip, Existing::Replace,
                             Existing::Number}[static_cast<std::size_t>(_existing->currentIndex())];
  wish.isAsRemembered = isAsRemembered();
  wish.how.is24bit = _radio24->isChecked();
  wish.how.keepsMetadata = _keepMetadata->isChecked();
  wish.how.isNormalized = isNormalized();
  wish.how.loudness.reset();
  if (!isToLoudness() || !lufs()) return;
  wish.how.loudness.emplace();
  wish.how.loudness->lufs = *lufs();
}
