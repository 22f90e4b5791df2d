// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/NotificationCenter.h"

#include <utility>

NotificationCenter& NotificationCenter::defaultCenter() {
  static auto* const kOnly = new NotificationCenter;
  return *kOnly;
}

std::shared_ptr<const NotificationCenter::Entries> NotificationCenter::entries() const {
  const std::lock_guard lock(_mutex);
  return _entries;
}

void NotificationCenter::addObserver(const void* target, Observer observer, std::string_view name) {
  const std::lock_guard lock(_mutex);
  auto changed = std::make_shared<Entries>(*_entries);
  changed->push_back({target, std::string(name), std::move(observer)});
  _entries = std::move(changed);
}

void NotificationCenter::removeObserver(const void* target) {
  const std::lock_guard lock(_mutex);
  auto changed = std::make_shared<Entries>(*_entries);
  std::erase_if(*changed, [target](const Entry& entry) { return entry.target == target; });
  _entries = std::move(changed);
}

void NotificationCenter::post(const Notification& notification) const {
  const auto snapshot = entries();
  for (const Entry& entry : *snapshot) {
    if (entry.name == notification.name) entry.observer(notification);
  }
}
