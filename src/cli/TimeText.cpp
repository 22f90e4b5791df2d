// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/TimeText.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <vector>

#include "cli/NumberCheck.h"

namespace {

constexpr std::size_t kMostFields = 3;
constexpr double kBase = 60;
constexpr std::string_view kNumber = "0123456789.eE+-";

std::vector<std::string_view> fieldsOf(std::string_view text) {
  std::vector<std::string_view> fields;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t colon = std::min(text.find(':', from), text.size());
    fields.push_back(text.substr(from, colon - from));
    from = colon + 1;
  }
  return fields;
}

constexpr std::string_view kDigits = "0123456789";

std::optional<double> number(std::string_view text, std::string_view allowed) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  const bool isAllowed = text.find_first_not_of(allowed) == std::string_view::npos;
  return isWhole && isAllowed && value >= 0 ? std::optional(value) : std::nullopt;
}

}  // namespace

std::optional<double> TimeText::parse(std::string_view text) {
  const std::vector<std::string_view> fields = fieldsOf(text);
  if (fields.size() > kMostFields) return std::nullopt;
  double seconds = 0;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const bool isLast = i + 1 == fields.size();
    const auto value = number(fields[i], isLast ? kNumber : kDigits);
    if (!value || (i > 0 && *value >= kBase)) return std::nullopt;
    seconds = seconds * kBase + *value;
  }
  return seconds <= kMostSeconds ? std::optional(seconds) : std::nullopt;
}

std::string TimeText::of(double seconds) {
  constexpr std::int64_t kMsPerMinute = 60000;
  const std::int64_t ms = std::llround(seconds * 1000.0);
  const std::int64_t minutes = ms / kMsPerMinute;
  return fmt::format("{:02}:{:02}:{:02}.{:03}", minutes / 60, minutes % 60,
                     ms % kMsPerMinute / 1000, ms % 1000);
}

CLI::Validator TimeText::check() {
  const auto check = [](std::string& text) {
    const auto seconds = parse(text);
    if (!seconds) return fmt::format("{} is neither seconds nor H:MM:SS", text);
    text = fmt::format("{}", *seconds);
    return std::string();
  };
  return {check, "seconds or H:MM:SS", "timeText"};
}
