// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

/// Work of other threads for the main thread, done by its event loop.
class MainThreadQueue {
 public:
  /// Any thread. Runs the task on the main thread and waits for it; at once when already there, or
  /// where there is no application.
  static void run(const std::function<void()>& task);
};
