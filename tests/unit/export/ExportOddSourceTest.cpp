// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Sources that the recorder does not write: other channel counts, widths and sizes.

#include <gmock/gmock.h>

#include <cmath>
#include <vector>

#include "OddNumbers.h"
#include "unit/export/ExportFixture.h"

namespace {

using testing::ElementsAre;
using testing::Eq;

class ExportOddSourceTest : public ExportFixture {
 protected:
  static WaveBytes source(std::uint16_t tag, std::uint16_t channels, std::uint16_t bits) {
    return WaveBytes().format(tag, channels, 48000, bits).recorderBext(false);
  }
};

// The right channel of a mono file keeps the marker for "no sample".
TEST_F(ExportOddSourceTest, WritesTwoChannelsOfAMonoSource) {
  const Bytes mono = source(3, 1, 32).data(WaveBytes::samplesFloat({0.5F, -0.5F})).get();
  const ByteView file = exported(mono, false, {});
  EXPECT_EQ(file.u16(724), 1U);  // the source's channel count
  EXPECT_EQ(file.u16(734), 4U);
  EXPECT_EQ(file.u32(744), 16U);
  EXPECT_THAT(file.allFloats(kSamples), ElementsAre(0.5F, -2.0F, -0.5F, -2.0F));
  EXPECT_THAT(exported24(mono, {}), ElementsAre(4194303, kLeast, -4194303, kLeast));
}

// The third sample is read at three times the width: the first one of the next frame.
TEST_F(ExportOddSourceTest, ReadsTheThirdChannelOneFrameOn) {
  const Bytes three =
      source(3, 3, 32)
          .data(WaveBytes::samplesFloat({0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F, 0.9F}))
          .chunk("tail", WaveBytes::samplesFloat({}))
          .get();
  const ByteView file = exported(three, false, {});
  EXPECT_EQ(file.u16(724), 3U);
  EXPECT_EQ(file.u16(734), 12U);
  EXPECT_EQ(file.u32(744), 24U);
  const std::vector<float> samples = file.allFloats(kSamples);
  ASSERT_EQ(samples.size(), 6U);
  EXPECT_THAT(std::vector<float>(samples.begin(), samples.begin() + 5),
              ElementsAre(0.1F, 0.4F, 0.4F, 0.7F, 0.7F));
  EXPECT_EQ(ByteBuilder().f32(samples[5]).get(), ByteBuilder().text("tail").get());
}

TEST_F(ExportOddSourceTest, ReadsNothingPastTheEndOfTheFile) {
  const Bytes three = source(3, 3, 32).data(WaveBytes::samplesFloat({0.1F, 0.2F, 0.3F})).get();
  EXPECT_THAT(exportedFloats(three, {}), ElementsAre(0.1F, 0.2F));
}

TEST_F(ExportOddSourceTest, Takes16BitSamplesForUnsigned) {
  const Bytes source16 = source(1, 2, 16).data(ByteBuilder().u16(0x4000).u16(0xFFFF).get()).get();
  EXPECT_THAT(exportedFloats(source16, {}), ElementsAre(0.5F, 65535.0F / 32768.0F));
  EXPECT_THAT(exported24(source16, {}), ElementsAre(4194303, kMost));
}

TEST_F(ExportOddSourceTest, Scales32BitIntegersToNothing) {
  const Bytes source32 =
      source(1, 2, 32).data(ByteBuilder().u32(0x40000000).u32(0x80000000).get()).get();
  EXPECT_THAT(exportedFloats(source32, {}),
              ElementsAre(std::ldexp(1.0F, -34), -std::ldexp(1.0F, -33)));
  EXPECT_THAT(exported24(source32, {}), ElementsAre(0, 0));
}

TEST_F(ExportOddSourceTest, WritesTheMarkerForWidthsItDoesNotKnow) {
  const Bytes source8 = source(1, 2, 8).data(Bytes(4)).get();
  EXPECT_THAT(exportedFloats(source8, {}), ElementsAre(-2.0F, -2.0F, -2.0F, -2.0F));
  EXPECT_THAT(exported24(source8, {}), ElementsAre(kLeast, kLeast, kLeast, kLeast));
}

TEST_F(ExportOddSourceTest, EndsWhereFramesHaveNoBytes) {
  for (const auto& [channels, bits] : {std::pair{0, 24}, std::pair{2, 0}, std::pair{2, 7}}) {
    const Bytes empty =
        source(1, static_cast<std::uint16_t>(channels), static_cast<std::uint16_t>(bits))
            .data(Bytes(60))
            .get();
    EXPECT_EQ(exported(empty, true, {}).u32(744), 0U);
    EXPECT_EQ(exported(empty, false, {120, 0, true}).u32(744), 0U);
  }
}

TEST_F(ExportOddSourceTest, LeavesATrailingPartOfAFrame) {
  Bytes samples = WaveBytes::samples24({4194304, 0, 4194304, 0});
  samples.pop_back();
  const Bytes cut = WaveBytes().format24().recorderBext(false).data(samples).get();
  EXPECT_THAT(exported24(cut, {}), ElementsAre(4194303, 0));
}

TEST_F(ExportOddSourceTest, ReadsToTheEndOfACutFile) {
  const Bytes samples = WaveBytes::samples24({4194304, 0, 2097152, 0});
  for (const std::uint32_t stated : {13U, 6000U, 0x7FFFFFF0U}) {
    const Bytes cut =
        WaveBytes().format24().recorderBext(false).chunk("data", stated, samples).get();
    const ByteView file = exported(cut, true, {});
    EXPECT_THAT(file.all24(kSamples), ElementsAre(4194303, 0, 2097151, 0)) << stated;
    EXPECT_EQ(file.u32(744), 12U);
  }
}

TEST_F(ExportOddSourceTest, ReadsTheStatedSizeOnly) {
  const Bytes source = WaveBytes()
                           .format24()
                           .recorderBext(false)
                           .chunk("data", 6, WaveBytes::samples24({4194304, 0, 1, 1}))
                           .get();
  EXPECT_THAT(exported24(source, {}), ElementsAre(4194303, 0));
}

TEST_F(ExportOddSourceTest, TakesTheLastOfTwoDataChunks) {
  const Bytes source = WaveBytes()
                           .format24()
                           .recorderBext(false)
                           .data(WaveBytes::samples24({1, 1, 1, 1}))
                           .data(WaveBytes::samples24({4194304, -4194304}))
                           .get();
  EXPECT_THAT(exported24(source, {}), ElementsAre(4194303, -4194303));
}

TEST_F(ExportOddSourceTest, TakesTheFormatAfterTheData) {
  const Bytes source = WaveBytes()
                           .recorderBext(false)
                           .data(WaveBytes::samples24({4194304, -4194304}))
                           .format24()
                           .get();
  EXPECT_THAT(exported24(source, {}), ElementsAre(4194303, -4194303));
}

}  // namespace
