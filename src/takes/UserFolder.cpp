// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/UserFolder.h"

#include <cstdlib>

std::filesystem::path UserFolder::of(const char* variable, const char* inHome) {
  const char* const named = std::getenv(variable);
  const bool isUsable = named != nullptr && *named == '/';  // relative ones are to be ignored
  const char* const home = std::getenv("HOME");
  const std::filesystem::path root(home == nullptr ? "/" : home);
  return (isUsable ? std::filesystem::path(named) : root / inHome) / "mixdeck";
}
