// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <new>
#include <string>

/// What went wrong, in words for people. Any thread.
inline std::string reasonOf(const std::exception& error) {
  const bool isMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
  return isMemory ? "There is not enough memory" : error.what();
}
