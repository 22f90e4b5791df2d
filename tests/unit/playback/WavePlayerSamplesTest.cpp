// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cstring>

#include <algorithm>
#include <cmath>
#include <limits>

#include "PlaybackFixture.h"
#include "playback/WavePlayer.h"

using testing::Each;
using testing::ElementsAre;

namespace {

class WavePlayerSamplesTest : public PlaybackFixture {
 protected:
  void SetUp() override {
    PlaybackFixture::SetUp();
    useFloatFile(10);
    player = std::make_unique<WavePlayer>("x");
  }

  static std::shared_ptr<WaveFileReader> reader(std::uint16_t bits, bool isRaw) {
    const auto bytes = WaveBytes()
                           .format(bits == 32 ? 3 : 1, 2, 48000, bits)
                           .data(WaveBytes::samples24({1, 2, 3, 4}))
                           .get();
    std::shared_ptr<WaveFileReader> made = WaveFileReader::readFromData(bytes);
    made->setIsBoMSFormat(isRaw);
    return made;
  }

  AudioQueueBuffer bufferOf(const std::vector<std::byte>& bytes, std::uint32_t frames) {
    storage = bytes;
    const auto size = static_cast<std::uint32_t>(storage.size());
    return {storage.data(), size, size, frames};
  }
  AudioQueueBuffer buffer24(const std::vector<std::int32_t>& samples) {
    return bufferOf(WaveBytes::samples24(samples), static_cast<std::uint32_t>(samples.size() / 2));
  }
  AudioQueueBuffer bufferFloat(const std::vector<float>& samples) {
    return bufferOf(WaveBytes::samplesFloat(samples),
                    static_cast<std::uint32_t>(samples.size() / 2));
  }
  [[nodiscard]] std::vector<float> floats() const {
    std::vector<float> samples(storage.size() / sizeof(float));
    std::memcpy(samples.data(), storage.data(), storage.size());
    return samples;
  }
  /// Two floats through the way back to 24 bits, as left and right.
  std::vector<std::byte> to24(float leftSample, float rightSample) {
    AudioQueueBuffer buffer = buffer24({0, 0});
    WavePlayer::prepareFloatBuffer(buffer);
    WavePlayer::floatScratch().bytes[0] = leftSample;
    WavePlayer::floatScratch().bytes[1] = rightSample;
    WavePlayer::convertFloat2Byte24Bit(buffer);
    return storage;
  }

  std::unique_ptr<WavePlayer> player;
  std::vector<std::byte> storage;
};

TEST_F(WavePlayerSamplesTest, TwentyFourBitsSurviveTheWayThereAndBack) {
  player->setReader(reader(24, false));
  std::vector<std::int32_t> samples{0, 1, -1, 8388607, -8388608, 65536, -65537, 255};
  for (std::int32_t i = -8388608; i < 8388000; i += 617) samples.push_back(i);
  if (samples.size() % 2 == 1) samples.push_back(5);
  AudioQueueBuffer buffer = buffer24(samples);
  const auto before = storage;
  WavePlayer::prepareFloatBuffer(buffer);
  player->convertByte24bit2Float(buffer);
  EXPECT_EQ(WavePlayer::floatScratch().bytes[0], 0.0F);
  EXPECT_EQ(WavePlayer::floatScratch().bytes[3], 8388607.0F * 0x1p-23F);
  EXPECT_EQ(WavePlayer::floatScratch().bytes[4], -1.0F);
  std::fill(storage.begin(), storage.end(), std::byte{0x55});
  WavePlayer::convertFloat2Byte24Bit(buffer);
  EXPECT_EQ(storage, before);
}

TEST_F(WavePlayerSamplesTest, LeftClipsAndRightWraps) {
  EXPECT_EQ(to24(1.2F, 1.2F), WaveBytes::samples24({0x7FFFFF, 0x99999A}));
  EXPECT_EQ(to24(-1.2F, 1.5F), WaveBytes::samples24({0x800000, 0xC00000}));
  EXPECT_EQ(to24(1.0F, 1.0F), WaveBytes::samples24({0x800000, 0x800000}));
  EXPECT_EQ(to24(-1.0F, -1.0F), WaveBytes::samples24({-8388608, -8388608}));
  EXPECT_EQ(to24(0.6F * 0x1p-23F, -1.9F * 0x1p-23F), WaveBytes::samples24({0, -1}));
}

TEST_F(WavePlayerSamplesTest, WhatIsNoNumberDoesNoHarm) {
  const float infinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(to24(std::nanf(""), std::nanf("")), WaveBytes::samples24({0, 0}));
  EXPECT_EQ(to24(infinity, infinity), WaveBytes::samples24({0x7FFFFF, 0}));
  EXPECT_EQ(to24(-infinity, 1e30F), WaveBytes::samples24({0x800000, 0}));
}

TEST_F(WavePlayerSamplesTest, TheScratchOnlyGrowsAndAQuarterOfItIsCleared) {
  AudioQueueBuffer large = bufferOf(std::vector<std::byte>(60000), 10000);
  WavePlayer::prepareFloatBuffer(large);
  WavArrayFloat32& scratch = WavePlayer::floatScratch();
  ASSERT_GE(scratch.length, 20000U);
  const std::uint64_t length = scratch.length;
  std::fill_n(scratch.bytes, length, 3.0F);
  AudioQueueBuffer small = bufferOf(std::vector<std::byte>(6), 1);
  WavePlayer::prepareFloatBuffer(small);
  EXPECT_EQ(scratch.length, length);
  EXPECT_THAT(std::vector<float>(scratch.bytes, scratch.bytes + length / 4), Each(0.0F));
  EXPECT_THAT(std::vector<float>(scratch.bytes + length / 4 + 1, scratch.bytes + length),
              Each(3.0F));
}

TEST_F(WavePlayerSamplesTest, WithoutAReaderEveryFrameIsTheFirstSample) {
  const AudioQueueBuffer buffer = buffer24({11, 22, 33, 44});
  WavePlayer::prepareFloatBuffer(buffer);
  player->convertByte24bit2Float(buffer);
  const float* const scratch = WavePlayer::floatScratch().bytes;
  EXPECT_THAT(std::vector<float>(scratch, scratch + 4), Each(11.0F * 0x1p-23F));
}

TEST_F(WavePlayerSamplesTest, AReaderOfAnotherWidthStaysWithinTheBuffer) {
  player->setReader(reader(32, false));
  const AudioQueueBuffer buffer = buffer24({1, 2, 3, 4, 5, 6});
  WavePlayer::prepareFloatBuffer(buffer);
  player->convertByte24bit2Float(buffer);
  EXPECT_EQ(WavePlayer::floatScratch().bytes[0], 1.0F * 0x1p-23F);
}

TEST_F(WavePlayerSamplesTest, DecodesRawFloatsWithAGlidingAngle) {
  player->setReader(reader(32, true));
  player->setAngle(2);
  AudioQueueBuffer buffer = bufferFloat({0.5F, 1.0F, 0.5F, 1.0F, 0.5F, 1.0F});
  player->processSampleBuffer(buffer, kFloat, 0);
  const float k1 = std::pow(10.0F, -48.0F / 20.0F);
  const float k2 = std::pow(10.0F, (-48.0F + 27.0F / 14.0F) / 20.0F);
  const std::vector<float> got = floats();
  EXPECT_NEAR(got[0], 0.5F + k1, 1e-6);
  EXPECT_NEAR(got[1], 0.5F - k1, 1e-6);
  EXPECT_NEAR(got[2], 0.5F + k2, 1e-6);
  EXPECT_EQ(got[4], got[2]);
  buffer = bufferFloat({0.5F, 1.0F});
  player->processSampleBuffer(buffer, kFloat, 3);
  EXPECT_EQ(floats()[0], got[2]) << "the next buffer begins where this one ended";
}

TEST_F(WavePlayerSamplesTest, GlidesTheGainWithItsSignTurned) {
  player->setReader(reader(32, false));
  player->setGain(20);
  std::vector<float> ones(4, 1.0F);
  AudioQueueBuffer buffer = bufferFloat(ones);
  player->processSampleBuffer(buffer, kFloat, 0);
  const std::vector<float> got = floats();
  EXPECT_EQ(got[0], 1.0F);
  EXPECT_FLOAT_EQ(got[2], 1.0F / 0.55F);
  buffer = bufferFloat(ones);
  player->processSampleBuffer(buffer, kFloat, 2);
  EXPECT_FLOAT_EQ(floats()[0], 10.0F);
  EXPECT_FLOAT_EQ(floats()[3], 10.0F);
}

TEST_F(WavePlayerSamplesTest, ProcessesTwentyFourBitsInPlace) {
  player->setReader(reader(24, true));
  AudioQueueBuffer buffer = buffer24({1000, 500, 1000, 500});
  player->processSampleBuffer(buffer, k24, 0);
  EXPECT_EQ(storage, WaveBytes::samples24({1000, 1000, 1000, 1000})) << "angle 0 is mono";
}

TEST_F(WavePlayerSamplesTest, WithoutTheRawMarkOnlyTheGainIsApplied) {
  player->setReader(reader(24, false));
  player->setAngle(0);
  AudioQueueBuffer buffer = buffer24({1000, 500});
  player->processSampleBuffer(buffer, k24, 0);
  EXPECT_EQ(storage, WaveBytes::samples24({1000, 500}));
}

TEST_F(WavePlayerSamplesTest, OtherSamplesArePlayedUntouched) {
  player->setReader(reader(16, true));
  player->setGain(12);
  const std::vector<AudioFormat> others{
      {48000, 0, 4, 1, 2, 16, SampleType::Signed16},
      {48000, 0, 8, 1, 2, 32, SampleType::Signed32},
      {48000, 0, 2, 1, 2, 8, SampleType::Unsigned8},
      {48000, kAudioFormatFlagIsFloat, 8, 1, 2, 0, SampleType::Float32}};
  for (const AudioFormat& other : others) {
    AudioQueueBuffer buffer = bufferOf(std::vector<std::byte>(32, std::byte{0x41}), 4);
    for (int i = 0; i < 2; ++i) player->processSampleBuffer(buffer, other, 0);
    EXPECT_THAT(storage, Each(std::byte{0x41})) << other.bitsPerChannel;
  }
}

TEST_F(WavePlayerSamplesTest, ABufferWithoutDataIsLeftAlone) {
  AudioQueueBuffer nothing{nullptr, 0, 0, 4};
  player->processSampleBuffer(nothing, kFloat, 0);
  player->processSampleBuffer(nothing, k24, 0);
  EXPECT_EQ(nothing.data, nullptr);
}

// One channel: half as many pairs as frames. The gain reaches all of them and nothing beyond.
TEST_F(WavePlayerSamplesTest, OneChannelStaysWithinTheBuffer) {
  player->setReader(reader(24, false));
  player->setGain(6);
  for (int i = 0; i < 2; ++i) {
    AudioQueueBuffer buffer = bufferOf(WaveBytes::samples24({1000, 1000, 1000, 1000}), 4);
    player->processSampleBuffer(buffer, {48000, 0, 3, 1, 1, 24, SampleType::Signed24}, 0);
  }
  EXPECT_EQ(storage, WaveBytes::samples24({1995, 1995, 1995, 1995}));
  for (int i = 0; i < 2; ++i) {
    AudioQueueBuffer buffer = bufferOf(WaveBytes::samplesFloat({0.1F, 0.1F, 0.1F, 0.1F}), 4);
    player->processSampleBuffer(
        buffer, {48000, kAudioFormatFlagIsFloat, 4, 1, 1, 32, SampleType::Float32}, 0);
  }
  for (const float sample : floats()) EXPECT_NEAR(sample, 0.19953, 1e-5);
}

}  // namespace
