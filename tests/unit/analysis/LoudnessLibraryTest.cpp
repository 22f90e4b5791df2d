// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// A second opinion: libebur128 measures what was decoded, at ten widths.

#include <ebur128.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "TestTake.h"
#include "analysis/TakeAnalysis.h"

namespace {

constexpr double kInaudible = -120;  // LUFS: how the filters come to rest in silence

struct Opinion {
  double integrated = 0;
  double range = 0;
  double shortTermMax = -HUGE_VAL;
  std::vector<double> momentary;  ///< of the 400 ms that end with each tenth of a second
  double truePeak = 0;
  double samplePeak = 0;
};

struct Destroy {
  void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
};

Opinion opinionOn(const Frames& leftRight, std::uint32_t rate) {
  constexpr int kModes = EBUR128_MODE_I | EBUR128_MODE_LRA | EBUR128_MODE_M | EBUR128_MODE_S |
                         EBUR128_MODE_TRUE_PEAK | EBUR128_MODE_SAMPLE_PEAK;
  const std::unique_ptr<ebur128_state, Destroy> state(ebur128_init(2, rate, kModes));
  Opinion opinion;
  const std::size_t block = rate / 10;
  for (std::size_t at = 0; at < leftRight.size() / 2; at += block) {
    const std::size_t count = std::min(block, leftRight.size() / 2 - at);
    ebur128_add_frames_float(state.get(), &leftRight[2 * at], count);
    double shortTerm = 0;
    ebur128_loudness_shortterm(state.get(), &shortTerm);
    double momentary = 0;
    ebur128_loudness_momentary(state.get(), &momentary);
    if (count == block) opinion.momentary.push_back(momentary);
    if (at + count >= 3 * std::size_t{rate}) {
      opinion.shortTermMax = std::max(opinion.shortTermMax, shortTerm);
    }
  }
  ebur128_loudness_global(state.get(), &opinion.integrated);
  ebur128_loudness_range(state.get(), &opinion.range);
  const std::vector<float> silence(64);  // for the end to come out of its filter
  ebur128_add_frames_float(state.get(), silence.data(), silence.size() / 2);
  for (unsigned channel = 0; channel < 2; ++channel) {
    double peak = 0;
    ebur128_true_peak(state.get(), channel, &peak);
    opinion.truePeak = std::max(opinion.truePeak, peak);
    ebur128_sample_peak(state.get(), channel, &peak);
    opinion.samplePeak = std::max(opinion.samplePeak, peak);
  }
  return opinion;
}

// Ours moves by half of a tenth of a second, so the greatest may be greater.
void expectMomentary(const TakeAnalysis& analysis, int width, const std::vector<double>& wanted,
                     double tolerance) {
  const std::size_t block = analysis.layout().blockFrames();
  double greatest = -HUGE_VAL;
  for (std::size_t i = 3; i < wanted.size(); ++i) {  // the first whole window ends there
    greatest = std::max(greatest, wanted[i]);
    const auto found = analysis.momentaryLufs(width, 0, (i + 1) * block - 1);
    if (wanted[i] < kInaudible) {
      EXPECT_LT(found.value_or(-HUGE_VAL), kInaudible) << i;
    } else {
      EXPECT_NEAR(found.value_or(99), wanted[i], tolerance) << i;
    }
  }
  EXPECT_GE(analysis.at(width, 0).momentaryMaxLufs.value_or(-99), greatest - tolerance);
}

void expectAgreement(const Frames& midSide, std::uint32_t rate, double loudness, double truePeak) {
  const auto analysis = TestTake::analyse(midSide, rate, true);
  for (const int width : {0, 3, 15, 40, 75, 100, 120, 131, 144, 150}) {
    SCOPED_TRACE(width);
    const Opinion opinion = opinionOn(TestTake::decoded(midSide, width), rate);
    const TakeFigures figures = analysis->at(width, 0);
    EXPECT_NEAR(figures.integratedLufs.value_or(99), opinion.integrated, loudness);
    EXPECT_NEAR(figures.rangeLu.value_or(99), opinion.range, std::max(loudness, 1e-3));
    EXPECT_NEAR(figures.shortTermMaxLufs.value_or(99), opinion.shortTermMax, loudness);
    expectMomentary(*analysis, width, opinion.momentary, loudness);
    EXPECT_NEAR(figures.truePeakDbtp.value_or(99), 20 * std::log10(opinion.truePeak), truePeak);
    EXPECT_NEAR(figures.samplePeakDbfs.value_or(99), 20 * std::log10(opinion.samplePeak), 1e-6);
  }
}

}  // namespace

TEST(LoudnessLibraryTest, AgreesAtTheRateOfTheRecorder) {
  expectAgreement(TestTake::wandering(48000, 14.3, 20), 48000, 1e-4, 1e-4);
  expectAgreement(TestTake::tones(48000, 9.9), 48000, 1e-4, 1e-4);
}

// The library leaves the gain of its high pass to the rate; the difference is that gain. Its filter
// for twice the rate is longer than ours.
TEST(LoudnessLibraryTest, AgreesAtOtherRates) {
  expectAgreement(TestTake::wandering(44100, 8.1, 21), 44100, 0.005, 1e-4);
  expectAgreement(TestTake::wandering(96000, 5.2, 22), 96000, 0.03, 0.3);
}
