// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/AnalysisKernels.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "GuardedBuffer.h"
#include "InstructionSetTest.h"
#include "SampleInputs.h"
#include "dsp/PlainAnalysisKernels.h"

namespace {

constexpr std::size_t kCounts = 48;  // frames: several of the widest vectors
constexpr std::size_t kOffsets = 16;
constexpr float kFar = std::numeric_limits<float>::infinity();

constexpr std::array kSides{PageEdgeBuffer<float>::Side::Before,
                            PageEdgeBuffer<float>::Side::After};

class AnalysisKernelsTest : public InstructionSetTest {};

std::vector<float> finite(SampleInputs& inputs, std::size_t count) {
  std::vector<float> values(count);
  for (float& value : values) {
    do value = inputs.any();
    while (!std::isfinite(value));
  }
  return values;
}

std::vector<float> someGains(SampleInputs& inputs, std::size_t count) {
  std::vector<float> gains(count);
  for (float& gain : gains) gain = 2.0F * std::fabs(inputs.audio());
  return gains;
}

std::vector<float> emptyExtremes(std::size_t gains) {
  std::vector<float> extremes(4 + 4 * gains);
  for (std::size_t i = 0; i < extremes.size(); ++i) extremes[i] = i % 2 == 0 ? -kFar : kFar;
  return extremes;
}

void expectExtremesAsPlain(const std::vector<float>& frames, const std::vector<float>& gains,
                           std::size_t offset) {
  std::vector<float> wanted = emptyExtremes(gains.size());
  std::vector<float> got = wanted;
  PlainAnalysisKernels::raiseExtremes(frames, gains, wanted);
  GuardedBuffer<float> buffer(frames, offset);
  AnalysisKernels::raiseExtremes(buffer.span(), gains, got);
  ASSERT_EQ(got, wanted) << frames.size() << " floats, " << gains.size() << " gains";
}

struct Peaks {
  std::vector<float> left, right;
};

// Gates and peaks low, high or in between.
struct PeakCase {
  PeakCase(SampleInputs& inputs, std::size_t gainCount, std::size_t nodeCount)
      : gains(someGains(inputs, gainCount)),
        nodes(someGains(inputs, nodeCount)),
        gateLeft(someGains(inputs, nodeCount)),
        gateRight(someGains(inputs, nodeCount)),
        start{someGains(inputs, gainCount), someGains(inputs, gainCount)} {}

  [[nodiscard]] PeakGate gate() const { return {nodes, gateLeft, gateRight}; }

  std::vector<float> gains, nodes, gateLeft, gateRight;
  Peaks start;
};

void expectPeaksAsPlain(const PeakCase& peakCase, const std::vector<float>& frames,
                        std::size_t offset) {
  Peaks wanted = peakCase.start;
  Peaks got = peakCase.start;
  PlainAnalysisKernels::raisePeaks(frames, peakCase.gate(), peakCase.gains, wanted.left,
                                   wanted.right);
  GuardedBuffer<float> buffer(frames, offset);
  ASSERT_EQ(AnalysisKernels::areUnder(buffer.span(), peakCase.gate()),
            PlainAnalysisKernels::areUnder(frames, peakCase.gate()));
  AnalysisKernels::raisePeaks(buffer.span(), peakCase.gate(), peakCase.gains, got.left, got.right);
  ASSERT_EQ(bitsOf(got.left), bitsOf(wanted.left));
  ASSERT_EQ(bitsOf(got.right), bitsOf(wanted.right));
}

void expectInterpolationAsPlain(const std::vector<float>& frames, const std::vector<float>& taps,
                                std::size_t offset) {
  std::vector<float> wanted(frames.size() - 2 * (taps.size() - 1));
  PlainAnalysisKernels::interpolate(frames, taps, wanted);
  GuardedBuffer<float> in(frames, offset);
  GuardedBuffer<float> out(wanted.size(), 60 - offset);
  AnalysisKernels::interpolate(in.span(), taps, out.span());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const bool areBothNaN = std::isnan(wanted[i]) && std::isnan(out.span()[i]);
    ASSERT_TRUE(areBothNaN || wanted[i] == out.span()[i]) << i << " of " << wanted.size();
  }
  ASSERT_TRUE(out.guardsUntouched());
}

std::vector<double> everything(const WeighingLanes& lanes) {
  std::vector<double> all;
  for (const auto* row : {&lanes.shelf1, &lanes.shelf2, &lanes.high1, &lanes.high2, &lanes.weighted,
                          &lanes.plain, &lanes.product}) {
    all.insert(all.end(), row->begin(), row->end());
  }
  return all;
}

void expectWeighingAsPlain(const std::vector<std::vector<float>>& stretches, WeighingLanes start) {
  const KWeighting weighting = KWeighting::forRate(44100);
  const std::array<std::span<const float>, 4> frames = {stretches[0], stretches[1], stretches[2],
                                                        stretches[3]};
  WeighingLanes wanted = start;
  PlainAnalysisKernels::weigh(weighting, frames, wanted);
  AnalysisKernels::weigh(weighting, frames, start);
  ASSERT_EQ(everything(start), everything(wanted)) << stretches[0].size() << " floats";
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(InstructionSets, AnalysisKernelsTest,
                         testing::ValuesIn(InstructionSetTest::all()), InstructionSetTest::name);

TEST_P(AnalysisKernelsTest, FindsTheOneSampleThatIsNotFinite) {
  for (std::size_t count = 1; count <= kCounts; ++count) {
    std::vector<float> samples(count, -std::numeric_limits<float>::max());
    ASSERT_TRUE(AnalysisKernels::areFinite(samples));
    for (std::size_t at = 0; at < count; ++at) {
      for (const float value : {kFar, -kFar, std::nanf("")}) {
        samples[at] = value;
        ASSERT_FALSE(AnalysisKernels::areFinite(samples)) << at << " of " << count;
      }
      samples[at] = std::numeric_limits<float>::denorm_min();
    }
  }
  EXPECT_TRUE(AnalysisKernels::areFinite({}));
}

TEST_P(AnalysisKernelsTest, ExtremesAreThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(31);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const auto gains = someGains(inputs, inputs.upTo(10));
      const bool isTame = inputs.upTo(1) == 0;
      const auto frames = isTame ? inputs.audio(2 * count) : finite(inputs, 2 * count);
      ASSERT_NO_FATAL_FAILURE(expectExtremesAsPlain(frames, gains, 4 * offset));
    }
  }
}

TEST_P(AnalysisKernelsTest, ExtremesOnlyWiden) {
  const std::vector<float> frames(2 * kCounts, 0.5F);
  const std::vector<float> gains = {1.0F};
  std::vector<float> extremes = {0.75F, -1.0F, 0.25F, 0.75F, 2.0F, -1.0F, -1.0F, 0.25F};
  AnalysisKernels::raiseExtremes(frames, gains, extremes);
  EXPECT_EQ(extremes, (std::vector<float>{0.75F, -1.0F, 0.5F, 0.5F, 2.0F, -1.0F, 0.0F, 0.0F}));
}

TEST_P(AnalysisKernelsTest, MagnitudesAreThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(77);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const auto gains = someGains(inputs, inputs.upTo(17));
      const bool isTame = inputs.upTo(1) == 0;
      const auto frames = isTame ? inputs.audio(2 * count) : finite(inputs, 2 * count);
      std::vector<float> wanted = someGains(inputs, gains.size());
      std::vector<float> got = wanted;
      PlainAnalysisKernels::raiseMagnitudes(frames, gains, wanted);
      GuardedBuffer<float> buffer(frames, 4 * offset);
      AnalysisKernels::raiseMagnitudes(buffer.span(), gains, got);
      ASSERT_EQ(bitsOf(got), bitsOf(wanted)) << count << " frames, " << gains.size() << " gains";
    }
  }
}

// The louder of both channels, to the last bit.
TEST_P(AnalysisKernelsTest, MagnitudesAreThoseOfTheDecode) {
  SampleInputs inputs(78);
  const std::vector<float> gains = {0.0F, 0.3F, 1.0F, 1.9952623F};
  const auto frames = inputs.audio(2 * kCounts);
  std::vector<float> got(gains.size());
  AnalysisKernels::raiseMagnitudes(frames, gains, got);
  for (std::size_t g = 0; g < gains.size(); ++g) {
    float wanted = 0;
    for (std::size_t i = 0; i < frames.size(); i += 2) {
      const float side = frames[i + 1] * gains[g];
      wanted = std::max({wanted, std::fabs(frames[i] + side), std::fabs(frames[i] - side)});
    }
    EXPECT_EQ(got[g], wanted) << gains[g];
  }
}

TEST_P(AnalysisKernelsTest, PeaksAreThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(151);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const PeakCase peakCase(inputs, inputs.upTo(151), 1 + inputs.upTo(19));
      const bool isTame = inputs.upTo(1) == 0;
      const auto frames = isTame ? inputs.audio(2 * count) : inputs.any(2 * count);
      ASSERT_NO_FATAL_FAILURE(expectPeaksAsPlain(peakCase, frames, 4 * offset));
    }
  }
}

TEST_P(AnalysisKernelsTest, AFrameUnderTheGateRaisesNothing) {
  const std::vector<float> gains = {0.0F, 1.0F};
  const std::vector<float> line = {0.5F, 0.75F};
  std::vector<float> left(2);
  std::vector<float> right(2);
  const std::vector<float> under = {0.5F, 0.25F, -0.5F, -0.25F, 0.5F, -0.25F};
  AnalysisKernels::raisePeaks(under, {gains, line, line}, gains, left, right);
  EXPECT_EQ(left, (std::vector<float>{0, 0}));
  const std::vector<float> over = {-0.5F, -0.375F};
  AnalysisKernels::raisePeaks(over, {gains, line, line}, gains, left, right);
  EXPECT_EQ(left, (std::vector<float>{0.5F, 0.875F}));
  EXPECT_EQ(right, (std::vector<float>{0.5F, 0.125F}));
}

TEST_P(AnalysisKernelsTest, OneFrameOverTheGateIsSeenWhereverItIs) {
  const std::vector<float> gains = {0.0F, 1.0F};
  const std::vector<float> left = {0.5F, 0.75F};
  const std::vector<float> right = {0.5F, 0.5F};
  const PeakGate gate{gains, left, right};
  for (std::size_t count = 1; count <= kCounts; ++count) {
    std::vector<float> frames(2 * count, 0.25F);
    ASSERT_TRUE(AnalysisKernels::areUnder(frames, gate));
    for (std::size_t i = 1; i < frames.size(); i += 2) {
      for (const float side : {0.625F, -0.375F, std::nanf("")}) {
        frames[i] = side;
        ASSERT_FALSE(AnalysisKernels::areUnder(frames, gate)) << i << " of " << count;
      }
      frames[i] = 0.25F;
    }
  }
}

TEST_P(AnalysisKernelsTest, InterpolationIsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(12);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const auto taps = inputs.audio(1 + inputs.upTo(12));
      const std::size_t floats = 2 * (count + taps.size() - 1);
      const bool isTame = inputs.upTo(1) == 0;
      const auto frames = isTame ? inputs.audio(floats) : inputs.any(floats);
      ASSERT_NO_FATAL_FAILURE(expectInterpolationAsPlain(frames, taps, 4 * (offset % 15)));
    }
  }
}

TEST_P(AnalysisKernelsTest, WeighingIsThePlainLoopToTheLastBit) {
  SampleInputs inputs(1770);
  WeighingLanes start;
  for (std::size_t count = 0; count <= 200; ++count) {
    std::vector<std::vector<float>> stretches;
    const bool isTame = inputs.upTo(3) != 0;
    for (std::size_t i = 0; i < 4; ++i) {
      stretches.push_back(isTame ? inputs.audio(2 * count) : finite(inputs, 2 * count));
    }
    ASSERT_NO_FATAL_FAILURE(expectWeighingAsPlain(stretches, start));
    for (double& value : start.shelf1) value = static_cast<double>(inputs.audio());
  }
}

TEST_P(AnalysisKernelsTest, StretchesDoNotMeet) {
  SampleInputs inputs(4);
  const std::vector<float> silence(2000);
  const std::vector<float> sound = inputs.audio(2000);
  for (std::size_t at = 0; at < 4; ++at) {
    std::array<std::span<const float>, 4> frames = {silence, silence, silence, silence};
    frames[at] = sound;
    WeighingLanes lanes;
    AnalysisKernels::weigh(KWeighting::forRate(48000), frames, lanes);
    for (std::size_t i = 0; i < WeighingLanes::kWidth; ++i) {
      EXPECT_EQ(lanes.plain[i] > 0, i / 2 == at);
      EXPECT_EQ(lanes.weighted[i] > 0, i / 2 == at);
    }
  }
}

TEST_P(AnalysisKernelsTest, NothingOutsideTheBuffersIsRead) {
  const std::vector<float> gains = {0.5F, 1.0F, 1.5F, 2.0F};
  for (const auto side : kSides) {
    for (std::size_t count = 1; count <= kCounts; ++count) {
      PageEdgeBuffer<float> frames(2 * count, side);
      std::fill(frames.span().begin(), frames.span().end(), 0.5F);
      ASSERT_TRUE(AnalysisKernels::areFinite(frames.span()));
      std::vector<float> extremes = emptyExtremes(gains.size());
      AnalysisKernels::raiseExtremes(frames.span(), gains, extremes);
      ASSERT_EQ(extremes[4], 0.75F);
      PageEdgeBuffer<float> out(2 * count, side);
      const std::vector<float> taps = {2.0F};
      AnalysisKernels::interpolate(frames.span(), taps, out.span());
      ASSERT_EQ(out.span().back(), 1.0F);
      WeighingLanes lanes;
      const std::span<const float> all = frames.span();
      AnalysisKernels::weigh(KWeighting::forRate(48000), {all, all, all, all}, lanes);
      ASSERT_EQ(lanes.plain[7], 0.25 * static_cast<double>(count));
    }
  }
}

// Frames, gains and peaks, whatever number of gains there is.
TEST_P(AnalysisKernelsTest, NothingOutsideTheBuffersOfPeaksIsTouched) {
  for (const auto side : kSides) {
    for (std::size_t count = 1; count <= kCounts; ++count) {
      PageEdgeBuffer<float> frames(2 * count, side);
      PageEdgeBuffer<float> gains(count, side);
      PageEdgeBuffer<float> left(count, side);
      PageEdgeBuffer<float> right(count, side);
      std::fill(frames.span().begin(), frames.span().end(), 0.5F);
      std::fill(gains.span().begin(), gains.span().end(), 0.5F);
      AnalysisKernels::raiseMagnitudes(frames.span(), gains.span(), left.span());
      ASSERT_EQ(left.span().back(), 0.75F);
      const PeakGate above{gains.span(), left.span(), left.span()};
      ASSERT_TRUE(AnalysisKernels::areUnder(frames.span(), above));
      std::fill(left.span().begin(), left.span().end(), 0.0F);
      const PeakGate below{gains.span(), right.span(), right.span()};
      ASSERT_FALSE(AnalysisKernels::areUnder(frames.span(), below));
      PageEdgeBuffer<float> line(count, side);
      std::fill(line.span().begin(), line.span().end(), 1.0F);
      line.span().back() = 0.0F;  // it passes at the last gain alone
      const PeakGate gate{gains.span(), line.span(), line.span()};
      AnalysisKernels::raisePeaks(frames.span(), gate, gains.span(), left.span(), right.span());
      ASSERT_EQ(left.span().back(), 0.75F);
      ASSERT_EQ(right.span().back(), 0.25F);
    }
  }
}
