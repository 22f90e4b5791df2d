// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// Standard input, output and error as the program is given them.
class StandardStreams {
 public:
  /// Keeps those that are closed from being what a file of the program gets, into which messages
  /// would be printed then. They fail as before. To be called before anything is opened; main
  /// thread.
  static void reserve();
};
