// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportVC.h"

#include <QFile>
#include <utility>

#include "controls/Appearance.h"
#include "dialogs/SavePanel.h"

ExportVC::ExportVC(QWidget* parent) : DialogWindow(parent) {
  layOut();
  viewDidLoad();
  connect(this, &QDialog::finished, this, &QObject::deleteLater);
}

void ExportVC::viewDidLoad() {
  _radio32->setText(tr("32-bit Float"));
  _radio24->setText(tr("24-bit Linear"));
  _radio24->setChecked(true);
}

void ExportVC::viewWillAppear() {
  _facts = _exporter ? ExportFacts(*_exporter) : ExportFacts();
  _save->setEnabled(_facts.isValid);
  showFacts();
  askForSpace();
  initWindowUI();
}

void ExportVC::setNote(const QString& note) {
  _note->setText(note);
  _note->setHidden(note.isEmpty());
}

void ExportVC::askForSpace() {
  _spaceErrand.begin([this, folder = _facts.folder] {
    return [this, free = ExportFacts::freeIn(folder)] {
      _free = free;
      showFacts();
    };
  });
}

void ExportVC::initWindowUI() {
  DialogWindow::initWindowUI(tr("Export"));
}

void ExportVC::radio_check() {
  showFacts();
}

void ExportVC::showFacts() {
  showName(*_name, QFile::decodeName(_facts.source.filename().c_str()),
           Appearance::lineWidth(kTextWidth, font()));
  _width->setText(_facts.widthText());
  _gain->setText(_facts.gainText(_checkboxNormalize->isChecked()));
  _size->setText(_facts.sizeText(_radio24->isChecked()));
  _warning->setText(_facts.warning(_radio24->isChecked(), _free));
  _warning->setHidden(_warning->text().isEmpty());
  fixSize();
}

void ExportVC::btnCancel_Click() {
  reject();
}

void ExportVC::btnSave_Click() {
  auto* const panel = new SavePanel(_facts.proposal(), _facts.source, this);
  connect(panel, &SavePanel::chosen, this, &ExportVC::save);
  panel->open();
}

void ExportVC::save(const std::filesystem::path& path, AtomicFile::Existing existing) {
  const ExportOrder order = this->order(path, existing);
  accept();
  emit ordered(order);
}

ExportOrder ExportVC::order(const std::filesystem::path& path,
                            AtomicFile::Existing existing) const {
  return {.source = _facts.source,
          .target = path,
          .gain = _facts.gain,
          .angle = _facts.angle,
          .is24bit = _radio24->isChecked(),
          .isNormalized = _checkboxNormalize->isChecked(),
          .existing = existing};
}
