// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/DeviceText.h"

#include <gtest/gtest.h>

#include <array>

#include "midi/RecorderSettings.h"

namespace {

TARNDeviceInfo record(std::uint8_t exists) {
  TARNDeviceInfo info;
  info._device_id = {0x0A, 0x20, 0x30, 0x7F};
  info._version = {'x', '1', '0', '2'};
  info._sdExist = exists;
  info._sdRemaining = {5, 12, 33};
  info._sdUsedSize = "7.45 GB";
  info._sdMaxSize = "29.7 GB";
  return info;
}

TEST(DeviceText, ShowsTheLastThreeCharactersOfTheVersion) {
  EXPECT_EQ(DeviceText::firmware(record(1)), "1.02");
  EXPECT_EQ(DeviceText::firmware({}), (std::string{0, '.', 0, 0}));
}

TEST(DeviceText, ShowsTheCard) {
  EXPECT_EQ(DeviceText::used(record(1)), "7.45 GB / 29.7 GB Used");
  EXPECT_EQ(DeviceText::remaining(record(1)), "05:12:33");
}

TEST(DeviceText, ShowsNoCardForAnyOtherNumber) {
  for (const std::uint8_t exists : std::to_array<std::uint8_t>({0, 2, 127})) {
    EXPECT_EQ(DeviceText::used(record(exists)), "-- GB / -- GB Used");
    EXPECT_EQ(DeviceText::remaining(record(exists)), "--:--:--");
  }
}

TEST(DeviceText, ShowsNumbersOfAnyWidth) {
  TARNDeviceInfo info = record(1);
  info._sdRemaining = {0, 127, 255};
  EXPECT_EQ(DeviceText::remaining(info), "00:127:255");
  EXPECT_EQ(DeviceText::deviceId(info), "0A20307F");
}

TEST(RecorderSettings, HasBatteryTypesInTheOrderOfTheirValues) {
  const auto types = RecorderSettings::batteryTypes();
  for (std::size_t i = 0; i < types.size(); ++i) EXPECT_EQ(types[i].value, i);
  EXPECT_EQ(RecorderSettings::titleOf(types, 0), "Alkaline");
  EXPECT_EQ(RecorderSettings::titleOf(types, 4), "unknown");
}

TEST(RecorderSettings, ListsOffLast) {
  const auto times = RecorderSettings::autoPowerOffTimes();
  ASSERT_EQ(times.size(), 4U);
  for (int i = 0; i < 4; ++i) {
    const std::uint8_t value = times[static_cast<std::size_t>(i)].value;
    EXPECT_EQ(RecorderSettings::autoPowerOffValue(i), value);
    EXPECT_EQ(RecorderSettings::autoPowerOffIndex(value), i);
  }
  EXPECT_EQ(times.back().value, 0);
  EXPECT_EQ(times.back().title, "Off");
}

TEST(RecorderSettings, TakesAnyLaterPlaceForOff) {
  EXPECT_EQ(RecorderSettings::autoPowerOffValue(4), 0);
  EXPECT_EQ(RecorderSettings::autoPowerOffValue(-1), 0);
  EXPECT_EQ(RecorderSettings::autoPowerOffIndex(200), 199);
}

}  // namespace
