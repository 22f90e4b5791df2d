// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "app/CardDesk.h"
#include "app/RepairOffer.h"
#include "queue/ExportQueue.h"

/// Asks before the window ends while something is under way that would be missing then: exports, a
/// copy and a salvage, once for all of them. A folder that is being verified is no reason to ask.
/// Interface thread.
class EndQuestion : public QObject {
  Q_OBJECT

 public:
  /// What it is about; all of it outlives this.
  struct Place {
    QWidget& window;
    ExportQueue& exports;
    CardDesk& cards;
    RepairOffer& repair;
  };

  explicit EndQuestion(const Place& place, QObject* parent = nullptr);

  /// True when the window may end; a copy, a verify and a salvage are told to end then. While there
  /// is work to ask about it asks, and answers false; when the user wants the end, the exports are
  /// cancelled and `endRequested` follows.
  bool mayEnd();

 signals:
  void endRequested();

 private:
  struct Words {
    QString text;
    QString stay;
    QString end;
  };

  [[nodiscard]] bool isReasonToStay() const;
  [[nodiscard]] Words words() const;
  [[nodiscard]] Words wordsForExports() const;
  [[nodiscard]] Words wordsForCopy() const;
  [[nodiscard]] Words wordsForSalvage() const;
  void ask();
  void endAnyway();

  Place _place;
  QPointer<QMessageBox> _question;
  bool _isEnding = false;
};
