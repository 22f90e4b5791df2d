// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportVC.h"

#include <QFile>
#include <utility>

#include "base/EB.h"
#include "base/Log.h"
#include "dialogs/Alert.h"
#include "dialogs/SavePanel.h"

namespace {

ExportVC* running = nullptr;  // the one whose export is under way

std::filesystem::path pathOf(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

// What went wrong, as the jobs tell it, ends without a full stop.
QString sentence(const std::string& text) {
  return QString::fromStdString(text) + QStringLiteral(".");
}

}  // namespace

ExportVC::ExportVC(QWidget* parent) : DialogWindow(parent) {
  layOut();
  viewDidLoad();
  connect(this, &QDialog::rejected, this, &QObject::deleteLater);
}

ExportVC::~ExportVC() {
  if (running == this) running = nullptr;
}

void ExportVC::viewDidLoad() {
  _radio32->setText(tr("32-bit Float"));
  _radio24->setText(tr("24-bit Linear"));
  _radio24->setChecked(true);
}

void ExportVC::open() {
  if (!isExporting()) {
    DialogWindow::open();
    return;
  }
  running->_run->raiseProgress();
  deleteLater();
}

bool ExportVC::isExporting() {
  return running != nullptr;
}

void ExportVC::cancelRunning() {
  if (isExporting()) running->_run->cancel();
}

void ExportVC::viewWillAppear() {
  _facts = _exporter ? ExportFacts(*_exporter) : ExportFacts();
  _save->setEnabled(_facts.isValid);
  showFacts();
  initWindowUI();
}

void ExportVC::initWindowUI() {
  DialogWindow::initWindowUI(tr("Export"));
}

void ExportVC::radio_check() {
  showFacts();
}

void ExportVC::showFacts() {
  showName(*_name, QFile::decodeName(_facts.source.filename().c_str()), kTextWidth);
  _width->setText(_facts.widthText());
  _gain->setText(_facts.gainText(_checkboxNormalize->isChecked()));
  _size->setText(_facts.sizeText(_radio24->isChecked()));
  _warning->setText(_facts.warning(_radio24->isChecked()));
  _warning->setHidden(_warning->text().isEmpty());
  fixSize();
}

void ExportVC::btnCancel_Click() {
  reject();
}

void ExportVC::btnSave_Click() {
  auto* const panel = new SavePanel(QFile::decodeName(_facts.folder.c_str()), _facts.proposedName(),
                                    _facts.source, this);
  connect(panel, &SavePanel::chosen, this, &ExportVC::save);
  panel->open();
}

void ExportVC::save(const QString& path, AtomicFile::Existing existing) {
  const ExportOrder order = this->order(path, existing);
  hide();
  if (_exporter->isSource(order.target)) {
    EB::FIRE(EB::kReloadFileList);
    refuse(tr("Fail to open."), tr("The target is the source itself."));
    return;
  }
  if (order.is24bit) Log::line("24 bit is = ON");
  if (order.isNormalized) Log::line("Normalize is = ON");
  start(order);
}

ExportOrder ExportVC::order(const QString& path, AtomicFile::Existing existing) const {
  return {.source = _facts.source,
          .target = pathOf(path),
          .gain = _facts.gain,
          .angle = _facts.angle,
          .is24bit = _radio24->isChecked(),
          .isNormalized = _checkboxNormalize->isChecked(),
          .existing = existing};
}

void ExportVC::start(const ExportOrder& order) {
  running = this;
  _run = std::make_unique<ExportRun>(order, parentFrame(), parentWidget());
  connect(_run.get(), &ExportRun::finished, this, [this, target = order.target] {
    running = nullptr;
    finish(QFile::decodeName(target.c_str()));
  });
}

void ExportVC::finish(const QString& path) {
  EB::FIRE(EB::kReloadFileList);
  const ExportWorker& worker = _run->worker();
  if (worker.isWritten()) {
    emit exported(path);
  } else if (!worker.wasCancelled()) {
    refuse(tr("Fail to save."), sentence(worker.failure()));
  }
  deleteLater();
}

void ExportVC::refuse(const QString& alert, const QString& why) {
  emit failed(why);
  Alert::show(parentWidget(), alert);
  deleteLater();
}
