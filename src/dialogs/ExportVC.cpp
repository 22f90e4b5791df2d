// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportVC.h"

#include <QStyle>
#include <utility>

#include "controls/Appearance.h"
#include "controls/NumberText.h"
#include "dialogs/PathText.h"
#include "dialogs/SavePanel.h"

ExportVC::ExportVC(QWidget* parent) : DialogWindow(parent) {
  layOut();
  connect(&_levels, &ExportLevels::changed, this, &ExportVC::showLevels);
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
  _reader.reset();
  if (_facts.isValid) _reader = std::make_unique<WaveFileReader>(_exporter->reader()->apart());
  showFacts();
  askForSpace();
  measure();
  initWindowUI();
}

void ExportVC::setExtra(const Extra& extra) {
  _extra = extra;
  _note->setText(extra.note);
  _note->setHidden(extra.note.isEmpty());
  _checkboxSelection->setHidden(!extra.selection);
}

std::optional<FrameRange> ExportVC::range() const {
  return _checkboxSelection->isChecked() ? _extra.selection : std::nullopt;
}

std::optional<LoudnessTarget> ExportVC::target() const {
  const std::optional<double> lufs = _comboLoudness->lufs();
  if (!_checkboxLoudness->isChecked() || !lufs) return std::nullopt;
  LoudnessTarget target;
  target.lufs = *lufs;
  return target;
}

// Why there can be no export to the loudness that is wanted; empty where there can.
QString ExportVC::levelWarning() const {
  if (!_checkboxLoudness->isChecked()) return {};
  if (!_comboLoudness->lufs()) return tr("A loudness is a number from −70 to 0.");
  if (_levels.hasFailed()) return tr("The take cannot be read, so its loudness is not known.");
  const bool isSilent = _levels.analysis() && !_levels.gain();
  return isSilent ? tr("Silence, and what is shorter than 0.4 s, has no loudness.") : QString();
}

ExportFacts ExportVC::exported() const {
  const ExportFacts facts = range() ? _facts.only(*range()) : _facts;
  return facts.with(_checkboxKeep->isChecked() ? _kept : 0);
}

void ExportVC::measure() {
  if (_reader) _levels.measure(*_reader, range(), _extra.analysis);
}

// One level or the other.
void ExportVC::chooseLevel(const QCheckBox* changed) {
  QCheckBox* const other = changed == _checkboxNormalize ? _checkboxLoudness : _checkboxNormalize;
  if (changed->isChecked()) other->setChecked(false);
  showFacts();
}

QString ExportVC::gainText() const {
  if (!_checkboxLoudness->isChecked()) return _facts.gainText(_checkboxNormalize->isChecked());
  if (!levelWarning().isEmpty()) return QStringLiteral("–");
  const auto gain = _levels.gain();
  if (!gain) return QStringLiteral("…");
  return tr("%1 dB").arg((*gain > 0 ? QStringLiteral("+") : QString()) + NumberText::of(*gain, 1));
}

void ExportVC::showLevels() {
  const QString wrong = levelWarning();
  const QString warning =
      wrong.isEmpty() ? exported().warning(_radio24->isChecked(), _free) : wrong;
  const bool isAimed = wrong.isEmpty();
  showFigure(*_gain, gainText());
  showFigure(*_loudness, isAimed ? _levels.loudnessText() : QStringLiteral("–"));
  showFigure(*_truePeak, isAimed ? _levels.truePeakText() : QStringLiteral("–"));
  _clipping->setText(isAimed ? _levels.clippingText() : QString());
  _clipping->setProperty("role", _radio24->isChecked() ? "warning" : "dim");
  _clipping->style()->polish(_clipping);
  _clipping->setHidden(_clipping->text().isEmpty());
  _warning->setText(warning);
  _warning->setHidden(warning.isEmpty());
  _save->setEnabled(_facts.isValid && isAimed);
  fixSize();
}

void ExportVC::askForSpace() {
  _spaceErrand.begin([this, folder = _facts.folder] {
    return [this, free = ExportFacts::freeIn(folder)] {
      _free = free;
      showFacts();
    };
  });
}

void ExportVC::askForKept() {
  _keptErrand.giveUp();
  if (!_checkboxKeep->isChecked()) return;
  _keptErrand.begin([this, source = _facts.source, range = range()] {
    Export job(source);
    if (job.IsFileValid()) job.setRange(range);
    return [this, kept = job.keptBytes()] {
      _kept = kept;
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
  showName(*_name, PathText::nameOf(_facts.source), Appearance::lineWidth(kTextWidth, font()));
  _width->setText(_facts.widthText());
  _size->setText(exported().sizeText(_radio24->isChecked()));
  _levels.aim({_checkboxNormalize->isChecked(), target(), _facts.gain,
               WaveFileReader::wholeAngle(_facts.angle)});
  showLevels();
}

void ExportVC::btnCancel_Click() {
  reject();
}

void ExportVC::btnSave_Click() {
  const auto proposal = range() ? _facts.selectionProposal() : _facts.proposal();
  auto* const panel = new SavePanel(proposal, _facts.source, this);
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
          .existing = existing,
          .loudness = target(),
          .range = range(),
          .analysis = _levels.analysis(),
          .keepsMetadata = _checkboxKeep->isChecked()};
}
