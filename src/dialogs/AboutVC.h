// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

#include "dialogs/DialogWindow.h"

/// The About box. `open` shows it; it deletes itself when it is closed. Interface thread.
class AboutVC : public DialogWindow {
  Q_OBJECT

 public:
  explicit AboutVC(QWidget* parent = nullptr);

  /// Shown as it is.
  void setVersionString(const QString& text) { _versionString = text; }
  [[nodiscard]] const QString& versionString() const { return _versionString; }

 protected:
  void viewWillAppear() override;
  void initWindowUI() override;

 private:
  QString _versionString;
  QLabel* _version;
};
