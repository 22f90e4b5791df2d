// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What may run at the same time: exports, and readers of the file that is exported.

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include "export/ProcessorShare.h"
#include "support/ThreadCount.h"
#include "unit/export/ExportFixture.h"

namespace fs = std::filesystem;

namespace {

class ExportParallelTest : public ExportFixture {
 protected:
  static std::vector<float> wave() {
    std::vector<float> samples;
    for (int i = 0; i < 400000; ++i) samples.push_back(std::sin(static_cast<float>(i) * 0.01F));
    return samples;
  }

  /// The samples of an export, without the header, which is dated.
  static std::vector<float> samplesOf(const fs::path& path) {
    return ByteView(TemporaryFolder::read(path)).allFloats(kSamples);
  }

  /// Enough for every processor of any machine.
  static std::vector<float> longTone() {
    std::vector<float> samples(6'000'000);
    for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = i / 100 % 2 == 0 ? 0.5F : -0.5F;
    return samples;
  }

  [[nodiscard]] fs::path numbered(int i) const { return _folder.path() / std::to_string(i); }

  fs::path _source = _folder.file("in.wav", recordingFloat(wave(), true));
};

TEST_F(ExportParallelTest, ExportsOneFileToManyTargets) {
  const std::vector<float> alone = exportedFloats(recordingFloat(wave(), true), {77, 0, true});
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([this, i] {
        Export job(_source);
        job.setAngle(77);
        EXPECT_TRUE(job.export2File(numbered(i), false, true)) << job.failure();
      });
    }
  }
  for (int i = 0; i < 4; ++i) EXPECT_TRUE(samplesOf(numbered(i)) == alone) << i;
}

TEST_F(ExportParallelTest, LeavesOneWholeFileWhenAllGoToOneTarget) {
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
      threads.emplace_back([this, i] {
        Export job(_source);
        job.setAngle(30 * i);
        EXPECT_TRUE(job.export2File(target(), false, false)) << job.failure();
      });
    }
  }
  const std::vector<float> last = samplesOf(target());
  int matches = 0;
  for (int i = 0; i < 4; ++i) {
    const Bytes source = TemporaryFolder::read(_source);
    matches += exportedFloats(source, {30.0 * i}) == last ? 1 : 0;
  }
  EXPECT_EQ(matches, 1);
  EXPECT_THAT(_folder.names(), testing::ElementsAre("in.wav", "out.wav"));
}

TEST_F(ExportParallelTest, TakesNoFurtherThreadsWhereEveryProcessorHasAJob) {
  const auto others = ProcessorShare::spare();
  const fs::path source = _folder.file("long.wav", recordingFloat(longTone(), true));
  for (const bool isLoudness : {false, true}) {
    Export job(source);
    if (isLoudness) job.setLoudness(LoudnessTarget{-23, -1});
    const std::size_t before = ThreadCount::now();
    std::size_t during = 0;
    job.setProgress([&](double done) {
      if (done <= 0.5)
        during = std::max(during, ThreadCount::now());  // the second pass has a writer
    });
    EXPECT_TRUE(job.export2File(target(), false, !isLoudness)) << job.failure();
    EXPECT_GT(during, 0U);
    EXPECT_LE(during, before + (isLoudness ? 1 : 0));  // an analysis is a worker's
  }
}

TEST_F(ExportParallelTest, LetsOthersReadDuringAnExport) {
  Export job(_source);
  job.setAngle(120);
  WaveFileReader meter = *job.reader();
  std::atomic<bool> isDone{false};
  std::jthread worker([&] {
    EXPECT_TRUE(job.export2File(target(), true, true)) << job.failure();
    isDone = true;
  });
  while (!meter.follow(0.5, 0.6)) std::this_thread::yield();
  float first = 0;
  float right = 0;
  meter.getSampleLevelMeterFrom(0.5, 0.6, first, right, 0, 120);
  EXPECT_GT(first, 1.0F);
  do {
    float left = 0;
    meter.getSampleLevelMeterFrom(0.5, 0.6, left, right, 0, 120);
    EXPECT_EQ(left, first);
  } while (!isDone);
}

TEST_F(ExportParallelTest, StopsWhenAnotherThreadCancels) {
  Export job(_source);
  std::atomic<bool> cancel{false};
  std::atomic<bool> hasBegun{false};
  job.setCancelFlag(&cancel);
  job.setProgress([&](double) {
    hasBegun = true;
    hasBegun.notify_all();
    cancel.wait(false);
  });
  std::jthread other([&] {
    hasBegun.wait(false);
    cancel = true;
    cancel.notify_all();
  });
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_TRUE(job.wasCancelled());
  EXPECT_THAT(_folder.names(), testing::ElementsAre("in.wav"));
}

}  // namespace
