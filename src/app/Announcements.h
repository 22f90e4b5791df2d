// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "app/CardDesk.h"
#include "app/DevicePane.h"
#include "app/StatusLine.h"
#include "controls/Announcer.h"
#include "dialogs/BatchDesk.h"
#include "dialogs/ExportDesk.h"

/// What the window says by itself, for who does not see it: that a recorder came or went, that an
/// export is written, what came of a batch, a copy and a verify, and whatever the status line says,
/// which is what came of a salvage and why exports failed. Interface thread.
class Announcements : public QObject {
  Q_OBJECT

 public:
  struct Sources {
    const DevicePane& device;
    const ExportDesk& desk;
    const BatchDesk& batch;
    const CardDesk& cards;
    const StatusLine& status;
  };

  /// All of them outlive it.
  Announcements(Announcer& announcer, const Sources& sources, QObject* parent = nullptr);

 private:
  void followExports(const Sources& sources);

  Announcer& _announcer;
};
