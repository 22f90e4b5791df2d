// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/SelectedExport.h"

SelectedExport::SelectedExport(const Place& place, QObject* parent)
    : QObject(parent), _place(place) {
  connect(&_place.single, &ExportDesk::queueWanted, &_place.batch, &BatchDesk::showQueue);
  connect(&_place.batch, &BatchDesk::failed, this,
          [this](const QString& why) { _place.status.say(StatusLine::Topic::Export, why); });
}

void SelectedExport::ask() {
  std::vector<std::filesystem::path> takes;
  for (const WavItem& take : _place.files.selectedTakes()) takes.emplace_back(take.fullPath);
  askFor(takes);
}

void SelectedExport::askFor(const std::vector<std::filesystem::path>& takes) {
  _place.batch.ask(takes, static_cast<double>(_place.take.gain()), _place.take.angle(),
                   _place.recall.ofTakes());
}
