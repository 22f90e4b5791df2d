// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/MidSideDecoder.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <new>
#include <vector>

#include "SampleInputs.h"

namespace {

float wantedFactor(std::int64_t angle) {
  if (angle == 0) return 0.0F;
  const auto i = static_cast<double>(angle);
  const double dB = angle <= 15 ? -48.0 + (i - 1.0) * 27.0 / 14.0 : (i - 120.0) * 0.2;
  return static_cast<float>(std::pow(10.0, dB / 20.0));
}

// Frames of Mid 0 and Side 1: decoded, Left is the factor itself.
std::vector<float> pureSide(std::size_t frameCount) {
  std::vector<float> frames(2 * frameCount);
  for (std::size_t i = 1; i < frames.size(); i += 2) frames[i] = 1.0F;
  return frames;
}

void expectWidthGlide(std::int64_t prevAngle, std::int64_t curAngle,
                      const std::vector<std::int64_t>& angles) {
  std::vector<float> frames = pureSide(angles.size());
  MidSideDecoder::glide(frames, {.curAngle = curAngle, .prevAngle = prevAngle});
  for (std::size_t n = 0; n < angles.size(); ++n) {
    EXPECT_FLOAT_EQ(frames[2 * n], wantedFactor(angles[n])) << "frame " << n;
    EXPECT_FLOAT_EQ(frames[2 * n + 1], -wantedFactor(angles[n])) << "frame " << n;
  }
}

// One page of memory seen at two addresses.
class TwoViews {
 public:
  TwoViews() : _file(memfd_create("two-views", MFD_CLOEXEC)) {
    if (_file < 0 || ftruncate(_file, kSize) != 0) throw std::bad_alloc();
    for (void*& view : _views) {
      view = mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED, _file, 0);
      if (view == MAP_FAILED) throw std::bad_alloc();
    }
  }
  ~TwoViews() {
    for (void* view : _views) munmap(view, kSize);
    close(_file);
  }
  TwoViews(const TwoViews&) = delete;
  TwoViews& operator=(const TwoViews&) = delete;

  std::span<float> floats(std::size_t count) { return {static_cast<float*>(_views[0]), count}; }
  AdjustAngleInfo* infoAtFloat(std::size_t index) {
    return new (static_cast<float*>(_views[1]) + index) AdjustAngleInfo;
  }

 private:
  static constexpr std::size_t kSize = 4096;

  int _file;
  std::array<void*, 2> _views{};
};

}  // namespace

TEST(MidSideDecoderTest, Angle120TakesSideAsItIs) {
  std::array<float, 2> frame{0.5F, 0.25F};
  MidSideDecoder::decode(frame, 120);
  EXPECT_EQ(frame[0], 0.75F);
  EXPECT_EQ(frame[1], 0.25F);
}

TEST(MidSideDecoderTest, Angle0IsMono) {
  std::array<float, 4> frames{0.5F, 0.25F, -0.125F, 1.0F};
  MidSideDecoder::decode(frames, 0);
  EXPECT_EQ(bitsOf(frames), bitsOf(std::array{0.5F, 0.5F, -0.125F, -0.125F}));
}

TEST(MidSideDecoderTest, Angle150ExceedsFullScaleWithoutClipping) {
  std::array<float, 2> frame{0.6F, 0.5F};
  MidSideDecoder::decode(frame, 150);
  EXPECT_NEAR(frame[0], 0.6 + 0.5 * std::pow(10.0, 0.3), 1e-6);  // about 1.5976
  EXPECT_NEAR(frame[1], 0.6 - 0.5 * std::pow(10.0, 0.3), 1e-6);  // about -0.3976
}

TEST(MidSideDecoderTest, EveryAngleUsesItsFactorOnEveryFrame) {
  for (int angle = 0; angle <= 150; ++angle) {
    std::vector<float> frames = pureSide(37);
    MidSideDecoder::decode(frames, angle);
    for (std::size_t i = 0; i < frames.size(); i += 2) {
      ASSERT_FLOAT_EQ(frames[i], wantedFactor(angle)) << angle;
      ASSERT_FLOAT_EQ(frames[i + 1], -wantedFactor(angle)) << angle;
    }
  }
}

TEST(MidSideDecoderTest, AnglesOutsideTheTableAreClamped) {
  std::array<float, 2> low{0.5F, 0.25F};
  MidSideDecoder::decode(low, -7);
  EXPECT_EQ(bitsOf(low), bitsOf(std::array{0.5F, 0.5F}));
  std::array<float, 2> high{0.0F, 1.0F};
  MidSideDecoder::decode(high, 1000);
  EXPECT_FLOAT_EQ(high[0], wantedFactor(150));
}

TEST(MidSideDecoderTest, NoFramesAreNothingToDo) {
  MidSideDecoder::decode({}, 120);
  std::array<float, 2> beyond{0.5F, 0.25F};
  MidSideDecoder::glide(std::span(beyond).first(0), {.curAngle = 150, .prevAngle = 0});
  EXPECT_EQ(bitsOf(beyond), bitsOf(std::array{0.5F, 0.25F}));
}

TEST(MidSideDecoderTest, GlideTakesTheFirstStepOnTheFirstFrameAndThenHolds) {
  expectWidthGlide(100, 103, {101, 102, 103, 103, 103});
}

TEST(MidSideDecoderTest, GlideGoesDownAsItGoesUp) {
  expectWidthGlide(17, 14, {16, 15, 14, 14});
}

TEST(MidSideDecoderTest, GlideWithoutAChangeUsesOneAngle) {
  expectWidthGlide(90, 90, {90, 90, 90});
}

TEST(MidSideDecoderTest, GlideMayEndBeforeItArrives) {
  expectWidthGlide(0, 150, {1, 2, 3});
}

TEST(MidSideDecoderTest, GlideOverTheWholeTable) {
  std::vector<std::int64_t> angles;
  for (std::int64_t angle = 149; angle >= 0; --angle) angles.push_back(angle);
  angles.push_back(0);
  expectWidthGlide(150, 0, angles);
}

TEST(MidSideDecoderTest, GlideOnlyReadsItsRecord) {
  AdjustAngleInfo info{.curAngle = 110, .prevAngle = 20};
  std::vector<float> frames = pureSide(5);
  MidSideDecoder::glide(frames, info);
  EXPECT_EQ(info.curAngle, 110);
  EXPECT_EQ(info.prevAngle, 20);
}

// The third frame lies in the same memory as `curAngle`. Decoding it turns its Side, the upper half
// of the number, negative: what was far above the angle is now far below it.
TEST(MidSideDecoderTest, GlideReadsTheAngleToReachAfreshForEachFrame) {
  TwoViews views;
  AdjustAngleInfo* const info = views.infoAtFloat(4);
  const std::span<float> frames = views.floats(12);
  info->curAngle = std::bit_cast<std::int64_t>(std::array{0.0F, 0.5F});
  info->prevAngle = 100;  // lies in the fourth frame, is read before the first
  for (const std::size_t frame : {0U, 1U, 4U, 5U}) frames[2 * frame + 1] = 1.0F;
  MidSideDecoder::glide(frames, *info);
  EXPECT_FLOAT_EQ(frames[0], wantedFactor(101));
  EXPECT_FLOAT_EQ(frames[2], wantedFactor(102));
  EXPECT_FLOAT_EQ(frames[4], 0.5F * wantedFactor(103));
  EXPECT_LT(info->curAngle, 0);
  EXPECT_FLOAT_EQ(frames[8], wantedFactor(101));
  EXPECT_FLOAT_EQ(frames[10], wantedFactor(100));
}
