// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/DeviceText.h"

#include <fmt/format.h>

#include <string_view>

#include "base/Placeholder.h"

namespace {

std::string usedOf(std::string_view used, std::string_view whole) {
  return fmt::format("{} / {} Used", used, whole);
}

}  // namespace

std::string DeviceText::firmware(const TARNDeviceInfo& info) {
  const auto& version = info._version;
  const std::string lastTwo(version.begin() + 2, version.end());
  return std::string(1, static_cast<char>(version[1])) + "." + lastTwo;
}

std::string DeviceText::used(const TARNDeviceInfo& info) {
  if (!hasCard(info)) return usedOf(Placeholder::kSize, Placeholder::kSize);
  return usedOf(info._sdUsedSize, info._sdMaxSize);
}

std::string DeviceText::remaining(const TARNDeviceInfo& info) {
  if (!hasCard(info)) return Placeholder::kTime;
  const auto& left = info._sdRemaining;
  return fmt::format("{:02}:{:02}:{:02}", left[0], left[1], left[2]);
}

std::string DeviceText::deviceId(const TARNDeviceInfo& info) {
  const auto& id = info._device_id;
  return fmt::format("{:02X}{:02X}{:02X}{:02X}", id[0], id[1], id[2], id[3]);
}
