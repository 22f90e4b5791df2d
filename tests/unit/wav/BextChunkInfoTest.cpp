// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/BextChunkInfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <ctime>
#include <optional>
#include <string>

#include "support/WaveBytes.h"
#include "wav/BextLayout.h"

namespace {

using namespace std::chrono_literals;
using std::chrono::system_clock;

// The time zone of one test.
class TimeZone {
 public:
  explicit TimeZone(const char* name) {
    if (const char* old = getenv("TZ")) _old = old;
    setenv("TZ", name, 1);
    tzset();
  }
  ~TimeZone() {
    if (_old) {
      setenv("TZ", _old->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;

 private:
  std::optional<std::string> _old;
};

BextChunkInfo madeAt(std::time_t moment) {
  BextChunkInfo info;
  info.OriginationDateTime = system_clock::from_time_t(moment);
  return info;
}

// 2026-05-04 03:02:01 UTC: 20577 days after the epoch.
constexpr std::time_t kMoment = 20577LL * 86400 + 3 * 3600 + 2 * 60 + 1;

}  // namespace

TEST(BextChunkInfoTest, ANewRecordIsEmptyVersion1) {
  const BextChunkInfo info;
  EXPECT_EQ(info.TimeReference, 0);
  EXPECT_EQ(info.Version, 1);
  EXPECT_EQ(info.Description, "");
  EXPECT_EQ(info.Originator, "");
  EXPECT_EQ(info.OriginatorReference, "");
  EXPECT_EQ(info.UniqueMaterialIdentifier, "");
  EXPECT_EQ(info.CodingHistory, "");
}

TEST(BextChunkInfoTest, ANewRecordIsDatedNow) {
  const auto before = system_clock::now();
  const BextChunkInfo info;
  const auto after = system_clock::now();
  EXPECT_GE(info.OriginationDateTime, before);
  EXPECT_LE(info.OriginationDateTime, after);
}

TEST(BextChunkInfoTest, ReservedIsABlockOf190Zeros) {
  const BextChunkInfo info;
  ASSERT_NE(info.Reserved.bytes, nullptr);
  ASSERT_EQ(info.Reserved.length, 190U);
  EXPECT_TRUE(std::all_of(info.Reserved.bytes, info.Reserved.bytes + 190,
                          [](std::uint8_t byte) { return byte == 0; }));
}

TEST(BextChunkInfoTest, DisposeLetsGoOfReserved) {
  BextChunkInfo info;
  info.dispose();
  EXPECT_EQ(info.Reserved.length, 0U);
}

TEST(BextChunkInfoTest, DateAndTimeArePaddedNumbersOnA24HourClock) {
  const TimeZone zone("UTC0");
  EXPECT_EQ(madeAt(kMoment).OriginationDate(), "2026-05-04");
  EXPECT_EQ(madeAt(kMoment).OriginationTime(), "03:02:01");
  EXPECT_EQ(madeAt(kMoment + 12 * 3600).OriginationTime(), "15:02:01");
  EXPECT_EQ(madeAt(0).OriginationDate(), "1970-01-01");
  EXPECT_EQ(madeAt(0).OriginationTime(), "00:00:00");
  EXPECT_EQ(madeAt(86399).OriginationTime(), "23:59:59");
}

TEST(BextChunkInfoTest, ALeapDayIsADay) {
  const TimeZone zone("UTC0");
  EXPECT_EQ(madeAt(1709164800).OriginationDate(), "2024-02-29");  // 19782 days
  EXPECT_EQ(madeAt(1709164800 + 86400).OriginationDate(), "2024-03-01");
}

TEST(BextChunkInfoTest, DateAndTimeAreThoseOfTheUsersTimeZone) {
  const TimeZone zone("EAST-09:30");  // half past nine hours ahead of UTC
  EXPECT_EQ(madeAt(kMoment).OriginationTime(), "12:32:01");
  EXPECT_EQ(madeAt(kMoment + 15 * 3600).OriginationDate(), "2026-05-05");
}

TEST(BextChunkInfoTest, ATimeZoneBehindCanBeADayEarlier) {
  const TimeZone zone("WEST+05");
  EXPECT_EQ(madeAt(kMoment).OriginationDate(), "2026-05-03");
  EXPECT_EQ(madeAt(kMoment).OriginationTime(), "22:02:01");
}

TEST(BextChunkInfoTest, PartsOfASecondAreCut) {
  const TimeZone zone("UTC0");
  BextChunkInfo info;
  info.OriginationDateTime = system_clock::from_time_t(kMoment) + 999ms;
  EXPECT_EQ(info.OriginationTime(), "03:02:01");
  info.OriginationDateTime = system_clock::from_time_t(0) - 1ms;
  EXPECT_EQ(info.OriginationTime(), "23:59:59");
  EXPECT_EQ(info.OriginationDate(), "1969-12-31");
}

TEST(BextChunkInfoTest, ASecondLaterIsAnotherTime) {
  EXPECT_NE(madeAt(kMoment).OriginationTime(), madeAt(kMoment + 1).OriginationTime());
}

TEST(BextChunkInfoTest, ANewRecordFormatsTheMomentItWasMade) {
  const TimeZone zone("UTC0");
  const BextChunkInfo info;
  std::tm broken{};
  const std::time_t moment = system_clock::to_time_t(info.OriginationDateTime);
  gmtime_r(&moment, &broken);
  char text[32];
  ASSERT_GT(std::strftime(text, sizeof text, "%Y-%m-%d", &broken), 0U);
  EXPECT_EQ(info.OriginationDate(), text);
  ASSERT_GT(std::strftime(text, sizeof text, "%H:%M:%S", &broken), 0U);
  EXPECT_EQ(info.OriginationTime(), text);
}

TEST(BextChunkInfoTest, DateAndTimeFillTheirFields) {
  EXPECT_EQ(BextChunkInfo().OriginationDate().size(), bext::kOriginationDate.size);
  EXPECT_EQ(BextChunkInfo().OriginationTime().size(), bext::kOriginationTime.size);
}

TEST(BextLayoutTest, FieldsFollowOneAnotherWithoutAGap) {
  const BextField fields[] = {bext::kDescription,
                              bext::kOriginator,
                              bext::kOriginatorReference,
                              bext::kOriginationDate,
                              bext::kOriginationTime,
                              bext::kTimeReference,
                              bext::kVersion,
                              bext::kUniqueMaterialIdentifier,
                              bext::kReserved};
  constexpr std::size_t kSizes[] = {256, 32, 32, 10, 8, 8, 2, 64, 190};
  std::size_t offset = 0;
  for (std::size_t i = 0; i < std::size(fields); ++i) {
    EXPECT_EQ(fields[i].offset, offset) << "field " << i;
    EXPECT_EQ(fields[i].size, kSizes[i]) << "field " << i;
    offset += kSizes[i];
  }
  EXPECT_EQ(bext::kFixedSize, offset);
  EXPECT_EQ(bext::kFixedSize, 602U);
}
