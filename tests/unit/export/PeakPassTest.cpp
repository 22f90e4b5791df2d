// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/PeakPass.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include "dsp/PlainKernels.h"
#include "support/RefusedMemory.h"
#include "unit/export/ExportFixture.h"

namespace {

constexpr std::size_t kPart = 174'762;  // frames that a thread takes at once
constexpr std::size_t kFrames = 4 * kPart + 1;

class PeakPassTest : public ExportFixture {
 protected:
  static std::unique_ptr<WaveFileReader> reader(const std::vector<float>& samples, bool isRaw) {
    auto reader = WaveFileReader::readFromData(recordingFloat(samples, isRaw));
    reader->setIsBoMSFormat(isRaw);
    return reader;
  }
};

TEST_F(PeakPassTest, FindsThePeakWhereverItIs) {
  std::vector<float> samples(2 * kFrames, 0.125F);
  for (const std::size_t frame : {std::size_t{0}, kPart - 1, kPart, 2 * kPart, kFrames - 1}) {
    samples[2 * frame + 1] = -0.75F;
    EXPECT_EQ(PeakPass(*reader(samples, false), 1).run(nullptr, {}), 0.75F) << frame;
    samples[2 * frame + 1] = 0.125F;
  }
}

TEST_F(PeakPassTest, OfIntegersIsThatOfTheDecodeWhereverItIs) {
  std::vector<std::int32_t> samples(2 * kFrames, 0x1234);
  const auto peakIn = [&](const FrameRange& range) {
    const auto file = _folder.file("in.wav", recording24(samples, true));
    std::string whyNot;
    const auto source = WaveFileReader::openFile(file, whyNot);
    source->setIsBoMSFormat(true);
    return PeakPass(*source, 0.7F, range).run(nullptr, {});
  };
  for (const std::size_t frame :
       {std::size_t{0}, kPart - 1, kPart, std::size_t{10'883}, kFrames - 1}) {
    samples[2 * frame] = -0x400000;
    samples[2 * frame + 1] = 0x300000;
    std::vector<float> decoded{-0.5F, 0.375F};
    PlainKernels::decodeMidSide(decoded, 0.7F);
    const float wanted = PlainKernels::peakMagnitude(decoded, 0);
    EXPECT_EQ(peakIn({0, kFrames}), wanted) << frame;
    EXPECT_EQ(peakIn({frame, frame + 1}), wanted) << frame;
    EXPECT_LT(*peakIn({frame + 1, kFrames}), 0.01F) << frame;
    samples[2 * frame] = samples[2 * frame + 1] = 0x1234;
  }
}

TEST_F(PeakPassTest, IsThatOfTheDecodeToTheLastBit) {
  std::vector<float> samples(2 * kFrames);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = std::sin(static_cast<float>(i * i % 9973));
  }
  const auto source = reader(samples, true);
  PlainKernels::decodeMidSide(samples, 0.7F);
  EXPECT_EQ(PeakPass(*source, 0.7F).run(nullptr, {}), PlainKernels::peakMagnitude(samples, 0));
}

TEST_F(PeakPassTest, OfAStretchLooksAtNothingElse) {
  std::vector<float> samples(2 * kFrames, 0.125F);
  const FrameRange range{99'999, 400'001};
  samples[2 * range.first - 1] = 0.9F;
  samples[2 * range.end] = 0.9F;
  const auto peak = [&] {
    std::uint64_t told = 0;
    const auto found =
        PeakPass(*reader(samples, false), 1, range).run(nullptr, [&](std::uint64_t frames) {
          told += frames;
        });
    EXPECT_EQ(told, range.end - range.first);
    return found;
  };
  EXPECT_EQ(peak(), 0.125F);
  for (const std::uint64_t frame :
       {range.first, range.first + kPart - 1, range.first + kPart, range.end - 1}) {
    samples[2 * frame] = -0.5F;
    EXPECT_EQ(peak(), 0.5F) << frame;
    samples[2 * frame] = 0.125F;
  }
  EXPECT_EQ(PeakPass(*reader(samples, false), 1, {7, 7}).run(nullptr, {}), 0.0F);
}

TEST_F(PeakPassTest, NothingHasNoPeak) {
  EXPECT_EQ(PeakPass(*reader({}, true), 1).run(nullptr, {}), 0.0F);
  const std::vector<float> noNumbers(8, std::numeric_limits<float>::quiet_NaN());
  EXPECT_EQ(PeakPass(*reader(noNumbers, false), 1).run(nullptr, {}), 0.0F);
}

TEST_F(PeakPassTest, ReportsEveryFrameOnce) {
  std::uint64_t told = 0;
  const auto source = reader(std::vector<float>(2 * kFrames), true);
  PeakPass(*source, 1).run(nullptr, [&](std::uint64_t frames) { told += frames; });
  EXPECT_EQ(told, kFrames);
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
// The thread that runs has memory, and goes on once its helper has found none.
TEST_F(PeakPassTest, MemoryThatRunsOutForAHelperIsAFailureWithAReason) {
  const auto file = _folder.file("in.wav", recordingFloat(std::vector<float>(2 * kFrames), false));
  std::string whyNot;
  const auto source = WaveFileReader::openFile(file, whyNot);
  ASSERT_NE(source, nullptr) << whyNot;
  constexpr std::size_t kNoBlock = std::size_t{32} << 10;
  const RefusedMemory refused(kNoBlock);
  PeakPass pass(*source, 1);
  pass.setThreads(2);
  const auto found = pass.run(nullptr, [](std::uint64_t /*frames*/) {
    while (RefusedMemory::count() == 0) std::this_thread::yield();
  });
  EXPECT_EQ(found, std::nullopt);
  EXPECT_EQ(pass.failure(), "There is not enough memory");
}
#endif

TEST_F(PeakPassTest, CancelEndsIt) {
  const std::atomic<bool> cancel{true};
  const auto source = reader(std::vector<float>(2 * kFrames), true);
  PeakPass pass(*source, 1);
  EXPECT_EQ(pass.run(&cancel, {}), std::nullopt);
  EXPECT_EQ(pass.failure(), "");
}

}  // namespace
