// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/BextChunkInfo.h"

#include <fmt/format.h>

#include <cstdlib>
#include <ctime>

#include "wav/BextLayout.h"

namespace {

std::tm localTime(std::chrono::system_clock::time_point moment) {
  const std::time_t seconds =
      std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(moment));
  std::tm local{};
  localtime_r(&seconds, &local);
  return local;
}

}  // namespace

BextChunkInfo::BextChunkInfo() : OriginationDateTime(std::chrono::system_clock::now()) {
  Reserved.bytes = static_cast<std::uint8_t*>(std::calloc(bext::kReserved.size, 1));
  Reserved.length = Reserved.bytes == nullptr ? 0 : bext::kReserved.size;
}

std::string BextChunkInfo::OriginationDate() const {
  if (!keptDate.empty()) return keptDate;
  const std::tm local = localTime(OriginationDateTime);
  return fmt::format("{:04}-{:02}-{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

std::string BextChunkInfo::OriginationTime() const {
  if (!keptTime.empty()) return keptTime;
  const std::tm local = localTime(OriginationDateTime);
  return fmt::format("{:02}:{:02}:{:02}", local.tm_hour, local.tm_min, local.tm_sec);
}
