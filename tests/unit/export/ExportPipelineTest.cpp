// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What becomes of the samples without normalisation.

#include <gmock/gmock.h>

#include <bit>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "OddNumbers.h"
#include "unit/export/ExportFixture.h"

namespace {

using testing::ElementsAre;

class ExportPipelineTest : public ExportFixture {
 protected:
  /// One stereo value through an export that decodes nothing and changes no level.
  std::int32_t stored(float sample) const {
    return exported24(recordingFloat({sample, 0.0F}, false), {}).at(0);
  }
};

TEST_F(ExportPipelineTest, DecodesMidAndSide) {
  const Bytes source = recordingFloat({0.5F, 0.25F}, true);
  EXPECT_THAT(exportedFloats(source, {120}), ElementsAre(0.75F, 0.25F));
  EXPECT_THAT(exportedFloats(source, {0}), ElementsAre(0.5F, 0.5F));
  EXPECT_THAT(exportedFloats(source, {20}), ElementsAre(0.5F + 0.25F * 0.1F, 0.5F - 0.25F * 0.1F));
}

TEST_F(ExportPipelineTest, LeavesChannelsThatAreNotRaw) {
  const Bytes source = recordingFloat({0.5F, 0.25F, -1.5F, 3.0F}, false);
  EXPECT_THAT(exportedFloats(source, {0}), ElementsAre(0.5F, 0.25F, -1.5F, 3.0F));
  EXPECT_THAT(exportedFloats(source, {150}), ElementsAre(0.5F, 0.25F, -1.5F, 3.0F));
}

TEST_F(ExportPipelineTest, GainsChannelsThatAreNotRaw) {
  const std::vector<float> louder = exportedFloats(recordingFloat({0.5F, -0.25F}, false), {0, 6.0});
  EXPECT_NEAR(louder.at(0), 0.5 * std::pow(10.0, 0.3), 1e-7);
  EXPECT_NEAR(louder.at(1), -0.25 * std::pow(10.0, 0.3), 1e-7);
}

// The gain is a division by a factor in single precision, not a multiplication.
TEST_F(ExportPipelineTest, DividesByTheFactorOfTheGain) {
  for (const double gain : {-36.0, -6.0, -0.1, 0.0, 3.3, 36.0}) {
    const auto divisor = static_cast<float>(std::pow(10.0, -gain / 20.0));
    EXPECT_THAT(exportedFloats(recordingFloat({0.3F, -0.7F}, false), {120, gain}),
                ElementsAre(0.3F / divisor, -0.7F / divisor))
        << gain;
  }
}

TEST_F(ExportPipelineTest, TruncatesTheAngleToWholeDegrees) {
  const Bytes source = recordingFloat({0.5F, 0.25F}, true);
  EXPECT_EQ(exportedFloats(source, {119.999}), exportedFloats(source, {119}));
  EXPECT_NE(exportedFloats(source, {119.999}), exportedFloats(source, {120}));
  EXPECT_EQ(exportedFloats(source, {0.999}), exportedFloats(source, {0}));
}

TEST_F(ExportPipelineTest, ClampsTheAngle) {
  const Bytes source = recordingFloat({0.5F, 0.25F}, true);
  EXPECT_EQ(exportedFloats(source, {1e12}), exportedFloats(source, {150}));
  EXPECT_EQ(exportedFloats(source, {-20}), exportedFloats(source, {0}));
  EXPECT_EQ(exportedFloats(source, {std::nan("")}), exportedFloats(source, {0}));
}

TEST_F(ExportPipelineTest, ScalesBothSignsBy8388607AndTruncates) {
  EXPECT_EQ(stored(0.5F), 4194303);  // of 4194303.5
  EXPECT_EQ(stored(-0.5F), -4194303);
  EXPECT_EQ(stored(0.25F), 2097151);  // of 2097151.75
  EXPECT_EQ(stored(-0.25F), -2097151);
  EXPECT_EQ(stored(1.0F / 8388608), 0);
  EXPECT_EQ(stored(-1.0F / 8388608), 0);
  EXPECT_EQ(stored(1.0F / 8388607), 1);
  EXPECT_EQ(stored(0.0F), 0);
  EXPECT_EQ(stored(-0.0F), 0);
  EXPECT_EQ(stored(std::numeric_limits<float>::denorm_min()), 0);
}

// The product next to full scale is 8388606.5 in single precision; it is not rounded up.
TEST_F(ExportPipelineTest, TruncatesJustBelowOne) {
  const float below = std::nextafter(1.0F, 0.0F);
  EXPECT_EQ(stored(below), 8388606);
  EXPECT_EQ(stored(-below), -8388606);
}

TEST_F(ExportPipelineTest, ClipsAt24Bit) {
  EXPECT_EQ(stored(1.0F), kMost);
  EXPECT_EQ(stored(-1.0F), kLeast);
  EXPECT_EQ(stored(1.5F), kMost);
  EXPECT_EQ(stored(-1.5F), kLeast);
  EXPECT_EQ(stored(std::numeric_limits<float>::max()), kMost);
  EXPECT_EQ(stored(std::numeric_limits<float>::lowest()), kLeast);
  EXPECT_EQ(stored(kInfinity), kMost);
  EXPECT_EQ(stored(-kInfinity), kLeast);
  EXPECT_EQ(stored(kNaN), kLeast);
  EXPECT_EQ(stored(-kNaN), kLeast);
}

TEST_F(ExportPipelineTest, KeepsEveryFloat) {
  const std::vector<float> values{
      1.0F,      -1.0F,      1.5F,  -7e30F,
      kInfinity, -kInfinity, -0.0F, std::numeric_limits<float>::denorm_min()};
  EXPECT_EQ(exportedFloats(recordingFloat(values, false), {}), values);
  EXPECT_TRUE(std::signbit(exportedFloats(recordingFloat({-0.0F, 0.0F}, false), {}).at(0)));
  EXPECT_TRUE(std::isnan(exportedFloats(recordingFloat({kNaN, 0.0F}, false), {}).at(0)));
}

TEST_F(ExportPipelineTest, ClipsWhatTheGainLifts) {
  const Bytes source = recordingFloat({0.6F, -0.6F}, false);
  EXPECT_THAT(exported24(source, {120, 6.0}), ElementsAre(kMost, kLeast));
  EXPECT_NEAR(exportedFloats(source, {120, 6.0}).at(0), 1.197, 0.001);
  EXPECT_NEAR(exportedFloats(source, {120, 6.0}).at(1), -1.197, 0.001);
}

TEST_F(ExportPipelineTest, ClipsWhatAWideAngleLifts) {
  const Bytes source = recordingFloat({0.6F, 0.5F}, true);
  const std::vector<std::int32_t> narrow = exported24(source, {150});
  EXPECT_EQ(narrow.at(0), kMost);
  EXPECT_NEAR(narrow.at(1), -0.3976 * 8388607, 500);
  EXPECT_NEAR(exportedFloats(source, {150}).at(0), 1.5976, 0.0001);
  EXPECT_NEAR(exportedFloats(source, {150}).at(1), -0.3976, 0.0001);
}

// Clipping comes last: what the angle lifts past full scale comes back with a softer gain.
TEST_F(ExportPipelineTest, DoesNotClipBetweenAngleAndGain) {
  const Bytes source = recordingFloat({0.9F, 0.9F}, true);
  EXPECT_NEAR(exported24(source, {120, -12.0}).at(0), 1.8 * std::pow(10.0, -0.6) * 8388607, 2);
}

TEST_F(ExportPipelineTest, Decodes24BitSources) {
  const Bytes source = recording24({kMost, 0, kLeast, 0, 1, 0, -1, 0}, false);
  EXPECT_THAT(exportedFloats(source, {}),
              ElementsAre(8388607.0F / 8388608.0F, 0.0F, -1.0F, 0.0F, 1.0F / 8388608.0F, 0.0F,
                          -1.0F / 8388608.0F, 0.0F));
  // A value loses up to one step on its way: it is scaled by 2^-23 and back by 8388607.
  EXPECT_THAT(exported24(source, {}), ElementsAre(8388606, 0, kLeast, 0, 0, 0, 0, 0));
}

TEST_F(ExportPipelineTest, TakesBlocksOfAnySize) {
  for (const int frames : {1, 2, 2559, 2560, 2561, 5120, 5121}) {
    std::vector<float> samples;
    for (int i = 0; i < 2 * frames; ++i) samples.push_back(static_cast<float>(i) / 16384.0F);
    const ByteView file = exported(recordingFloat(samples, false), false, {});
    EXPECT_EQ(file.u32(744), 8U * static_cast<unsigned>(frames));
    EXPECT_EQ(file.allFloats(kSamples), samples) << frames;
  }
}

TEST_F(ExportPipelineTest, WritesNoSamplesOfAnEmptyRecording) {
  for (const bool is24bit : {true, false}) {
    for (const bool normalize : {true, false}) {
      const ByteView file = exported(recording24({}, true), is24bit, {120, 0, normalize});
      EXPECT_EQ(file.size(), 748U);
      EXPECT_EQ(file.u32(4), 740U);
      EXPECT_EQ(file.u32(744), 0U);
    }
  }
}

TEST_F(ExportPipelineTest, WritesOneFrame) {
  const ByteView narrow = exported(recording24({4194304, 0}, false), true, {});
  EXPECT_EQ(narrow.u32(4), 746U);
  EXPECT_EQ(narrow.u32(744), 6U);
  EXPECT_THAT(narrow.all24(kSamples), ElementsAre(4194303, 0));
  const ByteView wide = exported(recording24({4194304, 0}, false), false, {});
  EXPECT_EQ(wide.u32(744), 8U);
  EXPECT_THAT(wide.allFloats(kSamples), ElementsAre(0.5F, 0.0F));
}

TEST_F(ExportPipelineTest, TellsWhat24BitsCutOff) {
  Export job(_folder.file("in.wav", recordingFloat({0.5F, 0.0F, 0.0F, -0.5F, 0.1F, 0.1F}, false)));
  job.setGain(12);
  ASSERT_TRUE(job.export2File(target(), true, false)) << job.failure();
  EXPECT_EQ(job.clipping().samples(), 2U);
  EXPECT_NEAR(job.clipping().peak(), 0.5 * std::pow(10.0, 0.6), 1e-6);
  ASSERT_TRUE(job.export2File(target(), false, false)) << job.failure();
  EXPECT_EQ(job.clipping().samples(), 0U);
}

}  // namespace
