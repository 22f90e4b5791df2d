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

constexpr std::size_t kFrames = 500'000;  // several parts for each processor

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
  for (const std::size_t frame : {0U, 163839U, 163840U, 327680U, 499999U}) {
    samples[2 * frame + 1] = -0.75F;
    EXPECT_EQ(PeakPass(*reader(samples, false), 1).run(nullptr, {}), 0.75F) << frame;
    samples[2 * frame + 1] = 0.125F;
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
  for (const std::uint64_t frame : {range.first, std::uint64_t{263'838}, range.end - 1}) {
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
