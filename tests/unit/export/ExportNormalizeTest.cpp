// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "OddNumbers.h"
#include "unit/export/ExportFixture.h"

namespace {

using testing::ElementsAre;
using testing::FloatEq;

class ExportNormalizeTest : public ExportFixture {
 protected:
  static constexpr Settings kNormalize{120, 0, true};
};

TEST_F(ExportNormalizeTest, DoublesAFileThatPeaksAtOneHalf) {
  const Bytes source = recordingFloat({0.25F, -0.125F, 0.5F, 0.0F}, false);
  EXPECT_THAT(exportedFloats(source, kNormalize),
              ElementsAre(FloatEq(0.5F), FloatEq(-0.25F), FloatEq(1.0F), FloatEq(0.0F)));
  const std::vector<std::int32_t> narrow = exported24(source, kNormalize);
  EXPECT_GE(narrow.at(2), kMost - 1);
  EXPECT_NEAR(narrow.at(0), 4194303, 1);
  EXPECT_NEAR(narrow.at(1), -2097151, 1);
}

// The factor goes through decibels and back, in double, as it is.
TEST_F(ExportNormalizeTest, DividesByThePeakByWayOfDecibels) {
  for (const float peak : {0.5F, 0.1F, 0.9999F, 3.0F, 1e-4F}) {
    const double dB = 20.0 * std::log10(static_cast<double>(peak));
    const auto divisor = static_cast<float>(std::pow(10.0, dB / 20.0));
    EXPECT_THAT(exportedFloats(recordingFloat({peak, -peak / 3}, false), kNormalize),
                ElementsAre(peak / divisor, -peak / 3 / divisor));
  }
}

TEST_F(ExportNormalizeTest, CountsNegativePeaks) {
  EXPECT_THAT(exportedFloats(recordingFloat({0.25F, -0.5F}, false), kNormalize),
              ElementsAre(FloatEq(0.5F), FloatEq(-1.0F)));
}

TEST_F(ExportNormalizeTest, LooksAtBothChannelsAndScalesThemAlike) {
  EXPECT_THAT(exportedFloats(recordingFloat({0.125F, 0.0F, 0.0F, 0.25F}, false), kNormalize),
              ElementsAre(FloatEq(0.5F), FloatEq(0.0F), FloatEq(0.0F), FloatEq(1.0F)));
}

TEST_F(ExportNormalizeTest, BringsDownWhatIsTooLoud) {
  EXPECT_THAT(exportedFloats(recordingFloat({4.0F, -2.0F}, false), kNormalize),
              ElementsAre(FloatEq(1.0F), FloatEq(-0.5F)));
}

TEST_F(ExportNormalizeTest, TakesThePeakAfterTheDecode) {
  const Bytes source = recordingFloat({0.25F, 0.25F}, true);  // 0.5 and 0 at 120 degrees
  EXPECT_THAT(exportedFloats(source, kNormalize), ElementsAre(FloatEq(1.0F), FloatEq(0.0F)));
  EXPECT_THAT(exportedFloats(source, {0, 0, true}), ElementsAre(FloatEq(1.0F), FloatEq(1.0F)));
}

TEST_F(ExportNormalizeTest, DoesNotLookAtTheGain) {
  const Bytes source = recordingFloat({0.3F, 0.1F}, true);
  EXPECT_EQ(exportedFloats(source, {120, 24.0, true}), exportedFloats(source, kNormalize));
}

TEST_F(ExportNormalizeTest, LeavesSilenceSilent) {
  const std::vector<float> silence(6000, 0.0F);
  EXPECT_EQ(exportedFloats(recordingFloat(silence, true), kNormalize), silence);
  EXPECT_EQ(exported24(recordingFloat(silence, true), kNormalize),
            std::vector<std::int32_t>(6000, 0));
}

TEST_F(ExportNormalizeTest, FindsThePeakInAnyBlock) {
  for (const std::size_t place : {0U, 5119U, 5120U, 5121U, 9999U}) {
    std::vector<float> samples(10000, 0.125F);
    samples[place] = -0.25F;
    const std::vector<float> scaled = exportedFloats(recordingFloat(samples, false), kNormalize);
    EXPECT_FLOAT_EQ(scaled.at(place), -1.0F) << place;
    EXPECT_EQ(std::count(scaled.begin(), scaled.end(), scaled.at(1)), 9999 - (place == 1));
  }
}

TEST_F(ExportNormalizeTest, ScalesTheFaintestPeak) {
  const std::vector<float> scaled =
      exportedFloats(recordingFloat({1e-30F, 5e-31F}, false), kNormalize);
  EXPECT_FLOAT_EQ(scaled.at(0), 1.0F);
  EXPECT_FLOAT_EQ(scaled.at(1), 0.5F);
}

TEST_F(ExportNormalizeTest, DoesNotTakeWhatIsNoNumberForAPeak) {
  const Bytes source = recordingFloat({kNaN, 0.25F, -0.5F, kNaN}, false);
  const std::vector<float> scaled = exportedFloats(source, kNormalize);
  EXPECT_TRUE(std::isnan(scaled.at(0)));
  EXPECT_FLOAT_EQ(scaled.at(1), 0.5F);
  EXPECT_FLOAT_EQ(scaled.at(2), -1.0F);
  const std::vector<std::int32_t> narrow = exported24(source, kNormalize);
  EXPECT_EQ(narrow.at(0), kLeast);
  EXPECT_EQ(narrow.at(3), kLeast);
}

TEST_F(ExportNormalizeTest, LeavesNothingBesideAnInfinitePeak) {
  const Bytes source = recordingFloat({kInfinity, 0.5F}, false);
  const std::vector<float> scaled = exportedFloats(source, kNormalize);
  EXPECT_TRUE(std::isnan(scaled.at(0)));
  EXPECT_EQ(scaled.at(1), 0.0F);
  EXPECT_THAT(exported24(source, kNormalize), ElementsAre(kLeast, 0));
}

TEST_F(ExportNormalizeTest, TellsTheGainThatItCameTo) {
  Export job(_folder.file("in.wav", recordingFloat({0.5F, 0.0F, -0.25F, 0.0F}, false)));
  EXPECT_EQ(job.normalizeGain(), std::nullopt);
  ASSERT_TRUE(job.export2File(target(), true, true)) << job.failure();
  ASSERT_TRUE(job.normalizeGain());
  EXPECT_NEAR(*job.normalizeGain(), 20 * std::log10(2.0), 1e-9);
  EXPECT_EQ(job.clipping().samples(), 0U);
  ASSERT_TRUE(job.export2File(target(), true, false)) << job.failure();
  EXPECT_EQ(job.normalizeGain(), std::nullopt);
  Export silent(_folder.file("silent.wav", recordingFloat({0.0F, 0.0F}, false)));
  ASSERT_TRUE(silent.export2File(target(), true, true)) << silent.failure();
  EXPECT_EQ(silent.normalizeGain(), std::nullopt);
}

}  // namespace
