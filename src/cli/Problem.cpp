// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Problem.h"

#include <fmt/format.h>

#include "cli/Printable.h"

std::string problemLine(const std::filesystem::path& path, std::string_view text,
                        std::string_view reason) {
  return printable(fmt::format("mixdeck-cli: {}: {} {}", path.native(), text, reason));
}
