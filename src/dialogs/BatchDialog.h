// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QPushButton>
#include <filesystem>
#include <set>
#include <vector>

#include "dialogs/BatchChecks.h"
#include "dialogs/BatchChoices.h"
#include "dialogs/DialogWindow.h"
#include "queue/ExportOrder.h"

/// Asks how several takes are to be exported, all alike, and tells before anything begins what
/// becomes of each: which ones are not exported and why, and the room they take. Makes an order of
/// each of the others.
///
/// `open` shows it, window modal, without waiting; it deletes itself when it is closed. Nothing
/// waits for the medium: what is not known yet cannot be begun. Interface thread.
class BatchDialog : public DialogWindow {
  Q_OBJECT

 public:
  /// What is to be exported.
  struct Takes {
    std::vector<std::filesystem::path> files;
    double gain = 0;                          ///< dB, of all
    double angle = 0;                         ///< degrees, of all
    std::set<std::filesystem::path> awaited;  ///< what other exports are about to write
    BatchTake::Recall recall = {};            ///< none where nothing is to be remembered
  };

  BatchDialog(Takes takes, QWidget* parent);

 signals:
  /// At least one, of which so many at once help; the dialog is gone from the screen.
  void ordered(const std::vector<ExportOrder>& orders, unsigned atOnce);

 protected:
  void initWindowUI() override;

 private:
  void layOut();
  QLayout* facts();
  QLayout* buttons();
  void choose();
  void tell();
  void showFacts();
  void showRefused();
  [[nodiscard]] int refusedLines() const;
  void addRefused(const BatchPlan::Item& item);
  [[nodiscard]] QString widthText() const;
  [[nodiscard]] QString gainText() const;
  [[nodiscard]] QString lengthText() const;
  [[nodiscard]] QString roomText() const;
  [[nodiscard]] QString warning() const;
  [[nodiscard]] QString warningOf(const BatchPlan& plan) const;
  void order();

  Takes _takes;
  BatchChoices* _choices;
  BatchChecks _checks;
  QLabel* _length;
  QLabel* _width;
  QLabel* _gain;
  QLabel* _room;
  QLabel* _refusedTitle;
  QListWidget* _refused;
  QLabel* _warning;
  QPushButton* _export;
};
