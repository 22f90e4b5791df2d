// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cmath>

#include "midi/MIDIConnectSequence.h"
#include "midi/SDCardReport.h"

namespace {

constexpr float kMega = 0x1p20F;
constexpr float kGiga = 0x1p30F;

std::string text(float size) {
  return MIDIConnectSequence::buildSizeString(size);
}

float below(float size) {
  return std::nextafter(size, 0.0F);
}

TEST(SizeString, HasTwoDecimalsBelowTen) {
  EXPECT_EQ(text(0.0F), "0.00 MB");
  EXPECT_EQ(text(1.0F), "0.00 MB");
  EXPECT_EQ(text(781706.0F), "0.75 MB");
  EXPECT_EQ(text(9.994F * kMega), "9.99 MB");
  EXPECT_EQ(text(8e9F), "7.45 GB");
}

TEST(SizeString, RoundsUpToTenWithTwoDecimals) {
  EXPECT_EQ(text(9.999F * kMega), "10.00 MB");
  EXPECT_EQ(text(below(10.0F * kMega)), "10.00 MB");
  EXPECT_EQ(text(9.999F * kGiga), "10.00 GB");
}

TEST(SizeString, HasOneDecimalFromTen) {
  EXPECT_EQ(text(10.0F * kMega), "10.0 MB");
  EXPECT_EQ(text(10.0F * kGiga), "10.0 GB");
  EXPECT_EQ(text(31.9e9F), "29.7 GB");
  EXPECT_EQ(text(99.94F * kMega), "99.9 MB");
}

TEST(SizeString, RoundsUpToAHundredWithOneDecimal) {
  EXPECT_EQ(text(99.96F * kMega), "100.0 MB");
  EXPECT_EQ(text(below(100.0F * kMega)), "100.0 MB");
  EXPECT_EQ(text(99.96F * kGiga), "100.0 GB");
}

TEST(SizeString, IsCutToAWholeNumberFromAHundred) {
  EXPECT_EQ(text(100.0F * kMega), "100 MB");
  EXPECT_EQ(text(100.99F * kMega), "100 MB");
  EXPECT_EQ(text(512.0F * kMega), "512 MB");
  EXPECT_EQ(text(128e9F), "119 GB");
  EXPECT_EQ(text(1000.0F * kGiga), "1000 GB");
}

TEST(SizeString, ChangesTheUnitAtAGigabyte) {
  EXPECT_EQ(text(1073741824.0F - 64.0F), "1023 MB");
  EXPECT_EQ(text(below(kGiga)), "1023 MB");
  EXPECT_EQ(text(static_cast<float>(1073741823)), "1.00 GB");
  EXPECT_EQ(text(kGiga), "1.00 GB");
}

TEST(SizeString, TakesTheLargestSizes) {
  EXPECT_EQ(text(0x1p63F), "8589934592 GB");
  EXPECT_EQ(text(127.0F * 0x1p63F), "1090921693184 GB");
}

TEST(CardSize, AddsGroupsOfSevenBits) {
  EXPECT_EQ(SDCardReport::size({0x0A, 0x5B, 0x2F}), 781706.0F);
  EXPECT_EQ(SDCardReport::size({}), 0.0F);
}

TEST(CardSize, ShiftsEachGroupByItsOwnNumber) {
  const std::array<int, 10> shifts = {0, 7, 14, 21, 28, 35, 42, 47, 56, 63};
  for (std::size_t i = 0; i < shifts.size(); ++i) {
    for (const int value : {1, 2, 127, 255}) {
      SDCardReport::Groups groups{};
      groups[i] = static_cast<std::uint8_t>(value);
      EXPECT_EQ(SDCardReport::size(groups), std::ldexp(static_cast<float>(value), shifts[i])) << i;
    }
  }
}

// Added from the top down the second sum would be 2^31.
TEST(CardSize, RoundsEachSumToSinglePrecision) {
  EXPECT_EQ(SDCardReport::size({1, 0, 0, 8}), 16777216.0F);
  EXPECT_EQ(SDCardReport::size({64, 1, 0, 0, 8}), 0x1p31F + 256.0F);
  EXPECT_EQ(SDCardReport::size({127, 127, 127, 127, 3}), 0x1p30F);
}

}  // namespace
