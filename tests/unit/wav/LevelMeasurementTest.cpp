// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

namespace {

using Bytes = std::vector<std::byte>;
using Reader = std::unique_ptr<WaveFileReader>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr std::uint32_t kRate = 8;  // times in eighths of a second are exact
constexpr std::size_t kHeader = 44;

struct Level {
  float left;
  float right;
  bool operator==(const Level&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Level& level) {
  return out << level.left << ' ' << level.right;
}

constexpr Level kNothing{-2.0F, -2.0F};

Level measure(WaveFileReader& reader, double from, double to, double gain = 0.0,
              double angle = 0.0) {
  Level level{9.0F, 9.0F};
  reader.getSampleLevelMeterFrom(from, to, level.left, level.right, gain, angle);
  return level;
}

// A float recording of `frameCount` frames of `floor`, some of them replaced.
class Recording {
 public:
  explicit Recording(std::size_t frameCount, float floor = 0.0F)
      : _samples(2 * frameCount, floor) {}

  Recording& frame(std::size_t number, float left, float right) {
    _samples[2 * number] = left;
    _samples[2 * number + 1] = right;
    return *this;
  }
  [[nodiscard]] Bytes file() const {
    return WaveBytes()
        .format(3, 2, kRate, 32)
        .data(WaveBytes::samplesFloat(_samples))
        .chunk("LIST", Bytes(60))
        .get();
  }
  [[nodiscard]] Reader reader(bool isRaw = false) const {
    Reader reader = WaveFileReader::readFromData(file());
    reader->setIsBoMSFormat(isRaw);
    return reader;
  }

 private:
  std::vector<float> _samples;
};

double factor(double dB) {
  return std::pow(10.0, dB / 20.0);
}

}  // namespace

TEST(LevelMeasurementTest, GivesTheHighestValueOfEachChannel) {
  const Reader reader = Recording(100).frame(3, 0.5F, 0.25F).frame(7, 0.125F, 0.75F).reader();
  EXPECT_EQ(measure(*reader, 0.0, 2.0), (Level{0.5F, 0.75F}));
}

TEST(LevelMeasurementTest, LooksOnlyAtItsStretch) {
  const Reader reader = Recording(100)
                            .frame(7, 0.9F, 0.9F)
                            .frame(8, 0.5F, 0.125F)
                            .frame(15, 0.25F, 0.5F)
                            .frame(16, 0.9F, 0.9F)
                            .reader();
  EXPECT_EQ(measure(*reader, 1.0, 2.0), (Level{0.5F, 0.5F}));
}

TEST(LevelMeasurementTest, NegativeSamplesGiveTheLeastNegative) {
  const Reader reader = Recording(100, -0.75F).frame(3, -0.25F, -0.5F).reader();
  EXPECT_EQ(measure(*reader, 0.0, 1.0), (Level{-0.25F, -0.5F}));
}

TEST(LevelMeasurementTest, NothingUnderTheMarkerCounts) {
  const Reader reader = Recording(100, -5.0F).reader();
  EXPECT_EQ(measure(*reader, 0.0, 1.0), kNothing);
}

TEST(LevelMeasurementTest, WhatIsNotANumberKeepsTheOldMaximum) {
  const Reader reader = Recording(100)
                            .frame(0, kNaN, kNaN)
                            .frame(1, 0.5F, 0.25F)
                            .frame(2, kNaN, -kNaN)
                            .frame(3, 0.25F, kNaN)
                            .reader();
  EXPECT_EQ(measure(*reader, 0.0, 0.5), (Level{0.5F, 0.25F}));
  EXPECT_EQ(measure(*reader, 0.0, 0.125), kNothing);
}

TEST(LevelMeasurementTest, AnEmptyStretchGivesTheMarker) {
  const Reader reader = Recording(100, 0.5F).reader();
  EXPECT_EQ(measure(*reader, 1.0, 1.0), kNothing);
  EXPECT_EQ(measure(*reader, 2.0, 1.0), kNothing);
  EXPECT_EQ(measure(*reader, 0.0, 0.0, 0.0, 120.0), kNothing) << "not raw: the angle is not used";
}

TEST(LevelMeasurementTest, TheMarkerIsDecodedAndGainedLikeASample) {
  const Reader reader = Recording(100, 0.5F).reader(true);
  EXPECT_EQ(measure(*reader, 1.0, 1.0, 0.0, 0.0), kNothing);
  EXPECT_EQ(measure(*reader, 1.0, 1.0, 0.0, 120.0), (Level{-4.0F, 0.0F}));
  const Level softer = measure(*reader, 1.0, 1.0, 20.0, 0.0);
  EXPECT_FLOAT_EQ(softer.left, -0.2F);
  EXPECT_FLOAT_EQ(softer.right, -0.2F);
}

TEST(LevelMeasurementTest, AStartInsideAFrameMovesToTheNext) {
  const Reader reader = Recording(100).frame(0, 0.9F, 0.9F).frame(1, 0.5F, 0.5F).reader();
  EXPECT_EQ(measure(*reader, 0.0625, 1.0), (Level{0.5F, 0.5F}));
  EXPECT_EQ(measure(*reader, 0.0, 1.0), (Level{0.9F, 0.9F}));
  EXPECT_EQ(measure(*reader, 0.125, 1.0), (Level{0.5F, 0.5F}));
  // 8.064 bytes are cut to 8, a whole frame.
  EXPECT_EQ(measure(*reader, 0.126, 1.0), (Level{0.5F, 0.5F}));
  // 9.024 bytes are cut to 9, inside the second frame.
  EXPECT_EQ(measure(*reader, 0.141, 1.0), (Level{0.0F, 0.0F}));
}

TEST(LevelMeasurementTest, AFrameThatStartsBeforeTheEndCounts) {
  const Reader reader = Recording(100).frame(8, 0.5F, 0.5F).reader();
  EXPECT_EQ(measure(*reader, 0.0, 1.0), (Level{0.0F, 0.0F}));
  EXPECT_EQ(measure(*reader, 0.0, 1.015), (Level{0.0F, 0.0F})) << "64.96 bytes are cut to 64";
  EXPECT_EQ(measure(*reader, 0.0, 1.03), (Level{0.5F, 0.5F}));
}

TEST(LevelMeasurementTest, TheEndIsThatOfTheRateTimesTimeAfterTheHeader) {
  constexpr std::size_t kFirst = 748;
  for (const std::size_t loud : {4799U, 4800U}) {
    std::vector<std::int32_t> samples(2 * 10000);
    samples[2 * loud] = 4194304;
    const Bytes file = WaveBytes()
                           .chunk("JUNK", Bytes(kFirst - kHeader - 8))
                           .format24()
                           .data(WaveBytes::samples24(samples))
                           .get();
    const Reader reader = WaveFileReader::readFromData(file);
    ASSERT_EQ(reader->header().dataChunkPosition, kFirst);
    EXPECT_EQ(measure(*reader, 0.0, 0.1).left, loud == 4799 ? 0.5F : 0.0F);
    EXPECT_EQ(reader->readDataIdx(), 29548U);
  }
}

TEST(LevelMeasurementTest, TheLastBytesOfTheDataAreNeverMeasured) {
  // 800 bytes of data: frames start at 44 + 8 n, and those from 800 on are out of sight.
  const Reader near = Recording(100).frame(94, 0.5F, 0.5F).reader();
  EXPECT_EQ(measure(*near, 0.0, 1000.0), (Level{0.5F, 0.5F}));
  EXPECT_EQ(near->readDataIdx(), 44U + 8 * 95);
  const Reader far = Recording(100).frame(95, 0.5F, 0.5F).reader();
  EXPECT_EQ(measure(*far, 0.0, 1000.0), (Level{0.0F, 0.0F}));
}

TEST(LevelMeasurementTest, DataShorterThanTheHeaderIsNotMeasured) {
  EXPECT_EQ(measure(*Recording(5, 0.5F).reader(), 0.0, 1000.0), kNothing);  // 40 bytes
  EXPECT_EQ(measure(*Recording(6, 0.5F).reader(), 0.0, 1000.0), (Level{0.5F, 0.5F}));
}

TEST(LevelMeasurementTest, AnOverstatedDataSizeEndsWithTheFile) {
  const Bytes data = WaveBytes::samplesFloat({0.25F, 0.5F, 0.5F, 0.25F});
  const Bytes file = WaveBytes().formatFloat().chunk("data", 0x7FFFFFFF, data).get();
  const Reader reader = WaveFileReader::readFromData(file);
  EXPECT_EQ(measure(*reader, 0.0, 1000.0), (Level{0.5F, 0.5F}));
  EXPECT_EQ(reader->readDataIdx(), 44U + 16);
}

TEST(LevelMeasurementTest, TheMaximaAreDecodedAsIfTheyWereOneFrame) {
  const Reader reader = Recording(100).frame(2, 0.5F, -1.0F).frame(5, -1.0F, 0.25F).reader(true);
  EXPECT_EQ(measure(*reader, 0.0, 1.0, 0.0, 120.0), (Level{0.75F, 0.25F}));
  EXPECT_EQ(measure(*reader, 0.0, 1.0, 0.0, 0.0), (Level{0.5F, 0.5F}));
}

TEST(LevelMeasurementTest, TheAngleIsCutToWholeDegrees) {
  const Reader reader = Recording(100).frame(2, 0.5F, 0.25F).reader(true);
  const Level level = measure(*reader, 0.0, 1.0, 0.0, 120.99);
  EXPECT_EQ(level, (Level{0.75F, 0.25F}));
  const double side = 0.25 * factor(-0.2);  // 119 degrees
  EXPECT_NEAR(measure(*reader, 0.0, 1.0, 0.0, 119.99).left, 0.5 + side, 1e-6);
}

TEST(LevelMeasurementTest, OnlyRawFilesAreDecoded) {
  const Reader reader = Recording(100).frame(2, 0.5F, 0.25F).reader(false);
  EXPECT_EQ(measure(*reader, 0.0, 1.0, 0.0, 120.0), (Level{0.5F, 0.25F}));
}

TEST(LevelMeasurementTest, TheGainIsAnAttenuationAfterTheDecode) {
  const Reader reader = Recording(100).frame(2, 0.5F, 0.25F).reader(true);
  const Level softer = measure(*reader, 0.0, 1.0, 12.0, 120.0);
  EXPECT_NEAR(softer.left, 0.75 / factor(12.0), 1e-6);
  EXPECT_NEAR(softer.right, 0.25 / factor(12.0), 1e-6);
  EXPECT_NEAR(measure(*reader, 0.0, 1.0, -6.0206, 120.0).left, 1.5, 1e-5);
}

TEST(LevelMeasurementTest, FramesWithoutBytesGiveTheMarker) {
  for (const std::uint16_t bits : {std::uint16_t{0}, std::uint16_t{7}}) {
    const Reader reader =
        WaveFileReader::readFromData(WaveBytes().format(1, 2, 48000, bits).data(Bytes(60)).get());
    reader->setIsBoMSFormat(true);
    EXPECT_EQ(measure(*reader, 0.0, 1.0, 20.0, 120.0), kNothing);
  }
  const Reader reader =
      WaveFileReader::readFromData(WaveBytes().format(1, 0, 48000, 24).data(Bytes(60)).get());
  EXPECT_EQ(measure(*reader, 0.0, 1.0, 20.0, 120.0), kNothing);
}

TEST(LevelMeasurementTest, FramesOfAnUnknownWidthReadAsTheMarker) {
  const Reader reader =
      WaveFileReader::readFromData(WaveBytes().format(1, 2, 48000, 8).data(Bytes(100)).get());
  EXPECT_EQ(measure(*reader, 0.0, 1.0), kNothing);
  EXPECT_EQ(reader->readDataIdx(), 100U);
}

TEST(LevelMeasurementTest, AStartPastTheEndMeasuresNothing) {
  const Reader reader = Recording(100, 0.5F).reader();
  EXPECT_EQ(measure(*reader, 50.0, 60.0), kNothing);
  EXPECT_EQ(reader->readDataIdx(), 44U + 8 * 400);
  EXPECT_EQ(measure(*reader, std::numeric_limits<double>::infinity(), 60.0), kNothing);
  EXPECT_EQ(measure(*reader, 1e300, 1e300), kNothing);
}

TEST(LevelMeasurementTest, APeakIsFoundAtAnyPlaceOfALongStretch) {
  for (std::size_t loud = 0; loud < 3000; loud += 7) {
    const Reader reader = Recording(3100, 0.125F).frame(loud, 0.5F, 0.75F).reader();
    ASSERT_EQ(measure(*reader, 0.0, 3000.0 / kRate), (Level{0.5F, 0.75F})) << loud;
  }
}

TEST(LevelMeasurementTest, OnlyWhatIsAtHandIsMeasured) {
  const TemporaryFolder folder;
  std::string whyNot;
  const Reader reader =
      WaveFileReader::openFile(folder.file("a.wav", Recording(100, 0.5F).file()), whyNot);
  ASSERT_NE(reader, nullptr) << whyNot;
  EXPECT_EQ(measure(*reader, 0.0, 1.0), kNothing);
  while (!reader->follow(0.0, 1.0)) std::this_thread::yield();
  EXPECT_EQ(measure(*reader, 0.0, 1.0), (Level{0.5F, 0.5F}));
}

TEST(LevelMeasurementTest, ADisposedReaderMeasuresNothing) {
  const Reader reader = Recording(100, 0.5F).reader();
  reader->dispose();
  EXPECT_EQ(measure(*reader, 0.0, 1.0), kNothing);
}
