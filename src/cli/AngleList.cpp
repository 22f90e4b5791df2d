// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/AngleList.h"

#include <fmt/format.h>

#include <charconv>
#include <numeric>
#include <optional>
#include <string_view>

#include "dsp/SideGain.h"

namespace {

std::optional<int> angleIn(std::string_view word) {
  int angle = -1;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), angle);
  const bool isWhole = error == std::errc() && end == word.data() + word.size();
  if (!isWhole || angle < SideGain::kMinAngle || angle > SideGain::kMaxAngle) return std::nullopt;
  return angle;
}

}  // namespace

std::vector<int> AngleList::parse(const std::string& text) {
  std::vector<int> angles;
  if (text == "all") {
    angles.resize(SideGain::kMaxAngle + 1);
    std::iota(angles.begin(), angles.end(), SideGain::kMinAngle);
    return angles;
  }
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t comma = std::min(text.find(',', from), text.size());
    const auto angle = angleIn(std::string_view(text).substr(from, comma - from));
    if (!angle) return {};
    angles.push_back(*angle);
    from = comma + 1;
  }
  return angles;
}

CLI::Validator AngleList::check() {
  const auto check = [](const std::string& text) {
    if (!parse(text).empty()) return std::string();
    return fmt::format("{} is neither all nor a list of whole degrees from {} to {}", text,
                       SideGain::kMinAngle, SideGain::kMaxAngle);
  };
  return {check, "all or A,B,...", "angleList"};
}
