// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

#include "base/SteadyTime.h"

/// What the end of the program has for waiting, all in all: it begins with the object. Whoever
/// waits for something at that time asks here how long. One object at a time. Interface thread; in
/// a program without such an object `atMost` from any.
class EndPatience {
 public:
  /// So that the whole end takes less than a second.
  static constexpr std::chrono::milliseconds kWhole{700};

  explicit EndPatience(SteadyTime::Clock clock = SteadyTime::now);
  EndPatience(const EndPatience&) = delete;
  EndPatience& operator=(const EndPatience&) = delete;
  ~EndPatience();

  /// How long to wait for what would be waited for so long: no longer than what is left of the end.
  /// As long as that where the end has not begun.
  static std::chrono::milliseconds atMost(std::chrono::milliseconds own);

 private:
  [[nodiscard]] std::chrono::milliseconds left() const;

  SteadyTime::Clock _clock;
  std::chrono::milliseconds _end;  ///< by the clock
};
