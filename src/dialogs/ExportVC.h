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
#include "export/Export.h"
#include "queue/ExportOrder.h"

/// Asks for the format of an export and for a place to save it; makes an order of that.
///
/// `open` shows it, window modal, without waiting. From the choice of a place on it is hidden; it
/// deletes itself then, as it does when it is cancelled. Interface thread.
class ExportVC : public DialogWindow {
  Q_OBJECT

 public:
  explicit ExportVC(QWidget* parent = nullptr);

  /// The job whose file, gain, angle and folder count, as they are when the dialog is shown. The
  /// order stands without it, so it may be closed once the dialog is shown.
  void setExporter(std::shared_ptr<Export> exporter) { _exporter = std::move(exporter); }
  [[nodiscard]] const std::shared_ptr<Export>& exporter() const { return _exporter; }

  /// One more thing to know; empty for none.
  void setNote(const QString& note);

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
  QLayout* buttons();
  void showFacts();
  void askForSpace();
  void save(const std::filesystem::path& path, AtomicFile::Existing existing);
  [[nodiscard]] ExportOrder order(const std::filesystem::path& path,
                                  AtomicFile::Existing existing) const;

  static constexpr int kTextWidth = 320;

  QRadioButton* _radio32;
  QRadioButton* _radio24;
  QCheckBox* _checkboxNormalize;
  QLabel* _name;
  QLabel* _width;
  QLabel* _gain;
  QLabel* _size;
  QLabel* _note;
  QLabel* _warning;
  QPushButton* _save;
  std::shared_ptr<Export> _exporter;
  ExportFacts _facts;
  Errand _spaceErrand;
  std::optional<std::uint64_t> _free;  ///< bytes in the folder, once that is known
};
