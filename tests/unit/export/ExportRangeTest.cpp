// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cmath>

#include "ExportFixture.h"
#include "analysis/TakeAnalyzer.h"
#include "export/ClipSearch.h"
#include "export/Export.h"

namespace {

constexpr std::uint64_t kFrames = 480'000;
constexpr std::ptrdiff_t kDate = 56 + 320;  // in the broadcast extension
constexpr std::ptrdiff_t kDateSize = 18;

/// Mid swells and falls, so that stretches differ in level; Side is a slow wave.
std::vector<float> swelling() {
  std::vector<float> samples;
  for (std::uint64_t i = 0; i < kFrames; ++i) {
    const double t = static_cast<double>(i) / 48'000;
    samples.push_back(static_cast<float>(0.4 * std::sin(t) * std::sin(2000 * t)));
    samples.push_back(static_cast<float>(0.2 * std::sin(300 * t)));
  }
  return samples;
}

constexpr const TakeAnalysis* kNobodyKnows = nullptr;

class ExportRangeTest : public ExportFixture {
 protected:
  void SetUp() override { source = _folder.file("in.wav", recordingFloat(swelling(), true)); }

  std::vector<float> exportedRange(Export& job, const std::optional<FrameRange>& range,
                                   bool isNormalized = false) const {
    job.setAngle(90);
    job.setRange(range);
    EXPECT_TRUE(job.export2File(target(), false, isNormalized)) << job.failure();
    return ByteView(TemporaryFolder::read(target())).allFloats(kSamples);
  }
  std::vector<std::byte> undated(Export& job, bool is24bit, bool isNormalized) const {
    EXPECT_TRUE(job.export2File(target(), is24bit, isNormalized)) << job.failure();
    std::vector<std::byte> bytes = TemporaryFolder::read(target());
    EXPECT_EQ(bytes.size(), job.outputSize(is24bit));
    EXPECT_GT(bytes.size(), kSamples);
    std::fill_n(bytes.begin() + kDate, kDateSize, std::byte{});
    return bytes;
  }
  static float peakOf(const std::vector<float>& samples) {
    float peak = 0;
    for (const float sample : samples) peak = std::max(peak, std::fabs(sample));
    return peak;
  }

  std::filesystem::path source;
};

TEST_F(ExportRangeTest, IsThatPieceOfTheWhole) {
  Export job(source);
  const std::vector<float> whole = exportedRange(job, std::nullopt);
  const std::vector<std::byte> header = TemporaryFolder::read(target());
  for (const FrameRange range :
       {FrameRange{0, 1}, FrameRange{1'000, 97'001}, FrameRange{479'999, 480'000}}) {
    const std::vector<float> piece = exportedRange(job, range);
    const std::vector<float> wanted(whole.begin() + static_cast<std::ptrdiff_t>(2 * range.first),
                                    whole.begin() + static_cast<std::ptrdiff_t>(2 * range.end));
    EXPECT_EQ(piece, wanted);
    const auto bytes = TemporaryFolder::read(target());
    EXPECT_EQ(bytes.size(), job.outputSize(false));
    // From the chunk of zeros on to the size of the data; the date may be another second's.
    const auto first = bytes.begin();
    const auto other = header.begin() + kDate + kDateSize;
    EXPECT_TRUE(std::equal(first + 12, first + kDate, header.begin() + 12));
    EXPECT_TRUE(std::equal(first + kDate + kDateSize, first + 744, other));
  }
}

TEST_F(ExportRangeTest, IsCutToTheFile) {
  Export job(source);
  EXPECT_EQ(exportedRange(job, FrameRange{479'990, 999'999}).size(), 20U);
  EXPECT_EQ(exportedRange(job, FrameRange{999'999, 1'000'000}).size(), 0U);
}

TEST_F(ExportRangeTest, IsBroughtToFullScaleByItself) {
  Export job(source);
  const FrameRange quiet{0, 9'600};
  ASSERT_LT(peakOf(exportedRange(job, quiet)), 0.3F);
  EXPECT_FLOAT_EQ(peakOf(exportedRange(job, quiet, true)), 1.0F);
  TakeAnalyzer::Options options;
  options.endFrame = quiet.end;
  job.setAnalysis(TakeAnalyzer(*job.reader(), options).wait());
  EXPECT_FLOAT_EQ(peakOf(exportedRange(job, quiet, true)), 1.0F) << "from an analysis of it";
}

TEST_F(ExportRangeTest, IsBroughtToALoudnessByItself) {
  Export job(source);
  job.setLoudness(LoudnessTarget{-30, -1});
  exportedRange(job, FrameRange{48'000, 192'000});
  Export written(target());
  const auto analysis = TakeAnalyzer(*written.reader()).wait();
  ASSERT_NE(analysis, nullptr);
  ASSERT_TRUE(analysis->at(120, 0).integratedLufs.has_value());
  EXPECT_NEAR(*analysis->at(120, 0).integratedLufs, -30, 0.05);
}

// Every byte but those of the date, in both formats, at every kind of level.
TEST_F(ExportRangeTest, IsTheExportOfAFileThatHasNothingElse) {
  const FrameRange range{99'999, 250'000};
  const std::vector<float> all = swelling();
  const auto place = [&](std::uint64_t frame) {
    return all.begin() + static_cast<std::ptrdiff_t>(2 * frame);
  };
  const std::vector<float> piece(place(range.first), place(range.end));
  Export cut(_folder.file("cut.wav", recordingFloat(piece, true)));
  Export job(source);
  job.setRange(range);
  using Target = std::optional<LoudnessTarget>;
  for (const Target& loudness : {Target(), Target({-20, -1})}) {
    for (Export* const each : {&cut, &job}) {
      each->setAngle(75);
      each->setGain(5);
      each->setLoudness(loudness);
    }
    for (const bool is24bit : {true, false}) {
      for (const bool isNormalized : {true, false}) {
        EXPECT_EQ(undated(job, is24bit, isNormalized), undated(cut, is24bit, isNormalized));
      }
    }
  }
}

TEST_F(ExportRangeTest, LetsTheAnalysisOfAnotherStretchGo) {
  Export job(source);
  job.setLoudness(LoudnessTarget{-30, -1});
  exportedRange(job, FrameRange{0, 48'000});
  const double first = job.loudnessGain()->gain().value();
  exportedRange(job, FrameRange{96'000, 144'000});
  EXPECT_GT(std::fabs(job.loudnessGain()->gain().value() - first), 1);
}

TEST_F(ExportRangeTest, HasItsMarksInItsName) {
  EXPECT_EQ(Export::nameForSelection("/a/R0001.WAV"), "R0001_Decode_A-B.WAV");
  EXPECT_EQ(Export::nameForSelection("b.c.wav"), "b.c_Decode_A-B.WAV");
}

TEST_F(ExportRangeTest, SearchFindsWhatAnExportCutsOff) {
  Export job(source);
  const auto analysis = TakeAnalyzer(*job.reader()).wait();
  ASSERT_NE(analysis, nullptr);
  const FrameRange all{0, job.reader()->frameCount()};
  const std::atomic<bool> cancel{false};
  std::uint64_t most = 0;
  for (const double gain : {0.0, 7.0, 9.0, 20.0}) {
    job.setGain(gain);
    job.setAngle(90);
    ASSERT_TRUE(job.export2File(target(), true, false));
    for (const TakeAnalysis* const whole : {analysis.get(), kNobodyKnows}) {
      const auto found = ClipSearch::find(*job.reader(), whole, all, 90, gain, cancel);
      ASSERT_TRUE(found.has_value());
      EXPECT_EQ(found->samples(), job.clipping().samples()) << gain;
      EXPECT_EQ(found->placeCount(), job.clipping().placeCount()) << gain;
      most = std::max(most, found->placeCount());
    }
  }
  EXPECT_GT(most, 1U) << "or nothing is shown here";
  const std::atomic<bool> cancelled{true};
  EXPECT_FALSE(ClipSearch::find(*job.reader(), analysis.get(), all, 90, 20, cancelled).has_value());
}

// Integers that stay integers, which are looked at block by block only where one of a block clips.
TEST_F(ExportRangeTest, OfIntegersEveryClippedSampleIsFound) {
  constexpr std::int32_t kLoud = 0x600000;  // 0.75; at 120 degrees Mid and Side are added
  constexpr std::size_t kLast = 99'999;
  for (const std::vector<std::size_t>& loud :
       {std::vector<std::size_t>{0, 10'882, 10'883, 43'690, 87'380, 87'381, kLast},
        std::vector<std::size_t>{50'000}}) {
    std::vector<std::int32_t> samples(2 * (kLast + 1), 0x100000);
    for (const std::size_t frame : loud) samples[2 * frame] = samples[2 * frame + 1] = kLoud;
    Export job(_folder.file("in.wav", recording24(samples, true)));
    job.setAngle(120);
    for (const FrameRange& range : {FrameRange{0, kLast + 1}, FrameRange{10'883, 87'381}}) {
      job.setRange(range);
      ASSERT_TRUE(job.export2File(target(), true, false)) << job.failure();
      const auto isInside = [&](std::size_t i) { return i >= range.first && i < range.end; };
      EXPECT_EQ(job.clipping().samples(), std::ranges::count_if(loud, isInside));
      EXPECT_EQ(job.clipping().peak(), 1.5F);
      const std::atomic<bool> cancel{false};
      const auto found = ClipSearch::find(*job.reader(), kNobodyKnows, range, 120, 0, cancel);
      ASSERT_TRUE(found.has_value());
      ASSERT_EQ(job.clipping().placeCount(), found->placeCount());
      for (std::size_t i = 0; i < found->places().size(); ++i) {
        EXPECT_EQ(job.clipping().places()[i].first, found->places()[i].first);
        EXPECT_EQ(job.clipping().places()[i].last, found->places()[i].last);
      }
      EXPECT_EQ(found->places().front().first, *std::ranges::find_if(loud, isInside) - range.first);
    }
  }
}

TEST_F(ExportRangeTest, SearchLooksAtAStretchAlone) {
  Export job(source);
  const auto analysis = TakeAnalyzer(*job.reader()).wait();
  job.setGain(9);
  job.setAngle(90);
  for (const FrameRange& range : {FrameRange{100'000, 200'000}, FrameRange{100'001, 163'777}}) {
    job.setRange(range);
    std::filesystem::remove(target());
    ASSERT_TRUE(job.export2File(target(), true, false));
    const std::atomic<bool> cancel{false};
    for (const TakeAnalysis* const whole : {analysis.get(), kNobodyKnows}) {
      const auto found = ClipSearch::find(*job.reader(), whole, range, 90, 9, cancel);
      ASSERT_TRUE(found.has_value());
      EXPECT_GT(found->samples(), 0U);
      EXPECT_EQ(found->samples(), job.clipping().samples());
      EXPECT_EQ(found->placeCount(), job.clipping().placeCount());
    }
  }
}

}  // namespace
