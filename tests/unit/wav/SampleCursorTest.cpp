// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/SampleCursor.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveIndex.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr float kNoSample = -2.0F;
constexpr std::uint64_t kDataStart = 44;

SampleCursor cursorOver(const std::shared_ptr<WaveImage>& image) {
  WaveIndex index;
  index.parse(*image);
  SampleCursor cursor(image, index.header, index.encoding);
  cursor.beginReadSample();
  return cursor;
}

SampleCursor cursorOver(const Bytes& file) {
  return cursorOver(WaveImage::fromBytes(file));
}

Bytes wave24(const std::vector<std::int32_t>& samples) {
  return WaveBytes().format24().data(WaveBytes::samples24(samples)).get();
}

// Left is 2^-23 times the frame's number, right its negative.
Bytes numberedFrames(std::int32_t count) {
  std::vector<std::int32_t> samples;
  for (std::int32_t n = 0; n < count; ++n) samples.insert(samples.end(), {n, -n});
  return wave24(samples);
}

void expectNext(SampleCursor& cursor, float wantedLeft, float wantedRight) {
  float left = 0.0F;
  float right = 0.0F;
  EXPECT_TRUE(cursor.readNextSample(left, right));
  EXPECT_EQ(left, wantedLeft);
  EXPECT_EQ(right, wantedRight);
}

void expectNoNext(SampleCursor& cursor) {
  float left = 0.0F;
  float right = 0.0F;
  const std::uint64_t before = cursor.readDataIdx();
  EXPECT_FALSE(cursor.readNextSample(left, right));
  EXPECT_EQ(left, kNoSample);
  EXPECT_EQ(right, kNoSample);
  EXPECT_EQ(cursor.readDataIdx(), before);
}

}  // namespace

TEST(SampleCursorTest, ReadsFrameAfterFrame) {
  SampleCursor cursor = cursorOver(wave24({4194304, -4194304, 2097152, 8388607}));
  EXPECT_EQ(cursor.readDataIdx(), kDataStart);
  expectNext(cursor, 0.5F, -0.5F);
  EXPECT_EQ(cursor.readDataIdx(), kDataStart + 6);
  expectNext(cursor, 0.25F, static_cast<float>(8388607.0 / 8388608.0));
  EXPECT_TRUE(cursor.isFinishReadSample());
  expectNoNext(cursor);
}

TEST(SampleCursorTest, BeginGoesBackToTheFirstFrame) {
  SampleCursor cursor = cursorOver(wave24({4194304, 0, 2097152, 0}));
  expectNext(cursor, 0.5F, 0.0F);
  cursor.beginReadSample();
  expectNext(cursor, 0.5F, 0.0F);
}

TEST(SampleCursorTest, APartialFrameAtTheEndIsNeverRead) {
  for (std::size_t extra = 0; extra < 6; ++extra) {
    const Bytes data = ByteBuilder().s24(1).s24(2).zeros(extra).get();
    SampleCursor cursor = cursorOver(WaveBytes().format24().data(data).get());
    EXPECT_EQ(cursor.framesLeft(), 1U);
    expectNext(cursor, 0x1.0p-23F, 0x1.0p-22F);
    EXPECT_TRUE(cursor.isFinishReadSample()) << extra;
    expectNoNext(cursor);
  }
}

TEST(SampleCursorTest, NoDataIsTheEndAtOnce) {
  SampleCursor cursor = cursorOver(WaveBytes().format24().data({}).chunk("LIST", Bytes(20)).get());
  EXPECT_TRUE(cursor.isFinishReadSample());
  expectNoNext(cursor);
}

TEST(SampleCursorTest, ChunksAfterTheDataAreNotRead) {
  const Bytes data = WaveBytes::samples24({1, 2});
  SampleCursor cursor =
      cursorOver(WaveBytes().format24().data(data).chunk("LIST", Bytes(60)).get());
  EXPECT_EQ(cursor.framesLeft(), 1U);
}

TEST(SampleCursorTest, StatedDataPastTheEndOfTheFileIsNotRead) {
  const Bytes data = ByteBuilder().s24(1).s24(2).s24(3).s24(4).zeros(5).get();
  SampleCursor cursor = cursorOver(WaveBytes().format24().chunk("data", 100000, data).get());
  EXPECT_EQ(cursor.framesLeft(), 2U);
  expectNext(cursor, 1 * 0x1.0p-23F, 2 * 0x1.0p-23F);
  expectNext(cursor, 3 * 0x1.0p-23F, 4 * 0x1.0p-23F);
  expectNoNext(cursor);
}

TEST(SampleCursorTest, ADataEndThatWrapsLeavesNothingToRead) {
  SampleCursor cursor =
      cursorOver(WaveBytes().format24().chunk("data", 0xFFFFFFF0, Bytes(60)).get());
  EXPECT_TRUE(cursor.isFinishReadSample());
  expectNoNext(cursor);
}

TEST(SampleCursorTest, FramesWithoutBytesNeverLoop) {
  for (const auto& [channels, bits] : {std::pair{0, 24}, std::pair{2, 0}, std::pair{2, 7}}) {
    SampleCursor cursor = cursorOver(WaveBytes()
                                         .format(1, static_cast<std::uint16_t>(channels), 48000,
                                                 static_cast<std::uint16_t>(bits))
                                         .data(Bytes(60))
                                         .get());
    EXPECT_TRUE(cursor.isFinishReadSample());
    EXPECT_EQ(cursor.framesLeft(), 0U);
    expectNoNext(cursor);
    std::array<float, 8> block{};
    EXPECT_EQ(cursor.readFrames(block), 0U);
  }
}

TEST(SampleCursorTest, FramesOfAnUnknownWidthAreReadAsNoSample) {
  SampleCursor cursor = cursorOver(WaveBytes().format(1, 2, 48000, 8).data(Bytes(6)).get());
  for (int i = 0; i < 3; ++i) expectNext(cursor, kNoSample, kNoSample);
  expectNoNext(cursor);
}

TEST(SampleCursorTest, LateChannelsReachIntoWhatFollowsButNotPastTheFile) {
  const Bytes data = ByteBuilder().s24(1).s24(2).s24(3).s24(4).s24(5).s24(6).get();
  SampleCursor cursor = cursorOver(WaveBytes().format(1, 3, 48000, 24).data(data).get());
  expectNext(cursor, 0x1.0p-23F, 4 * 0x1.0p-23F);      // the third channel is read at byte 9
  expectNext(cursor, 4 * 0x1.0p-23F, 5 * 0x1.0p-23F);  // past the end: the second stays
  expectNoNext(cursor);
}

TEST(SampleCursorTest, AnyPositionMayBeSet) {
  SampleCursor cursor = cursorOver(numberedFrames(10));
  cursor.setReadDataIdx(kDataStart + 6 * 7);
  EXPECT_EQ(cursor.framesLeft(), 3U);
  expectNext(cursor, 7 * 0x1.0p-23F, -7 * 0x1.0p-23F);
  cursor.setReadDataIdx(kDataStart + 6 * 9 + 1);  // one byte too late for the last frame
  EXPECT_TRUE(cursor.isFinishReadSample());
  cursor.setReadDataIdx(std::numeric_limits<std::uint64_t>::max());
  expectNoNext(cursor);
}

TEST(SampleCursorTest, ACursorOverNothingIsAtItsEnd) {
  SampleCursor cursor;
  EXPECT_TRUE(cursor.isFinishReadSample());
  expectNoNext(cursor);
  std::array<float, 2> block{};
  EXPECT_EQ(cursor.readFrames(block), 0U);
}

TEST(SampleCursorTest, BlocksEndWithTheData) {
  SampleCursor cursor = cursorOver(numberedFrames(10));
  std::array<float, 14> block{};
  ASSERT_EQ(cursor.readFrames(block), 7U);
  for (int n = 0; n < 7; ++n) {
    EXPECT_EQ(block[static_cast<std::size_t>(2 * n)], static_cast<float>(n) * 0x1.0p-23F);
    EXPECT_EQ(block[static_cast<std::size_t>(2 * n + 1)], static_cast<float>(-n) * 0x1.0p-23F);
  }
  block.fill(9.0F);
  ASSERT_EQ(cursor.readFrames(block), 3U);
  EXPECT_EQ(block[4], 9 * 0x1.0p-23F);
  EXPECT_EQ(block[6], 9.0F) << "nothing written past the last frame";
  EXPECT_EQ(cursor.readFrames(block), 0U);
}

TEST(SampleCursorTest, AnOddBlockTakesWholeFramesOnly) {
  SampleCursor cursor = cursorOver(numberedFrames(10));
  std::array<float, 5> block{};
  EXPECT_EQ(cursor.readFrames(block), 2U);
  EXPECT_EQ(cursor.readFrames(std::span(block).first(1)), 0U);
  EXPECT_EQ(cursor.readDataIdx(), kDataStart + 12);
}

TEST(SampleCursorTest, CopiesReadOnTheirOwn) {
  SampleCursor first = cursorOver(numberedFrames(3));
  SampleCursor second = first;
  expectNext(first, 0.0F, 0.0F);
  expectNext(first, 0x1.0p-23F, -0x1.0p-23F);
  expectNext(second, 0.0F, 0.0F);
}

TEST(SampleCursorTest, EndIsThatOfTheLastFrameAskedFor) {
  const SampleCursor stereo = cursorOver(numberedFrames(10));
  EXPECT_EQ(stereo.endFor(kDataStart, 0), kDataStart);
  EXPECT_EQ(stereo.endFor(kDataStart, 4), kDataStart + 24);
  EXPECT_EQ(stereo.endFor(kDataStart, 10), kDataStart + 60);
  const Bytes three = WaveBytes().format(1, 3, 48000, 24).data(Bytes(90)).get();
  EXPECT_EQ(cursorOver(three).endFor(kDataStart, 2), kDataStart + 9 + 12);
  EXPECT_EQ(cursorOver(three).endFor(kDataStart, 10), kDataStart + 90)
      << "cut at the end of the file";
}
