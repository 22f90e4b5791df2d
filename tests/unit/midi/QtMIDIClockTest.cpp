// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/QtMIDIClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <utility>

#include "support/EnvironmentVariable.h"

namespace {

constexpr std::time_t kHour = 3600;

/// By the fine clock: std::time() reads a coarse one, which may be a second behind for a tick.
std::time_t now() {
  using std::chrono::system_clock;
  return system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(system_clock::now()));
}

/// Read as if it were UTC.
std::time_t seconds(const MIDICalendarTime& time) {
  std::tm broken{};
  broken.tm_year = time.year - 1900;
  broken.tm_mon = time.month - 1;
  broken.tm_mday = time.day;
  broken.tm_hour = time.hour;
  broken.tm_min = time.minute;
  broken.tm_sec = time.second;
  return timegm(&broken);
}

TEST(QtMIDIClockTest, LocalTimeIsTheTimeOfTheZoneThatIsSet) {
  for (const auto& [zone, ahead] :
       {std::pair{"UTC0", 0 * kHour}, {"EAST-5:30", 11 * kHour / 2}, {"WEST+8", -8 * kHour}}) {
    const EnvironmentVariable variable("TZ", zone);
    tzset();
    const std::time_t before = now();
    const std::time_t told = seconds(QtMIDIClock().localTime());
    EXPECT_GE(told, before + ahead) << zone;
    EXPECT_LE(told, now() + ahead) << zone;
  }
  tzset();
}

}  // namespace
