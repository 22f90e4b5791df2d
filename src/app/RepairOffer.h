// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <filesystem>

#include "app/FolderBrowser.h"
#include "app/StatusLine.h"
#include "app/TakeSession.h"
#include "base/LatestErrand.h"
#include "dialogs/TransferJob.h"

class QMessageBox;
struct TakeDiagnosis;

/// Offers to salvage a take whose recording broke off, once it was opened or refused: into a new
/// file beside it, which is then selected, and told by the status line until the next take is
/// opened. The take itself is only read. Looked at and salvaged on a thread of its own, one take at
/// a time; what is being salvaged ends with this, as a `TransferJob` does. Interface thread, which
/// has an event loop.
class RepairOffer : public QObject {
  Q_OBJECT

 public:
  /// What it works on; all of it outlives this.
  struct Place {
    QWidget& window;
    StatusLine& status;
    TakeSession& take;
    FolderBrowser& browser;
  };

  explicit RepairOffer(const Place& place, QObject* parent = nullptr);

  /// Looks whether the take broke off, and offers to salvage it if so.
  void look(const std::filesystem::path& take);
  [[nodiscard]] bool isSalvaging() const { return _salvage.isUnderWay(); }
  /// Tells what is being salvaged to end, and waits for nothing.
  void cancel() { _salvage.cancel(); }
  /// What is being done, a sentence for people.
  [[nodiscard]] QString salvageText() const;

 signals:
  /// It is known whether there is something to offer, or cannot be.
  void looked();
  void began();
  /// Saving has ended, well or not.
  void ended();

 private:
  void offer(const std::filesystem::path& take, const TakeDiagnosis& diagnosis);
  void salvage(const std::filesystem::path& take);
  void end(const TransferJob::End& how);

  QWidget& _window;
  StatusLine& _status;
  TakeSession& _take;
  FolderBrowser& _browser;
  QPointer<QMessageBox> _question;
  LatestErrand _look;
  std::filesystem::path _salvaged;  ///< the take
  TransferJob _salvage;
};
