// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QStringList>

#include "dialogs/DialogWindow.h"

/// The About box. `open` shows it; it deletes itself when it is closed. Interface thread.
class AboutVC : public DialogWindow {
  Q_OBJECT

 public:
  explicit AboutVC(QWidget* parent = nullptr);

  /// Shown as it is.
  void setVersionString(const QString& text) { _versionString = text; }
  [[nodiscard]] const QString& versionString() const { return _versionString; }
  /// What the program runs on, a line each.
  void setDetails(const QStringList& lines);
  /// What "Copy details" copies: the program's name and version, and the details.
  [[nodiscard]] QString report() const;

 protected:
  void viewWillAppear() override;
  void initWindowUI() override;

 private:
  void copyDetails();

  QString _versionString;
  QLabel* _version;
  QLabel* _details;
  QPushButton* _copy;
};
