// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <cstdint>
#include <memory>
#include <optional>

#include "base/Errand.h"
#include "dialogs/DialogWindow.h"
#include "dialogs/ExportFacts.h"
#include "dialogs/ExportLevels.h"
#include "dialogs/LoudnessField.h"
#include "export/Export.h"
#include "queue/ExportOrder.h"

/// Asks for the format of an export and for a place to save it; makes an order of that.
///
/// `open` shows it, window modal, without waiting. From the choice of a place on it is hidden; it
/// deletes itself then, as it does when it is cancelled. Interface thread.
class ExportVC : public DialogWindow {
  Q_OBJECT

 public:
  /// What the dialog may know besides the job.
  struct Extra {
    QString note;                                  ///< one more thing to tell; empty for none
    std::optional<FrameRange> selection;           ///< that may be exported alone
    std::shared_ptr<const TakeAnalysis> analysis;  ///< of the whole file, where somebody has it
  };

  explicit ExportVC(QWidget* parent = nullptr);

  /// The job whose file, gain, angle and folder count, as they are when the dialog is shown. The
  /// order stands without it, so it may be closed once the dialog is shown.
  void setExporter(std::shared_ptr<Export> exporter) { _exporter = std::move(exporter); }
  [[nodiscard]] const std::shared_ptr<Export>& exporter() const { return _exporter; }

  /// Before the dialog is shown.
  void setExtra(const Extra& extra);

  /// The buttons exclude each other; nothing follows from a choice but the numbers shown.
  void radio_check();
  void btnCancel_Click();
  void btnSave_Click();

 signals:
  /// The user has chosen everything; the dialog is gone from the screen.
  void ordered(const ExportOrder& order);

 protected:
  void viewDidLoad();
  void viewWillAppear() override;
  void initWindowUI() override;

 private:
  void layOut();
  QLayout* facts();
  QLayout* choices();
  QLayout* loudness();
  QLayout* buttons();
  void showFacts();
  void askForSpace();
  void askForKept();
  void measure();
  void chooseLevel(const QCheckBox* changed);
  void showLevels();
  [[nodiscard]] ExportFacts exported() const;
  [[nodiscard]] QString levelWarning() const;
  [[nodiscard]] std::optional<FrameRange> range() const;
  [[nodiscard]] std::optional<LoudnessTarget> target() const;
  [[nodiscard]] QString gainText() const;
  void save(const std::filesystem::path& path, AtomicFile::Existing existing);
  [[nodiscard]] ExportOrder order(const std::filesystem::path& path,
                                  AtomicFile::Existing existing) const;

  static constexpr int kTextWidth = 320;

  QRadioButton* _radio32;
  QRadioButton* _radio24;
  QCheckBox* _checkboxNormalize;
  QCheckBox* _checkboxLoudness;
  LoudnessField* _comboLoudness;
  QCheckBox* _checkboxSelection;
  QCheckBox* _checkboxKeep;
  QLabel* _name;
  QLabel* _width;
  QLabel* _gain;
  QLabel* _size;
  QLabel* _loudness;
  QLabel* _truePeak;
  QLabel* _clipping;
  QLabel* _note;
  QLabel* _warning;
  QPushButton* _save;
  std::shared_ptr<Export> _exporter;
  Extra _extra;
  std::unique_ptr<WaveFileReader> _reader;  ///< of its own: the job may be closed
  ExportFacts _facts;
  ExportLevels _levels;
  Errand _spaceErrand;
  Errand _keptErrand;
  std::uint64_t _kept = 0;             ///< bytes of metadata, once that is known
  std::optional<std::uint64_t> _free;  ///< bytes in the folder, once that is known
};
