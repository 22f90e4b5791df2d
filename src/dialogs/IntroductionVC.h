// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

#include "dialogs/DialogWindow.h"

/// Explains the program in a few lines. `open` shows it; it deletes itself when it is closed.
/// Interface thread.
class IntroductionVC : public DialogWindow {
  Q_OBJECT

 public:
  explicit IntroductionVC(QWidget* parent = nullptr);

  /// Opened by the user: no box to tick, and nothing is stored.
  void setFromMenu(bool isFromMenu) { _fromMenu = isFromMenu; }
  [[nodiscard]] bool fromMenu() const { return _fromMenu; }
  /// What a ticked box stores: the version that need not be introduced again.
  void setVersionString(const QString& text) { _versionString = text; }
  [[nodiscard]] const QString& versionString() const { return _versionString; }

  void btnOK_Click();

 protected:
  void viewWillAppear() override;
  void initWindowUI() override;

 private:
  QCheckBox* _toggleShow;
  bool _fromMenu = false;
  QString _versionString;
};
