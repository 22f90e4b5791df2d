// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/NotEmpty.h"

void refuseNothing(const CLI::Option* option, const std::filesystem::path& path) {
  if (option->count() > 0 && path.empty()) {
    throw CLI::ValidationError(option->get_name(), "is empty");
  }
}
