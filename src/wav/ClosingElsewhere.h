// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// As long as one is there, files that its thread is the last to let go of are closed on a thread
/// of their own: a close may wait for the medium. Nobody waits for these threads. For a thread that
/// must not wait; every other one closes its files at once.
///
/// Made and destroyed by the same thread, one at a time.
class ClosingElsewhere {
 public:
  ClosingElsewhere();
  ClosingElsewhere(const ClosingElsewhere&) = delete;
  ClosingElsewhere& operator=(const ClosingElsewhere&) = delete;
  ~ClosingElsewhere();

  /// Closes the file where the calling thread has its files closed; right there where no thread or
  /// no memory for one can be had. Any thread.
  static void close(int file);
};
