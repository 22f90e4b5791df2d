// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/Announcements.h"

#include <filesystem>

#include "dialogs/PathText.h"

Announcements::Announcements(Announcer& announcer, const Sources& sources, QObject* parent)
    : QObject(parent), _announcer(announcer) {
  connect(&sources.device, &DevicePane::connectionChanged, this, [this](bool isConnected) {
    _announcer.announce(isConnected ? tr("The recorder is connected.")
                                    : tr("The recorder is no longer connected."));
  });
  followExports(sources);
  connect(&sources.cards, &CardDesk::ended, &announcer, &Announcer::announce);
  connect(&sources.status, &StatusLine::said, &announcer, &Announcer::announce);
}

// A batch of which all was cancelled needs no word, as a single export does not.
void Announcements::followExports(const Sources& sources) {
  connect(&sources.desk, &ExportDesk::exported, this, [this](const std::filesystem::path& path) {
    _announcer.announce(tr("%1 is exported.").arg(PathText::nameOf(path)));
  });
  connect(&sources.batch, &BatchDesk::ended, this, [this](int written, int failed) {
    if (failed > 0) {
      _announcer.announce(tr("%1 of %2 takes are exported.").arg(written).arg(written + failed));
    } else if (written > 0) {
      _announcer.announce(tr("%n takes are exported.", nullptr, written));
    }
  });
}
