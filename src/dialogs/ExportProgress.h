// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "dialogs/DialogWindow.h"

/// Shows how far an export is: the file, a bar, how much is done and how long it will take. Not
/// modal. Cancel, Escape and closing it all mean a cancel. Interface thread.
class ExportProgress : public DialogWindow {
  Q_OBJECT

 public:
  /// `source` and `target` are names of files.
  ExportProgress(const QString& source, const QString& target, QWidget* parent);

  /// `done` is 0 to 1, `timeLeft` a text of its own or empty.
  void update(double done, const QString& timeLeft);

  /// A cancel: the window stays, with its button greyed out, until the work has ended.
  void reject() override;

 signals:
  void cancelRequested();

 protected:
  void initWindowUI() override;

 private:
  QLabel* nameLine(const QString& text, const char* role);
  void comeQuietly();

  QProgressBar* _bar;
  QLabel* _state;
  QPushButton* _cancel;
  bool _isCancelling = false;
};
