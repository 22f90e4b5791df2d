// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <optional>

#include "base/EndPatience.h"

/// The application's own decisions. Nothing is done at the start. With the program's end the time
/// begins that all have together who wait for something then; settings that are on their way to the
/// medium are waited for last of what the window has, a moment, with what is left of it. Outlives
/// the window. Interface thread.
class AppDelegate {
 public:
  /// Puts the decisions into effect. `end` outlives what is only closed when `main` has returned.
  AppDelegate(QApplication& application, std::optional<EndPatience>& end);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  /// Waits for the settings where the end has begun.
  ~AppDelegate();

  static void applicationDidFinishLaunching() {}
  void applicationWillTerminate() { _end.emplace(); }
  /// Closing the main window ends the program.
  static bool applicationShouldTerminateAfterLastWindowClosed() { return true; }

  // No program calls what follows; it belongs to the system's interface.

  static bool applicationSupportsSecureRestorableState() { return true; }

 private:
  QMetaObject::Connection _connection;
  std::optional<EndPatience>& _end;  ///< once it has begun
};
