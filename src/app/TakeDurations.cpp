// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeDurations.h"

#include <filesystem>
#include <system_error>

#include "wav/WaveFileReader.h"

TakeDurations::TakeDurations(QObject* parent) : QObject(parent) {}

double TakeDurations::secondsOf(const std::string& path, Cache& cache) {
  std::error_code error;
  Kept now;
  now.size = std::filesystem::file_size(path, error);
  now.changed = std::filesystem::last_write_time(path, error).time_since_epoch().count();
  if (error) return 0;
  Kept& kept = cache[path];
  if (kept.size == now.size && kept.changed == now.changed) return kept.seconds;
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(path, whyNot);
  now.seconds = reader ? reader->durationSeconds() : 0;
  kept = now;
  return kept.seconds;
}

void TakeDurations::ask(const std::vector<std::string>& paths) {
  if (paths != _paths) _total.reset();
  _paths = paths;
  _errand.ask([this, paths, cache = _cache](const std::atomic<bool>& cancel) -> Errand::Outcome {
    double total = 0;
    for (const std::string& path : paths) {
      if (cancel) return [] {};
      total += secondsOf(path, *cache);
    }
    return [this, total] {
      _total = total;
      emit known();
    };
  });
}

void TakeDurations::forget() {
  _errand.cancel();
  _paths.clear();
  _total.reset();
}
