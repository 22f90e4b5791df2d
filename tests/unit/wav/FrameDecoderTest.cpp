// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FrameDecoder.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <utility>
#include <vector>

#include "support/ByteBuilder.h"

namespace {

constexpr std::uint64_t kPCM = 1;
constexpr std::uint64_t kFloat = 3;
constexpr float kUntouched = 7.0F;

using Pair = std::pair<float, float>;
using Words = std::initializer_list<std::uint16_t>;

// Left and right after decoding one frame into outputs that held `kUntouched`.
Pair decoded(const FrameDecoder& decoder, const ByteBuilder& bytes) {
  Pair pair{kUntouched, kUntouched};
  decoder.decode(bytes.get(), pair.first, pair.second);
  return pair;
}

float mono(std::uint16_t bits, std::uint64_t encoding, const ByteBuilder& bytes) {
  return decoded(FrameDecoder(1, bits, encoding), bytes).first;
}

}  // namespace

TEST(FrameDecoderTest, Signed24BitSamplesAreScaledBy2ToTheMinus23) {
  EXPECT_EQ(mono(24, kPCM, ByteBuilder().u8(0x00).u8(0x00).u8(0x80)), -1.0F);
  EXPECT_EQ(mono(24, kPCM, ByteBuilder().u8(0xFF).u8(0xFF).u8(0x7F)),
            static_cast<float>(8388607.0 / 8388608.0));
  EXPECT_EQ(mono(24, kPCM, ByteBuilder().u8(0x01).u8(0x00).u8(0x00)), 0x1.0p-23F);
  EXPECT_EQ(mono(24, kPCM, ByteBuilder().u8(0xFF).u8(0xFF).u8(0xFF)), -0x1.0p-23F);
  EXPECT_EQ(mono(24, kFloat, ByteBuilder().s24(-4194304)), -0.5F);
}

TEST(FrameDecoderTest, SixteenBitSamplesAreUnsigned) {
  EXPECT_EQ(mono(16, kPCM, ByteBuilder().u16(0xFFFF)), static_cast<float>(65535.0 / 32768.0));
  EXPECT_EQ(mono(16, kPCM, ByteBuilder().u16(0x8000)), 1.0F);
  EXPECT_EQ(mono(16, kPCM, ByteBuilder().u16(0)), 0.0F);
  EXPECT_EQ(mono(16, kFloat, ByteBuilder().u8(0x34).u8(0x12)),
            static_cast<float>(0x1234 / 32768.0));
}

TEST(FrameDecoderTest, FloatSamplesAreTakenAsTheyAre) {
  EXPECT_EQ(mono(32, kFloat, ByteBuilder().f32(0.3F)), 0.3F);
  EXPECT_EQ(mono(32, kFloat, ByteBuilder().f32(-123.5F)), -123.5F);
  for (const std::uint32_t bits : {0x7F800001U, 0xFFC12345U, 0x80000000U, 0x00000001U}) {
    const float got = mono(32, kFloat, ByteBuilder().u32(bits));
    EXPECT_EQ(std::bit_cast<std::uint32_t>(got), bits);
  }
}

TEST(FrameDecoderTest, ThirtyTwoBitIntegersAreScaledBy2ToTheMinus64) {
  EXPECT_EQ(mono(32, kPCM, ByteBuilder().u32(0x80000000)), -0x1.0p-33F);
  EXPECT_EQ(mono(32, kPCM, ByteBuilder().u32(0x40000000)), 0x1.0p-34F);
  EXPECT_EQ(mono(32, kPCM, ByteBuilder().u32(1)), 0x1.0p-64F);
  EXPECT_EQ(mono(32, 0xFFFE, ByteBuilder().u32(0xFFFFFFFF)), -0x1.0p-64F);
}

TEST(FrameDecoderTest, OtherWidthsWriteNothing) {
  for (const std::uint16_t bits : Words{0, 1, 8, 12, 20, 23, 25, 31, 33, 40, 64, 65535}) {
    EXPECT_EQ(decoded(FrameDecoder(2, bits, kPCM), ByteBuilder().zeros(16)),
              Pair(kUntouched, kUntouched))
        << bits;
  }
}

TEST(FrameDecoderTest, NoChannelsWriteNothing) {
  const FrameDecoder decoder(0, 24, kPCM);
  EXPECT_EQ(decoded(decoder, ByteBuilder().zeros(16)), Pair(kUntouched, kUntouched));
  EXPECT_EQ(decoder.frameBytes(), 0U);
  EXPECT_EQ(FrameDecoder().frameBytes(), 0U);
}

TEST(FrameDecoderTest, OneChannelGoesToTheLeft) {
  EXPECT_EQ(decoded(FrameDecoder(1, 24, kPCM), ByteBuilder().s24(4194304)), Pair(0.5F, kUntouched));
}

TEST(FrameDecoderTest, TwoChannelsAreInterleaved) {
  EXPECT_EQ(decoded(FrameDecoder(2, 24, kPCM), ByteBuilder().s24(4194304).s24(-2097152)),
            Pair(0.5F, -0.25F));
  EXPECT_EQ(decoded(FrameDecoder(2, 16, kPCM), ByteBuilder().u16(0x8000).u16(0x4000)),
            Pair(1.0F, 0.5F));
  EXPECT_EQ(decoded(FrameDecoder(2, 32, kFloat), ByteBuilder().f32(0.1F).f32(0.2F)),
            Pair(0.1F, 0.2F));
}

TEST(FrameDecoderTest, LaterChannelsAreReadAtGrowingStepsAndTheLastStays) {
  ByteBuilder samples;  // at 0, 4, 8, ... the numbers 0, 1, 2, ...
  for (int i = 0; i < 12; ++i) samples.f32(static_cast<float>(i));
  EXPECT_EQ(decoded(FrameDecoder(3, 32, kFloat), samples), Pair(0.0F, 3.0F));
  EXPECT_EQ(decoded(FrameDecoder(4, 32, kFloat), samples), Pair(0.0F, 6.0F));
  EXPECT_EQ(decoded(FrameDecoder(5, 32, kFloat), samples), Pair(0.0F, 10.0F));
}

TEST(FrameDecoderTest, SamplesPastTheEndLeaveTheirOutputAlone) {
  const FrameDecoder stereo(2, 24, kPCM);
  EXPECT_EQ(decoded(stereo, ByteBuilder()), Pair(kUntouched, kUntouched));
  EXPECT_EQ(decoded(stereo, ByteBuilder().zeros(2)), Pair(kUntouched, kUntouched));
  EXPECT_EQ(decoded(stereo, ByteBuilder().zeros(5)), Pair(0.0F, kUntouched));
  EXPECT_EQ(decoded(stereo, ByteBuilder().zeros(6)), Pair(0.0F, 0.0F));
  // The third channel of a frame would lie beyond: the second one stays.
  EXPECT_EQ(decoded(FrameDecoder(3, 24, kPCM), ByteBuilder().s24(1).s24(4194304).s24(2)),
            Pair(0x1.0p-23F, 0.5F));
}

TEST(FrameDecoderTest, FrameBytesCutTheWidthToWholeBytes) {
  EXPECT_EQ(FrameDecoder(2, 24, kPCM).frameBytes(), 6U);
  EXPECT_EQ(FrameDecoder(2, 32, kFloat).frameBytes(), 8U);
  EXPECT_EQ(FrameDecoder(2, 20, kPCM).frameBytes(), 4U);
  EXPECT_EQ(FrameDecoder(2, 7, kPCM).frameBytes(), 0U);
  EXPECT_EQ(FrameDecoder(65535, 65535, kPCM).frameBytes(), 65535ULL * 8191);
}

TEST(FrameDecoderTest, ReachIsTheEndOfTheFurthestSample) {
  EXPECT_EQ(FrameDecoder(1, 24, kPCM).reach(), 3U);
  EXPECT_EQ(FrameDecoder(2, 24, kPCM).reach(), 6U);
  EXPECT_EQ(FrameDecoder(3, 24, kPCM).reach(), 12U);    // the third starts at 9
  EXPECT_EQ(FrameDecoder(4, 32, kFloat).reach(), 28U);  // the fourth starts at 24
  EXPECT_EQ(FrameDecoder(2, 8, kPCM).reach(), 2U);      // never less than the frame
}

TEST(FrameDecoderTest, BlocksAreTheirFrames) {
  ByteBuilder bytes;
  for (std::uint32_t i = 0; i < 300; ++i) bytes.u32(i * 2654435761U);
  for (const std::uint16_t bits : Words{8, 16, 24, 32}) {
    for (const std::uint16_t channels : Words{1, 2, 3, 5}) {
      const FrameDecoder decoder(channels, bits, kPCM);
      std::array<float, 2 * 40> block{};
      decoder.decode(bytes.get(), block);
      for (std::size_t i = 0; i < block.size() / 2; ++i) {
        Pair one{FrameDecoder::kNoSample, FrameDecoder::kNoSample};
        decoder.decode(std::span(bytes.get()).subspan(i * decoder.frameBytes()), one.first,
                       one.second);
        EXPECT_EQ(Pair(block[2 * i], block[2 * i + 1]), one) << bits << " bits, frame " << i;
      }
    }
  }
}

TEST(FrameDecoderTest, ABlockOfNoFramesIsNothingToDo) {
  for (const std::uint16_t bits : Words{16, 24, 32}) {
    for (const std::uint64_t encoding : {kPCM, kFloat}) {
      std::array<float, 2> beyond{kUntouched, kUntouched};
      FrameDecoder(2, bits, encoding).decode({}, std::span(beyond).first(0));
      EXPECT_EQ(beyond, (std::array{kUntouched, kUntouched}));
    }
  }
}
