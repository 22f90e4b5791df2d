// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/Announcements.h"

#include <filesystem>

#include "dialogs/PathText.h"

Announcements::Announcements(Announcer& announcer, const Sources& sources, QObject* parent)
    : QObject(parent) {
  connect(&sources.device, &DevicePane::connectionChanged, this, [&announcer](bool isConnected) {
    announcer.announce(isConnected ? tr("The recorder is connected.")
                                   : tr("The recorder is no longer connected."));
  });
  connect(&sources.desk, &ExportDesk::exported, this,
          [&announcer](const std::filesystem::path& path) {
            announcer.announce(tr("%1 is exported.").arg(PathText::nameOf(path)));
          });
  connect(&sources.status, &StatusLine::said, &announcer, &Announcer::announce);
}
