// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

/// The application's own decisions. Nothing is done at the start; at the end settings that are on
/// their way to the medium are waited for, a moment. Interface thread.
class AppDelegate {
 public:
  /// Puts the decisions into effect.
  explicit AppDelegate(QApplication& application);

  static void applicationDidFinishLaunching() {}
  static void applicationWillTerminate();
  /// Closing the main window ends the program.
  static bool applicationShouldTerminateAfterLastWindowClosed() { return true; }

  // No program calls what follows; it belongs to the system's interface.

  static bool applicationSupportsSecureRestorableState() { return true; }
};
