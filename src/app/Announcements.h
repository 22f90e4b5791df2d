// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "app/DevicePane.h"
#include "app/StatusLine.h"
#include "controls/Announcer.h"
#include "dialogs/ExportDesk.h"

/// What the window says by itself, for who does not see it: that a recorder came or went, that an
/// export is written, and whatever the status line says. Interface thread.
class Announcements : public QObject {
  Q_OBJECT

 public:
  struct Sources {
    const DevicePane& device;
    const ExportDesk& desk;
    const StatusLine& status;
  };

  /// All of them outlive it.
  Announcements(Announcer& announcer, const Sources& sources, QObject* parent = nullptr);
};
