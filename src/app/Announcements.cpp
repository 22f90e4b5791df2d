// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/Announcements.h"

#include <QFile>
#include <filesystem>

Announcements::Announcements(Announcer& announcer, const Sources& sources, QObject* parent)
    : QObject(parent) {
  connect(&sources.device, &DevicePane::connectionChanged, this, [&announcer](bool isConnected) {
    announcer.announce(isConnected ? tr("The recorder is connected.")
                                   : tr("The recorder is no longer connected."));
  });
  connect(&sources.desk, &ExportDesk::exported, this,
          [&announcer](const std::filesystem::path& path) {
            const QString name = QFile::decodeName(path.filename().c_str());
            announcer.announce(tr("%1 is exported.").arg(name));
          });
  connect(&sources.status, &StatusLine::said, &announcer, &Announcer::announce);
}
