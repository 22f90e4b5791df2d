// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// What stands where a value is not known. Any thread.
struct Placeholder {
  static constexpr const char* kTime = "--:--:--";
  static constexpr const char* kSize = "-- GB";
};
