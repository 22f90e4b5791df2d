// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <any>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What an observer is told: the event's name and its payload, empty for most events.
struct Notification {
  std::string name;
  std::any object;
};

/// A registry of observers by event name. Delivery is synchronous: every observer of the name runs
/// on the posting thread, in the order of registration, before `post` returns.
///
/// Any thread may do anything at any time, from inside an observer too. A post that is under way
/// calls neither an observer that is added meanwhile nor one that has been removed; on another
/// thread the removed one may just be running.
class NotificationCenter {
 public:
  using Observer = std::function<void(const Notification&)>;

  /// The one of the process.
  static NotificationCenter& defaultCenter();

  /// `target` is whom the observer belongs to, for `removeObserver`; it is never looked into.
  void addObserver(const void* target, Observer observer, std::string_view name);
  /// Ends everything that `target` observes. Whoever does not live as long as the process calls it
  /// before the end.
  void removeObserver(const void* target);
  void post(const Notification& notification) const;

 private:
  struct Entry {
    Entry(const void* whose, std::string_view event, Observer whom)
        : target(whose), name(event), observer(std::move(whom)) {}

    const void* target;
    std::string name;
    Observer observer;
    std::atomic<bool> isRemoved = false;  ///< a post under way passes it over
  };
  using Entries = std::vector<std::shared_ptr<Entry>>;

  [[nodiscard]] std::shared_ptr<const Entries> entries() const;

  mutable std::mutex _mutex;  ///< guards the pointer; the list itself never changes
  std::shared_ptr<const Entries> _entries = std::make_shared<Entries>();
};
