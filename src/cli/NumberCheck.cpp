// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/NumberCheck.h"

#include <fmt/format.h>

#include <cmath>
#include <string>

CLI::Validator realBetween(double least, double most) {
  const auto check = [least, most](std::string& text) {
    double value = 0;
    const bool isNumber = CLI::detail::lexical_cast(text, value);
    if (isNumber && value >= least && value <= most) return std::string();
    return fmt::format("{} is not a number from {} to {}", text, least, most);
  };
  return {check, fmt::format("{} to {}", least, most), "realBetween"};
}

CLI::Validator wholeBetween(double least, double most) {
  const auto check = [least, most](std::string& text) {
    double value = 0;
    const bool isNumber = CLI::detail::lexical_cast(text, value) && value == std::trunc(value);
    if (isNumber && value >= least && value <= most) return std::string();
    return fmt::format("{} is not a whole number from {} to {}", text, least, most);
  };
  return {check, fmt::format("{} to {}", least, most), "wholeBetween"};
}
