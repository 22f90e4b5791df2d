// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include "app/StatusLine.h"
#include "app/TakeSession.h"

/// Tells people what went wrong with a take: an alert for a file that is not the recorder's, until
/// another is opened, the quiet line for everything else, and for an opening that takes long.
/// Interface thread.
class TakeMessages : public QObject {
  Q_OBJECT

 public:
  /// Alerts appear over `window`. All three outlive this.
  TakeMessages(QWidget& window, StatusLine& status, TakeSession& take, QObject* parent = nullptr);

 private:
  void tell(TakeSession::Failure failure, const QString& reason);
  void forgetTake();
  void tellOpening();
  void forgetSound();
  void tellOfSound(const QString& why);

  QWidget& _window;
  StatusLine& _status;
  TakeSession& _take;
  QPointer<QMessageBox> _alert;
};
