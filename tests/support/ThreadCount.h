// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

/// How many threads this program has at the moment.
class ThreadCount {
 public:
  [[nodiscard]] static std::size_t now() {
    const std::filesystem::directory_iterator all("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
  }
};
