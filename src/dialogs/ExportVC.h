// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <memory>

#include "dialogs/DialogWindow.h"
#include "dialogs/ExportFacts.h"
#include "dialogs/ExportRun.h"
#include "export/Export.h"

/// Asks for the format of an export, asks where to save it, and exports in the background.
///
/// `open` shows it, window modal, without waiting. From the choice of a place on it is hidden and
/// lives until the export has ended; then it fires "EB_RELOAD_FILE_LIST", shows the alert where the
/// export failed, and deletes itself, as it does when it is cancelled. Where it is deleted before,
/// as with its parent, the export is cancelled. One export runs at a time. Interface thread.
class ExportVC : public DialogWindow {
  Q_OBJECT

 public:
  explicit ExportVC(QWidget* parent = nullptr);
  ~ExportVC() override;

  /// The job whose file, gain, angle and folder count, as they are when the dialog is shown. It is
  /// not used by the export itself and may be closed once the dialog is shown.
  void setExporter(std::shared_ptr<Export> exporter) { _exporter = std::move(exporter); }
  [[nodiscard]] const std::shared_ptr<Export>& exporter() const { return _exporter; }

  /// Whether an export is under way, in the process.
  static bool isExporting();
  /// Asks the export that is under way to stop; it ends as a cancelled one does.
  static void cancelRunning();

  /// Shows the dialog; while an export runs, shows that one's progress instead and goes.
  void open() override;

  /// The buttons exclude each other; nothing follows from a choice but the numbers shown.
  void radio_check();
  void btnCancel_Click();
  void btnSave_Click();

 signals:
  /// An export has been written to `path`, and the list was told.
  void exported(const QString& path);
  /// An export could not be written; `why` is a sentence for the window's quiet line.
  void failed(const QString& why);

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
  void save(const QString& path, AtomicFile::Existing existing);
  void start(const ExportOrder& order);
  void finish(const QString& path);
  void refuse(const QString& alert, const QString& why);
  [[nodiscard]] ExportOrder order(const QString& path, AtomicFile::Existing existing) const;

  static constexpr int kTextWidth = 320;

  QRadioButton* _radio32;
  QRadioButton* _radio24;
  QCheckBox* _checkboxNormalize;
  QLabel* _name;
  QLabel* _width;
  QLabel* _gain;
  QLabel* _size;
  QLabel* _warning;
  QPushButton* _save;
  std::shared_ptr<Export> _exporter;
  ExportFacts _facts;
  std::unique_ptr<ExportRun> _run;
};
