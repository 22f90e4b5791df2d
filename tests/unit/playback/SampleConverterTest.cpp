// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/SampleConverter.h"

#include <gmock/gmock.h>

#include <vector>

#include "support/ByteBuilder.h"

using testing::ElementsAre;

namespace {

std::vector<float> converted(SampleType type, const ByteBuilder& bytes) {
  std::vector<float> samples(bytes.size() / sampleBytes(type));
  SampleConverter::toFloats(type, bytes.get(), samples);
  return samples;
}

TEST(SampleConverter, ScalesIntegersToFullScale) {
  EXPECT_THAT(converted(SampleType::Unsigned8, ByteBuilder().u8(0).u8(128).u8(255)),
              ElementsAre(-1.0F, 0.0F, 127.0F / 128));
  EXPECT_THAT(converted(SampleType::Signed16, ByteBuilder().u16(0x8000).u16(1).u16(0x7FFF)),
              ElementsAre(-1.0F, 0x1p-15F, 32767.0F / 32768));
  EXPECT_THAT(converted(SampleType::Signed24, ByteBuilder().s24(-8388608).s24(1).s24(8388607)),
              ElementsAre(-1.0F, 0x1p-23F, 8388607 * 0x1p-23F));
  EXPECT_THAT(converted(SampleType::Signed32, ByteBuilder().u32(0x80000000).u32(0x40000000)),
              ElementsAre(-1.0F, 0.5F));
}

TEST(SampleConverter, LeavesFloats) {
  EXPECT_THAT(converted(SampleType::Float32, ByteBuilder().f32(1e-42F).f32(-7.5F)),
              ElementsAre(1e-42F, -7.5F));
}

TEST(SampleConverter, MakesSilenceOfNothing) {
  std::vector<float> samples(2, 1.0F);
  SampleConverter::toFloats(SampleType::None, {}, samples);
  EXPECT_THAT(samples, ElementsAre(0.0F, 0.0F));
}

}  // namespace
