// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <random>
#include <vector>

#include "analysis/TakeAnalyzer.h"
#include "unit/export/ExportFixture.h"

namespace {

class ExportLoudnessTest : public ExportFixture {
 protected:
  // Two seconds of noise, a little of it at the sides.
  static std::vector<float> noise(float level) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> value(-level, level);
    std::vector<float> samples;
    for (int i = 0; i < 96000; ++i) {
      samples.push_back(value(random));
      samples.push_back(0.4F * value(random));
    }
    return samples;
  }

  /// 12 dB apart, with the gate between them.
  static std::vector<float> loudAndQuiet() {
    std::vector<float> samples = noise(0.0009F);
    const std::vector<float> quiet = noise(0.00022F);
    samples.insert(samples.end(), quiet.begin(), quiet.end());
    return samples;
  }

  static std::shared_ptr<const TakeAnalysis> analysisOf(const std::filesystem::path& path) {
    const Export job(path);
    return TakeAnalyzer(*job.reader()).wait();
  }

  // What the export measures.
  TakeFigures measured() const { return analysisOf(target())->at(120, 0); }

  bool exportTo(Export& job, double lufs, double truePeak) const {
    job.setAngle(95);
    job.setLoudness(LoudnessTarget{lufs, truePeak});
    return job.export2File(target(), false, false);
  }
};

}  // namespace

TEST_F(ExportLoudnessTest, BringsTheTakeToTheLoudness) {
  Export job(_folder.file("in.wav", recordingFloat(noise(0.1F), true)));
  for (const double lufs : {-40.0, -23.0, -60.0}) {
    ASSERT_TRUE(exportTo(job, lufs, 0)) << job.failure();
    EXPECT_NEAR(measured().integratedLufs.value_or(0), lufs, 1e-3);
    EXPECT_EQ(job.loudnessGain()->loweredBy(), 0);
  }
}

TEST_F(ExportLoudnessTest, TheTruePeakKeepsTheGainDown) {
  Export job(_folder.file("in.wav", recordingFloat(noise(0.1F), true)));
  ASSERT_TRUE(exportTo(job, -5, -3));
  EXPECT_NEAR(measured().truePeakDbtp.value_or(0), -3, 1e-3);
  const double lowered = job.loudnessGain()->loweredBy();
  EXPECT_GT(lowered, 1);
  EXPECT_NEAR(measured().integratedLufs.value_or(0), -5 - lowered, 1e-3);
}

TEST_F(ExportLoudnessTest, QuietPartsThatComeOverTheGateCount) {
  Export job(_folder.file("in.wav", recordingFloat(loudAndQuiet(), true)));
  ASSERT_TRUE(exportTo(job, -30, 0)) << job.failure();
  EXPECT_NEAR(measured().integratedLufs.value_or(0), -30, 1e-3);
}

TEST_F(ExportLoudnessTest, WhatIsToldIsTheLoudnessThatIsWritten) {
  const auto path = _folder.file("in.wav", recordingFloat(loudAndQuiet(), true));
  const TakeFigures plain = analysisOf(path)->at(95, 0);
  Export job(path);
  // The quiet part counts at the loudness that is asked for, and not at the one that is left.
  ASSERT_TRUE(exportTo(job, -30, plain.truePeakDbtp.value_or(0) + 0.5)) << job.failure();
  const double lowered = job.loudnessGain()->loweredBy();
  const double told = job.loudnessGain()->lufs().value_or(0);
  EXPECT_NEAR(told, plain.integratedLufs.value_or(0) + 0.5, 1e-3);
  EXPECT_NEAR(told, measured().integratedLufs.value_or(0), 1e-3);
  EXPECT_GT(told, -30 - lowered + 1) << "the gates move";
}

TEST_F(ExportLoudnessTest, ASilentTakeIsRefusedAndNothingAppears) {
  Export job(_folder.file("in.wav", recordingFloat(std::vector<float>(96000), true)));
  EXPECT_FALSE(exportTo(job, -23, -1));
  EXPECT_THAT(job.failure(), testing::HasSubstr("no loudness"));
  EXPECT_FALSE(job.wasCancelled());
  EXPECT_FALSE(std::filesystem::exists(target()));
}

TEST_F(ExportLoudnessTest, CancelEndsThePassAndNothingAppears) {
  Export job(_folder.file("in.wav", recordingFloat(noise(0.1F), true)));
  const std::atomic<bool> cancel{true};
  job.setCancelFlag(&cancel);
  EXPECT_FALSE(exportTo(job, -23, -1));
  EXPECT_TRUE(job.wasCancelled());
  EXPECT_FALSE(std::filesystem::exists(target()));
}

TEST_F(ExportLoudnessTest, ProgressGoesOnceFromNothingToAll) {
  Export job(_folder.file("in.wav", recordingFloat(noise(0.1F), true)));
  std::vector<double> reports;
  job.setProgress([&](double done) { reports.push_back(done); });
  ASSERT_TRUE(exportTo(job, -23, -1));
  EXPECT_TRUE(std::ranges::is_sorted(reports));
  ASSERT_FALSE(reports.empty());
  EXPECT_EQ(reports.back(), 1.0);
}

TEST_F(ExportLoudnessTest, NormalisedByAnAnalysisIsNormalisedByAFirstPassToTheLastBit) {
  const Bytes source = recordingFloat(noise(0.3F), true);
  const auto path = _folder.file("known.wav", source);
  const auto analysis = analysisOf(path);
  for (int width = 0; width <= 150; width += 10) {
    const auto wanted = exportedFloats(source, {width + 0.9, 0, true});
    Export job(path);
    job.setAngle(width + 0.9);
    job.setAnalysis(analysis);
    std::size_t reports = 0;
    job.setProgress([&](double) { ++reports; });
    ASSERT_TRUE(job.export2File(target(), false, true));
    EXPECT_EQ(ByteView(TemporaryFolder::read(target())).allFloats(kSamples), wanted) << width;
    EXPECT_EQ(reports, 1U);  // one pass over a short take
  }
}

TEST_F(ExportLoudnessTest, AnAnalysisOfSomethingElseIsNotUsed) {
  const Bytes quiet = recordingFloat({0.25F, 0.0F, 0.0F, 0.0F}, true);
  const Bytes loud = recordingFloat({0.5F, 0.0F, 0.0F, 0.0F}, true);
  const auto path = _folder.file("in.wav", quiet);
  const auto firstSample = [&](const std::shared_ptr<const TakeAnalysis>& analysis) {
    Export job(path);
    job.setAnalysis(analysis);
    EXPECT_TRUE(job.export2File(target(), false, true));
    return ByteView(TemporaryFolder::read(target())).allFloats(kSamples).at(0);
  };
  EXPECT_FLOAT_EQ(
      firstSample(analysisOf(_folder.file("short.wav", recordingFloat({0.5F, 0.0F}, true)))), 1.0F);
  EXPECT_FLOAT_EQ(firstSample(analysisOf(_folder.file("as-long.wav", loud))), 1.0F);

  _folder.file("in.wav", loud);
  const auto before = analysisOf(path);
  _folder.file("in.wav", quiet);
  std::filesystem::last_write_time(
      path, std::filesystem::last_write_time(path) + std::chrono::seconds(1));
  EXPECT_FLOAT_EQ(firstSample(before), 1.0F) << "written to since";

  TakeAnalyzer::Options options;
  options.firstFrame = 1;
  Export job(path);
  job.setRange(FrameRange{0, 1});
  job.setAnalysis(TakeAnalyzer(*job.reader(), options).wait());
  ASSERT_TRUE(job.export2File(target(), false, true));
  EXPECT_FLOAT_EQ(ByteView(TemporaryFolder::read(target())).allFloats(kSamples).at(0), 1.0F)
      << "another stretch, as long";
}
