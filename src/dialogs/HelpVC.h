// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>
#include <QLayout>
#include <QString>
#include <vector>

#include "dialogs/DialogWindow.h"

/// A page of what keys and pointer do, which needs no network. Deletes itself when it is closed.
/// Interface thread.
class HelpVC : public DialogWindow {
  Q_OBJECT

 public:
  /// A key, or what the pointer does, and what comes of it; both in words for people.
  struct Line {
    QString key;
    QString what;
  };

  /// Shows these keys; what the pointer does it knows itself.
  HelpVC(const std::vector<Line>& keys, QWidget* parent);

 protected:
  void initWindowUI() override;

 private:
  QLayout* page(const QString& heading, const std::vector<Line>& lines, int width);

  QBoxLayout* _sides;
};
