// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <atomic>
#include <filesystem>
#include <memory>

#include "app/FolderBrowser.h"
#include "app/StatusLine.h"
#include "app/TakeSession.h"
#include "base/Errand.h"
#include "base/LatestErrand.h"

class QMessageBox;
struct TakeDiagnosis;

/// Offers to salvage a take whose recording broke off, once it was opened or refused: into a new
/// file beside it, which is then selected. The take itself is only read. Looked at and salvaged on
/// a thread of its own. Interface thread, which has an event loop.
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
  /// Gives up what is being salvaged; nothing of it remains.
  ~RepairOffer() override;

  /// Looks whether the take broke off, and offers to salvage it if so.
  void look(const std::filesystem::path& take);

 signals:
  /// It is known whether there is something to offer, or cannot be.
  void looked();
  /// Saving has ended, well or not.
  void ended();

 private:
  void offer(const std::filesystem::path& take, const TakeDiagnosis& diagnosis);
  void salvage(const std::filesystem::path& take);
  void end(const std::filesystem::path& target, const QString& failure);

  QWidget& _window;
  StatusLine& _status;
  TakeSession& _take;
  FolderBrowser& _browser;
  QPointer<QMessageBox> _question;
  LatestErrand _look;
  Errand _salvage;
  std::shared_ptr<std::atomic<bool>> _cancel =
      std::make_shared<std::atomic<bool>>(false);  ///< that
};
