// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ProgramBeside.h"

#include <filesystem>
#include <system_error>

std::string ProgramBeside::path(const char* name) {
  std::error_code error;
  const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  const auto installed = folder.parent_path() / "libexec" / "mixdeck" / name;
  return std::filesystem::exists(installed, error) ? installed : folder / name;
}
