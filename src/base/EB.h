// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <any>
#include <string_view>

#include "base/NotificationCenter.h"

/// The event bus: lets parts that do not know each other tell that something happened. Events are
/// told apart by name; nothing in the program sends a payload yet.
///
/// Delivery is synchronous on the thread that fires; a handler that needs another thread goes there
/// itself. `initData` is called once, on the main thread, before the first subscription.
class EB {
 public:
  /// The playing file's queue has stopped: at the end, and for each seek.
  static constexpr std::string_view kPlayFinish = "EB_PLAY_FINISH";
  /// An export has ended, however it did: a folder may hold a new file.
  static constexpr std::string_view kReloadFileList = "EB_RELOAD_FILE_LIST";

  EB(const EB&) = delete;
  EB& operator=(const EB&) = delete;

  /// Makes the shared instance and takes hold of the default centre; later calls do nothing.
  static void initData();
  /// The centre that events go through; null before `initData`.
  static NotificationCenter* center();

  /// `fun` of `target` is called for each event of that name. There is no way back here: the
  /// target lives as long as the process, or leaves the centre by itself.
  template <class Target>
  static void SUBSCRIBE(Target* target, void (Target::*fun)(const Notification&),
                        std::string_view name) {
    if (center() == nullptr) return;
    center()->addObserver(
        target, [target, fun](const Notification& event) { (target->*fun)(event); }, name);
  }

  /// Logs the event, then tells all its subscribers.
  static void FIRE(std::string_view name);
  static void FIRE(std::string_view name, const std::any& data);

  // No program calls what follows; it belongs to the system's interface.

  /// The shared instance, whoever asks and however often; null before `initData`.
  static EB* init();

 private:
  EB() = default;
};
