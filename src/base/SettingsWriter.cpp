// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsWriter.h"

#include <algorithm>
#include <exception>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"
#include "base/Log.h"
#include "base/SettingsFile.h"

SettingsWriter& SettingsWriter::get() {
  static auto* const kOnly = new SettingsWriter;
  return *kOnly;
}

// Without a thread it waits for the next one that is stored, and at the end is not written.
void SettingsWriter::store(const std::filesystem::path& file, std::string key, std::string value) {
  const std::lock_guard lock(_mutex);
  std::erase_if(_waiting,
                [&](const Entry& entry) { return entry.file == file && entry.key == key; });
  _waiting.push_back({file, std::move(key), std::move(value)});
  if (!_isStarted) _isStarted = start();
  if (!_isStarted) Log::line("Cannot write " + file.native());
  _wanted.notify_one();
}

bool SettingsWriter::start() {
  try {
    std::thread([this] { work(); }).detach();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void SettingsWriter::work() {
  std::unique_lock lock(_mutex);
  for (;;) {
    _wanted.wait(lock, [this] { return !_waiting.empty(); });
    _underWay = std::move(_waiting.front());
    _waiting.erase(_waiting.begin());
    lock.unlock();
    write(*_underWay);  // which nobody else changes
    lock.lock();
    _underWay.reset();
    _written.notify_all();
  }
}

void SettingsWriter::write(const Entry& entry) {
  try {
    if (SettingsFile(entry.file).set(entry.key, entry.value)) return;
    Log::line("Cannot write " + entry.file.native());
  } catch (const std::exception& error) {
    Log::line("Cannot write " + entry.file.native() + ": " + reasonOf(error));
  }
}

std::optional<std::string> SettingsWriter::pending(const std::filesystem::path& file,
                                                   std::string_view key) const {
  const auto isIt = [&](const Entry& entry) { return entry.file == file && entry.key == key; };
  const std::lock_guard lock(_mutex);
  const auto found = std::ranges::find_if(_waiting, isIt);
  if (found != _waiting.end()) return found->value;
  return _underWay && isIt(*_underWay) ? std::optional(_underWay->value) : std::nullopt;
}

bool SettingsWriter::flush(std::chrono::milliseconds most) {
  std::unique_lock lock(_mutex);
  return _written.wait_for(lock, most, [this] { return _waiting.empty() && !_underWay; });
}
