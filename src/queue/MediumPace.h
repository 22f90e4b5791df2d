// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// How many exports at a time a medium is good for. Stateless; any thread; waits for the medium.
class MediumPace {
 public:
  /// One where the folder is on a card, a stick, a turning disk or a network, encrypted or not:
  /// several only get in each other's way there. One a processor elsewhere, and where that cannot
  /// be told, as of the disk of a virtual machine. `system` is where the kernel tells of its
  /// devices.
  static unsigned atOnce(const std::filesystem::path& folder,
                         const std::filesystem::path& system = "/sys");

  /// Whether a device is slow when several use it: its folder below `system`, a partition's or a
  /// disk's. One that is made of others, as the kernel's mapper makes it, is as slow as they are.
  static bool isSlow(const std::filesystem::path& device);
};
