// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceReport.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TARNDeviceInfo record() {
  TARNDeviceInfo info;
  info._device_id = {0x10, 0x20, 0x30, 0x40};
  info._version = {'0', '1', '0', '2'};
  info._batteryType = 2;
  info._autoPowOffType = 0;
  info._sdExist = 1;
  info._sdRemaining = {5, 12, 33};
  info._sdUsedSize = "7.45 GB";
  info._sdMaxSize = "29.7 GB";
  return info;
}

TEST(DeviceReport, TellsTheWholeRecord) {
  const DeviceReport report(record(), 0);
  EXPECT_EQ(report.text(),
            "Recorder:        connected\n"
            "Identity:        10203040\n"
            "Firmware:        1.02\n"
            "SD card:         7.45 GB / 29.7 GB Used\n"
            "Remaining:       05:12:33\n"
            "Battery type:    2 (Lithium)\n"
            "Auto power-off:  0 (Off)\n");
  EXPECT_EQ(report.json(),
            R"({"connected":true,"device_id":"10203040","firmware":"1.02","sd_present":true,)"
            R"("sd_used":"7.45 GB","sd_capacity":"29.7 GB","remaining":"05:12:33",)"
            R"("battery_type":2,"auto_power_off":0,"step":null})"
            "\n");
}

TEST(DeviceReport, TellsThatThereIsNoCard) {
  TARNDeviceInfo info = record();
  info._sdExist = 0;
  const DeviceReport report(info, 0);
  EXPECT_THAT(report.text(), HasSubstr("-- GB / -- GB Used"));
  EXPECT_THAT(report.json(), HasSubstr(R"("sd_present":false,"sd_used":null,"sd_capacity":null,)"
                                       R"("remaining":null)"));
}

TEST(DeviceReport, TellsThatThereIsNoRecorder) {
  EXPECT_EQ(DeviceReport().text(), "Recorder:        not connected\n");
  EXPECT_THAT(DeviceReport().json(), HasSubstr(R"("connected":false,"device_id":null)"));
  EXPECT_THAT(DeviceReport().json(), HasSubstr(R"("step":null)"));
  EXPECT_THAT(DeviceReport(8).json(), HasSubstr(R"("step":8)"));
}

TEST(DeviceReport, TellsOnlyWhatIsKnownInAStep) {
  const std::array<const char*, 7> kUnknown = {
      "Identity:",     "Firmware:",       "SD card:",         "Remaining:",
      "Battery type:", "Auto power-off:", "Stopped at step: "};
  const std::array<std::size_t, 7> kLines = {0, 2, 2, 2, 4, 5, 6};
  for (std::size_t i = 0; i < kLines.size(); ++i) {
    const auto step = static_cast<std::int64_t>(2 * i + 2);
    const DeviceReport report(record(), step);
    for (std::size_t line = 0; line < 6; ++line) {
      EXPECT_EQ(report.text().find(kUnknown[line]) != std::string::npos, line < kLines[i]) << step;
    }
    EXPECT_THAT(report.text(), StartsWith("Recorder:        does not answer\n"));
    EXPECT_THAT(report.text(), HasSubstr(kUnknown[6] + std::to_string(step) + " ("));
    EXPECT_THAT(report.json(), StartsWith(R"({"connected":false,)"));
    EXPECT_THAT(report.json(), HasSubstr("\"step\":" + std::to_string(step) + "}"));
  }
}

TEST(DeviceReport, NamesTheSteps) {
  EXPECT_EQ(DeviceReport::stepName(2), "identity");
  EXPECT_EQ(DeviceReport::stepName(6), "version");
  EXPECT_EQ(DeviceReport::stepName(14), "date and time");
  EXPECT_EQ(DeviceReport::stepName(0), "");
  EXPECT_EQ(DeviceReport::stepName(16), "");
}

TEST(DeviceReport, LeavesOutWhatWasShown) {
  TARNDeviceInfo later = record();
  later._sdRemaining = {5, 12, 32};
  const DeviceReport before(record(), 0);
  EXPECT_EQ(DeviceReport(later, 0).text(before), "Remaining:       05:12:32\n");
  EXPECT_EQ(before.text(before), "");
}

TEST(DeviceReport, ShowsNoControlCharacters) {
  TARNDeviceInfo info = record();
  info._version = {0, 0x1B, 0x80, 0x07};
  const DeviceReport report(info, 0);
  EXPECT_THAT(report.text(), HasSubstr("\\x1b."));
  EXPECT_THAT(report.text(), Not(HasSubstr("\x1B")));
  EXPECT_THAT(report.json(), HasSubstr("\\u001b"));
}

TEST(DeviceReport, NamesSettings) {
  EXPECT_EQ(DeviceReport::battery(0), "0 (Alkaline)");
  EXPECT_EQ(DeviceReport::autoPowerOff(9), "9 (unknown)");
}

}  // namespace
