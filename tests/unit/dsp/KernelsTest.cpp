// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/Kernels.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "GuardedBuffer.h"
#include "InstructionSetTest.h"
#include "SampleInputs.h"
#include "dsp/PlainKernels.h"

namespace {

constexpr std::size_t kCounts = 100;  // several of the widest vectors
constexpr std::size_t kOffsets = 16;  // every misalignment of a float in 64 bytes, and of a byte

class KernelsTest : public InstructionSetTest {};

// Only the sum of two NaN may differ: which of both payloads survives is the compiler's choice.
bool isSameDecode(std::span<const float> before, std::span<const float> wanted,
                  std::span<const float> got, float sideGain) {
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const bool isSum = i % 2 == 0;
    if (isSum && std::isnan(before[i]) && std::isnan(before[i + 1] * sideGain)) {
      if (!std::isnan(wanted[i]) || !std::isnan(got[i])) return false;
    } else if (std::bit_cast<std::uint32_t>(wanted[i]) != std::bit_cast<std::uint32_t>(got[i])) {
      return false;
    }
  }
  return true;
}

void expectDecodeAsPlain(std::span<const float> frames, std::size_t offset, float sideGain) {
  std::vector<float> wanted(frames.begin(), frames.end());
  PlainKernels::decodeMidSide(wanted, sideGain);
  GuardedBuffer<float> buffer(frames, offset);
  Kernels::decodeMidSide(buffer.span(), sideGain);
  ASSERT_TRUE(isSameDecode(frames, wanted, buffer.span(), sideGain))
      << frames.size() << " floats, offset " << offset << ", gain " << sideGain;
  ASSERT_TRUE(buffer.guardsUntouched()) << frames.size() << " floats, offset " << offset;
}

void expectDecodeAndDivideAsPlain(std::span<const float> frames, std::size_t offset, float sideGain,
                                  float left, float right) {
  std::vector<float> wanted(frames.begin(), frames.end());
  const float peak = PlainKernels::decodeAndDivide(wanted, sideGain, left, right);
  GuardedBuffer<float> buffer(frames, offset);
  ASSERT_EQ(Kernels::decodeAndDivide(buffer.span(), sideGain, left, right), peak);
  ASSERT_EQ(bitsOf(buffer.span()), bitsOf(wanted))
      << frames.size() << " floats, offset " << offset << ", gain " << sideGain << ", divisors "
      << left << ' ' << right;
  ASSERT_TRUE(buffer.guardsUntouched()) << frames.size() << " floats, offset " << offset;
}

void expectRecodeAsPlain(std::span<const std::byte> bytes, std::size_t inOffset,
                         std::size_t outOffset, float left, float right) {
  constexpr float kSideGain = 1.25F;
  std::vector<float> samples(bytes.size() / 3);
  std::vector<std::byte> wanted(bytes.size());
  PlainKernels::unpack24(bytes, samples);
  const float peak = PlainKernels::decodeAndDivide(samples, kSideGain, left, right);
  PlainKernels::pack24(samples, wanted);
  GuardedBuffer<std::byte> in(bytes, inOffset);
  GuardedBuffer<std::byte> out(wanted.size(), outOffset);
  ASSERT_EQ(Kernels::recode24(in.span(), kSideGain, left, right, out.span()), peak);
  const auto got = out.span();
  ASSERT_EQ(std::vector<std::byte>(got.begin(), got.end()), wanted)
      << samples.size() << " samples, offsets " << inOffset << ' ' << outOffset << ", divisors "
      << left << ' ' << right;
  ASSERT_TRUE(out.guardsUntouched()) << samples.size() << " samples, offset " << outOffset;
}

/// Beside a division a compiler may make a NaN that signals a quiet one.
std::vector<float> withoutSignals(std::vector<float> samples) {
  for (float& sample : samples) {
    if (std::isnan(sample))
      sample = std::bit_cast<float>(std::bit_cast<std::uint32_t>(sample) | 0x00400000U);
  }
  return samples;
}

void expectDivideAsPlain(std::span<const float> frames, std::size_t offset, float left,
                         float right) {
  std::vector<float> wanted(frames.begin(), frames.end());
  const float peak = PlainKernels::divide(wanted, left, right);
  GuardedBuffer<float> buffer(frames, offset);
  ASSERT_EQ(Kernels::divide(buffer.span(), left, right), peak);
  ASSERT_EQ(bitsOf(buffer.span()), bitsOf(wanted))
      << "offset " << offset << ", divisors " << left << ' ' << right;
  ASSERT_TRUE(buffer.guardsUntouched()) << frames.size() << " floats, offset " << offset;
}

void expectUnpackAsPlain(std::span<const std::byte> bytes, std::size_t inOffset,
                         std::size_t outOffset) {
  const std::size_t count = bytes.size() / 3;
  std::vector<float> wanted(count);
  PlainKernels::unpack24(bytes, wanted);
  GuardedBuffer<std::byte> in(bytes, inOffset);
  GuardedBuffer<float> out(count, outOffset);
  Kernels::unpack24(in.span(), out.span());
  ASSERT_EQ(bitsOf(out.span()), bitsOf(wanted)) << "offsets " << inOffset << ' ' << outOffset;
  ASSERT_TRUE(out.guardsUntouched());
}

void expectPackAsPlain(std::span<const float> samples, std::size_t inOffset,
                       std::size_t outOffset) {
  std::vector<std::byte> wanted(3 * samples.size());
  PlainKernels::pack24(samples, wanted);
  GuardedBuffer<float> in(samples, inOffset);
  GuardedBuffer<std::byte> out(wanted.size(), outOffset);
  Kernels::pack24(in.span(), out.span());
  const auto got = out.span();
  ASSERT_EQ(std::vector<std::byte>(got.begin(), got.end()), wanted)
      << "offsets " << inOffset << ' ' << outOffset;
  ASSERT_TRUE(out.guardsUntouched()) << samples.size() << " samples, offset " << outOffset;
}

void expectPeakAsPlain(std::span<const float> samples, std::size_t offset, float peak) {
  GuardedBuffer<float> buffer(samples, offset);
  ASSERT_EQ(std::bit_cast<std::uint32_t>(Kernels::peakMagnitude(buffer.span(), peak)),
            std::bit_cast<std::uint32_t>(PlainKernels::peakMagnitude(samples, peak)))
      << samples.size() << " samples, offset " << offset << ", from " << peak;
}

void expectDecodedPeakAsPlain(std::span<const std::byte> bytes, std::size_t offset, float sideGain,
                              float peak) {
  std::vector<float> samples(bytes.size() / 3);
  PlainKernels::unpack24(bytes, samples);
  PlainKernels::decodeMidSide(samples, sideGain);
  GuardedBuffer<std::byte> buffer(bytes, offset);
  ASSERT_EQ(Kernels::decodedPeak24(buffer.span(), sideGain, peak),
            PlainKernels::peakMagnitude(samples, peak))
      << samples.size() << " samples, offset " << offset << ", gain " << sideGain << ", from "
      << peak;
}

void expectMaximaAsPlain(std::span<const float> frames, std::size_t offset, float left,
                         float right) {
  float wanted[] = {left, right};
  PlainKernels::raiseMaxima(frames, wanted[0], wanted[1]);
  GuardedBuffer<float> buffer(frames, offset);
  float got[] = {left, right};
  Kernels::raiseMaxima(buffer.span(), got[0], got[1]);
  ASSERT_EQ(bitsOf(got), bitsOf(wanted))
      << frames.size() << " floats, offset " << offset << ", from " << left << ' ' << right;
}

// Frames of any values, of which one at most is not a number: which payload two of them leave
// behind is the compiler's choice.
std::vector<float> framesForASum(SampleInputs& inputs, std::size_t count) {
  auto frames = inputs.any(count);
  for (std::size_t i = 0; i < count; i += 2) {
    if (!std::isfinite(frames[i])) frames[i + 1] = inputs.audio();
  }
  return frames;
}

// A divisor as a gain makes it.
float plainDivisor(SampleInputs& inputs) {
  constexpr float kPlain[] = {0.0F, -0.0F, 1.0F, 0.5F, 3.0F, 1.9952623F};
  return kPlain[inputs.upTo(5)];
}

// The same, or one that no gain makes.
float divisor(SampleInputs& inputs) {
  return inputs.upTo(1) == 0 ? plainDivisor(inputs) : inputs.any();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(InstructionSets, KernelsTest, testing::ValuesIn(InstructionSetTest::all()),
                         InstructionSetTest::name);

TEST_P(KernelsTest, Unpack24IsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(24);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    const auto bytes = inputs.bytes(3 * count);
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      ASSERT_NO_FATAL_FAILURE(expectUnpackAsPlain(bytes, offset, 4 * inputs.upTo(15)));
      ASSERT_NO_FATAL_FAILURE(expectUnpackAsPlain(bytes, inputs.upTo(63), 4 * offset));
    }
  }
}

TEST_P(KernelsTest, Unpack24IsExactForEveryValue) {
  constexpr std::int32_t kBlock = 65536;
  std::vector<std::byte> bytes(3 * kBlock);
  std::vector<float> samples(kBlock);
  for (std::int32_t first = -8388608; first < 8388608; first += kBlock) {
    for (std::int32_t i = 0; i < kBlock; ++i) {
      const auto value = static_cast<std::uint32_t>(first + i);
      const auto at = 3 * static_cast<std::size_t>(i);
      bytes[at] = static_cast<std::byte>(value);
      bytes[at + 1] = static_cast<std::byte>(value >> 8);
      bytes[at + 2] = static_cast<std::byte>(value >> 16);
    }
    Kernels::unpack24(bytes, samples);
    for (std::int32_t i = 0; i < kBlock; ++i) {
      const double wanted = (first + i) / 8388608.0;
      ASSERT_EQ(static_cast<double>(samples[static_cast<std::size_t>(i)]), wanted);
    }
  }
}

TEST_P(KernelsTest, Pack24IsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(42);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    const auto samples = inputs.any(count);
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      ASSERT_NO_FATAL_FAILURE(expectPackAsPlain(samples, 4 * offset, inputs.upTo(63)));
      ASSERT_NO_FATAL_FAILURE(expectPackAsPlain(samples, 4 * inputs.upTo(15), offset));
    }
  }
}

TEST_P(KernelsTest, Pack24IsThePlainLoopForEveryAwkwardValueInEveryLane) {
  for (const float value : SampleInputs::awkward()) {
    for (std::size_t lane = 0; lane < 20; ++lane) {
      std::vector<float> samples(40, 0.25F);
      samples[lane] = value;
      ASSERT_NO_FATAL_FAILURE(expectPackAsPlain(samples, 0, 0)) << value << " in " << lane;
    }
  }
}

TEST_P(KernelsTest, Pack24IsThePlainLoopForEveryUnpackedValue) {
  constexpr std::uint32_t kBlock = 65536;
  std::vector<float> samples(kBlock);
  std::vector<std::byte> wanted(3 * kBlock);
  std::vector<std::byte> got(3 * kBlock);
  for (std::uint32_t first = 0; first < 1U << 24; first += kBlock) {
    for (std::uint32_t i = 0; i < kBlock; ++i) {
      const auto value = static_cast<std::int32_t>(first + i) - 8388608;
      samples[i] = static_cast<float>(value / 8388608.0);
    }
    PlainKernels::pack24(samples, wanted);
    Kernels::pack24(samples, got);
    ASSERT_TRUE(got == wanted) << "block from " << first;
  }
}

TEST_P(KernelsTest, DecodeMidSideIsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(120);
  for (std::size_t count = 0; count <= kCounts; count += 2) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const float gain = offset == 0 ? 0.0F : 2.0F * std::fabs(inputs.audio());
      ASSERT_NO_FATAL_FAILURE(expectDecodeAsPlain(inputs.any(count), 4 * offset, gain));
    }
  }
}

TEST_P(KernelsTest, DecodeAndDivideIsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(1080);
  for (std::size_t count = 0; count <= kCounts; count += 2) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const float gain = offset == 0 ? 0.0F : 2.0F * std::fabs(inputs.audio());
      const float left = plainDivisor(inputs);
      ASSERT_NO_FATAL_FAILURE(expectDecodeAndDivideAsPlain(framesForASum(inputs, count), 4 * offset,
                                                           gain, left, plainDivisor(inputs)));
    }
  }
}

TEST_P(KernelsTest, Recode24IsThePlainLoopsForAnyCountAndMisalignment) {
  SampleInputs inputs(1104);
  constexpr float kTiny = 1e-30F;
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  for (std::size_t count = 0; count <= kCounts; count += 2) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const auto bytes = inputs.bytes(3 * count);
      const float left = plainDivisor(inputs);
      const float right = offset == 0 ? kTiny : offset == 1 ? kInfinite : plainDivisor(inputs);
      ASSERT_NO_FATAL_FAILURE(expectRecodeAsPlain(bytes, offset, inputs.upTo(63), left, right));
      ASSERT_NO_FATAL_FAILURE(expectRecodeAsPlain(bytes, inputs.upTo(63), offset, left, right));
    }
  }
}

TEST_P(KernelsTest, DivideIsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(960);
  for (std::size_t count = 0; count <= kCounts; count += 2) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const float left = divisor(inputs);
      ASSERT_NO_FATAL_FAILURE(expectDivideAsPlain(withoutSignals(inputs.any(count)), 4 * offset,
                                                  left, divisor(inputs)));
    }
  }
}

TEST_P(KernelsTest, PeakMagnitudeIsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(7);
  for (std::size_t count = 0; count <= kCounts; ++count) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const bool isTame = inputs.upTo(1) == 0;
      const auto samples = isTame ? inputs.audio(count) : inputs.any(count);
      const float peak = inputs.upTo(1) == 0 ? 0.0F : std::fabs(inputs.anyNumber());
      ASSERT_NO_FATAL_FAILURE(expectPeakAsPlain(samples, 4 * offset, peak));
    }
  }
}

TEST_P(KernelsTest, PeakMagnitudeFindsThePeakWhereverItIs) {
  for (std::size_t at = 0; at < kCounts; ++at) {
    std::vector<float> samples(kCounts, 0.125F);
    samples[at] = -0.75F;
    ASSERT_EQ(Kernels::peakMagnitude(samples, 0.0F), 0.75F) << at;
    samples[at] = NAN;
    ASSERT_EQ(Kernels::peakMagnitude(samples, 0.0F), 0.125F) << at;
  }
}

TEST_P(KernelsTest, DecodedPeak24IsThatOfThePlainLoopsForAnyCountAndMisalignment) {
  SampleInputs inputs(77);
  for (std::size_t count = 0; count <= kCounts; count += 2) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const float gain = offset == 0 ? 0.0F : 2.0F * std::fabs(inputs.audio());
      const float peak = inputs.upTo(1) == 0 ? 0.0F : std::fabs(inputs.audio());
      ASSERT_NO_FATAL_FAILURE(
          expectDecodedPeakAsPlain(inputs.bytes(3 * count), offset, gain, peak));
    }
  }
}

TEST_P(KernelsTest, RaiseMaximaIsThePlainLoopForAnyCountAndMisalignment) {
  SampleInputs inputs(22);
  for (std::size_t count = 0; count <= kCounts; count += 2) {
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      const bool isTame = inputs.upTo(1) == 0;
      const auto frames = isTame ? inputs.audio(count) : inputs.any(count);
      const float left = inputs.upTo(1) == 0 ? -2.0F : inputs.anyNumber();
      const float right = inputs.upTo(1) == 0 ? -2.0F : inputs.anyNumber();
      ASSERT_NO_FATAL_FAILURE(expectMaximaAsPlain(frames, 4 * offset, left, right));
    }
  }
}

TEST_P(KernelsTest, RaiseMaximaKeepsTheFirstOfTheZeros) {
  SampleInputs inputs(11);
  constexpr float kValues[] = {0.0F, -0.0F, -0.5F, -1.0F};
  constexpr float kStarts[] = {-2.0F, 0.0F, -0.0F};
  for (std::size_t round = 0; round < 20000; ++round) {
    std::vector<float> frames(2 * inputs.upTo(40));
    for (float& value : frames) value = kValues[inputs.upTo(3)];
    const float left = kStarts[inputs.upTo(2)];
    ASSERT_NO_FATAL_FAILURE(expectMaximaAsPlain(frames, 0, left, kStarts[inputs.upTo(2)]));
  }
}

TEST_P(KernelsTest, LongBuffersAreAsThePlainLoops) {
  SampleInputs inputs(4099);
  const auto odd = inputs.any(4099);
  const std::span even = std::span(odd).first(4098);
  expectUnpackAsPlain(inputs.bytes(3 * 4099), 1, 4);
  expectPackAsPlain(odd, 4, 1);
  expectDecodeAsPlain(even, 4, 1.5F);
  expectDecodeAndDivideAsPlain(framesForASum(inputs, 4098), 4, 1.5F, 0.3F, 7.0F);
  expectRecodeAsPlain(inputs.bytes(3 * 4098), 1, 2, 0.3F, 7.0F);
  expectDivideAsPlain(even, 4, 0.3F, 7.0F);
  expectPeakAsPlain(odd, 4, 0.0F);
  expectDecodedPeakAsPlain(inputs.bytes(3 * 4098), 1, 1.5F, 0.0F);
  expectMaximaAsPlain(even, 4, -2, -2);
}

// At the edge of a page that nobody may touch, each kernel ends exactly where its buffers do.
TEST_P(KernelsTest, NothingOutsideTheBuffersIsReadOrWritten) {
  for (const auto side :
       {PageEdgeBuffer<float>::Side::Before, PageEdgeBuffer<float>::Side::After}) {
    const auto byteSide = static_cast<PageEdgeBuffer<std::byte>::Side>(side);
    for (std::size_t count = 0; count <= kCounts; ++count) {
      PageEdgeBuffer<float> samples(count, side);
      PageEdgeBuffer<std::byte> bytes(3 * count, byteSide);
      Kernels::unpack24(bytes.span(), samples.span());
      std::fill(samples.span().begin(), samples.span().end(), 0.5F);
      Kernels::pack24(samples.span(), bytes.span());
      ASSERT_EQ(Kernels::peakMagnitude(samples.span(), 0.0F), count == 0 ? 0.0F : 0.5F);
      if (count % 2 != 0) continue;
      float left = -2.0F;
      float right = -2.0F;
      Kernels::raiseMaxima(samples.span(), left, right);
      ASSERT_EQ(left, count == 0 ? -2.0F : 0.5F);
      Kernels::decodeMidSide(samples.span(), 1.0F);
      Kernels::divide(samples.span(), 2.0F, 4.0F);
      ASSERT_EQ(count == 0 ? 0.5F : samples.span()[count - 2], 0.5F);
      Kernels::decodeAndDivide(samples.span(), 1.0F, 0.5F, 2.0F);
      ASSERT_EQ(count == 0 ? 1.0F : samples.span()[count - 2], 1.0F);
      std::fill(bytes.span().begin(), bytes.span().end(), std::byte{0});
      ASSERT_EQ(Kernels::decodedPeak24(bytes.span(), 1.0F, 0.25F), 0.25F);
      PageEdgeBuffer<std::byte> recoded(3 * count, byteSide);
      ASSERT_EQ(Kernels::recode24(bytes.span(), 1.0F, 0.5F, 2.0F, recoded.span()), 0.0F);
    }
  }
}
