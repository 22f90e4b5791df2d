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
  changed->push_back(std::make_shared<Entry>(target, name, std::move(observer)));
  _entries = std::move(changed);
}

void NotificationCenter::removeObserver(const void* target) {
  const std::lock_guard lock(_mutex);
  auto changed = std::make_shared<Entries>(*_entries);
  std::erase_if(*changed, [target](const std::shared_ptr<Entry>& entry) {
    const bool isTheirs = entry->target == target;
    if (isTheirs) entry->isRemoved = true;
    return isTheirs;
  });
  _entries = std::move(changed);
}

void NotificationCenter::post(const Notification& notification) const {
  const auto snapshot = entries();
  for (const auto& entry : *snapshot) {
    const bool isMeant = entry->name == notification.name && !entry->isRemoved;
    if (isMeant) entry->observer(notification);
  }
}
