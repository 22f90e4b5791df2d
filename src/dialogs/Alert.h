// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QString>

/// The program's alerts: no icon, an empty message, one sentence and the button "Ok". Questions
/// look alike. Interface thread.
class Alert {
 public:
  /// Shows the alert over `parent` and returns at once; it deletes itself when it is closed.
  static QMessageBox* show(QWidget* parent, const QString& informativeText);
  /// The same with no button yet and not shown: who asks adds the answers, and opens it.
  static QMessageBox* question(QWidget* parent, const QString& informativeText);
};
