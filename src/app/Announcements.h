// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "app/CardDesk.h"
#include "app/DevicePane.h"
#include "app/RepairOffer.h"
#include "app/StatusLine.h"
#include "controls/Announcer.h"
#include "dialogs/BatchDesk.h"
#include "dialogs/ExportDesk.h"

/// What the window says by itself, for who does not see it: that a recorder came or went, that an
/// export is written, what came of a batch, a copy and a verify, that a take is salvaged, and
/// whatever the status line says, which is why exports and salvages failed. Interface thread.
class Announcements : public QObject {
  Q_OBJECT

 public:
  struct Sources {
    const DevicePane& device;
    const ExportDesk& desk;
    const BatchDesk& batch;
    const CardDesk& cards;
    const RepairOffer& repair;
    const StatusLine& status;
  };

  /// All of them outlive it.
  Announcements(Announcer& announcer, const Sources& sources, QObject* parent = nullptr);

 private:
  void followExports(const Sources& sources);
  void followRepair(const RepairOffer& repair);

  Announcer& _announcer;
};
