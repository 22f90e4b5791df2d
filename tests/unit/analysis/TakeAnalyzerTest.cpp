// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeAnalyzer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "TestTake.h"
#include "support/SlowReads.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr std::uint32_t kTakeRate = 48000;

void expectSame(const TakeAnalysis& got, const TakeAnalysis& wanted) {
  EXPECT_EQ(got.findings().blocks, wanted.findings().blocks);
  EXPECT_EQ(got.findings().keys, wanted.findings().keys);
  EXPECT_EQ(got.findings().peakKeys, wanted.findings().peakKeys);
  EXPECT_TRUE(got.findings().samplePeaks == wanted.findings().samplePeaks);
  EXPECT_TRUE(got.findings().truePeaks == wanted.findings().truePeaks);
}

class TakeAnalyzerTest : public testing::Test {
 protected:
  TakeAnalyzerTest() { SlowReads::reset(); }
  ~TakeAnalyzerTest() override { SlowReads::reset(); }

  static TakeAnalyzer::Options workers(unsigned count) {
    TakeAnalyzer::Options options;
    options.workers = count;
    return options;
  }

  std::unique_ptr<WaveFileReader> openFile() {
    std::string whyNot;
    auto reader = WaveFileReader::openFile(
        _folder.file("take.wav", TestTake::file(_frames, kTakeRate)), whyNot);
    reader->setIsBoMSFormat(true);
    return reader;
  }

  TemporaryFolder _folder;
  const Frames _frames = TestTake::wandering(kTakeRate, 14.2, 1);  // four units
};

}  // namespace

TEST_F(TakeAnalyzerTest, AnyNumberOfWorkersFindsTheSame) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true, workers(1));
  for (const unsigned count : {0U, 2U, 3U, 16U}) {
    expectSame(*TestTake::analyse(_frames, kTakeRate, true, workers(count)), *wanted);
  }
}

TEST_F(TakeAnalyzerTest, AFileOnDiskIsReadAsOneInMemory) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  expectSame(*TakeAnalyzer(*openFile()).wait(), *wanted);
}

TEST_F(TakeAnalyzerTest, ASlowMediumMakesNoDifference) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 40'000'000);
  double last = 0;
  TakeAnalyzer analyzer(*reader);
  const auto got = analyzer.wait(nullptr, [&last](double done) {
    EXPECT_GE(done, last);
    last = done;
  });
  ASSERT_NE(got, nullptr);
  expectSame(*got, *wanted);
  EXPECT_EQ(last, 1.0);
}

// What a medium of 20 MB/s gives in a tenth of a second: there are ten pictures a second.
TEST_F(TakeAnalyzerTest, ATenthOfASecondOfASlowMediumTellsMore) {
  const auto reader = openFile();
  for (const unsigned count : {1U, 2U, 4U}) {
    SlowReads::reset();
    SlowReads::give(_folder.path().native(), 0);
    TakeAnalyzer analyzer(*reader, workers(count));
    double known = 0;
    while (known < 1) {
      SlowReads::give(_folder.path().native(), 2'000'000);
      const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
      while (analyzer.progress() == known && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
      }
      ASSERT_GT(analyzer.progress(), known) << count << " workers";
      known = analyzer.progress();
    }
    EXPECT_NE(analyzer.wait(), nullptr);
  }
}

TEST_F(TakeAnalyzerTest, TheLastReportIsThatAllIsDoneHoweverEarlyItWas) {
  const auto reader = TestTake::reader({0.5F, 0.25F}, kTakeRate, true);
  TakeAnalyzer analyzer(*reader);
  while (!analyzer.isFinished()) std::this_thread::yield();
  std::vector<double> reports;
  ASSERT_NE(analyzer.wait(nullptr, [&](double done) { reports.push_back(done); }), nullptr);
  EXPECT_EQ(reports, std::vector{1.0});
}

TEST_F(TakeAnalyzerTest, UnitsInAnyOrderFindTheSame) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 40'000'000);
  for (const std::uint64_t frame : {600000ULL, 200000ULL, ~0ULL}) {
    TakeAnalyzer analyzer(*reader, workers(1));
    analyzer.lookAt(frame);
    const auto got = analyzer.wait();
    ASSERT_NE(got, nullptr);
    expectSame(*got, *wanted);
  }
}

TEST_F(TakeAnalyzerTest, ShowsWhatHasComeSoFarFromWhereSomeoneLooks) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 3'000'000);
  TakeAnalyzer analyzer(*reader, workers(1));
  analyzer.lookAt(500000);
  std::size_t partial = 0;
  while (!analyzer.isFinished()) {
    const auto soFar = analyzer.soFar();
    const bool isPart = soFar->findings().unitsKnown > 0 && !soFar->isComplete();
    if (isPart) {
      ++partial;
      EXPECT_LE(soFar->samplePeak(120), wanted->samplePeak(120));
      const Waveform waveform = soFar->waveform(120, 0, 0, 681600, 142);
      const Waveform whole = wanted->waveform(120, 0, 0, 681600, 142);
      for (std::size_t i = 0; i < 142; ++i) {
        if (!waveform.columns[i].isKnown) continue;
        EXPECT_EQ(waveform.columns[i].greatestLeft, whole.columns[i].greatestLeft);
      }
    }
    std::this_thread::yield();
  }
  EXPECT_GT(partial, 0U);
  EXPECT_EQ(analyzer.progress(), 1.0);
  expectSame(*analyzer.soFar(), *wanted);
}

TEST_F(TakeAnalyzerTest, CancelEndsTheWait) {
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 100'000);
  const std::atomic<bool> cancel{true};
  TakeAnalyzer analyzer(*reader);
  EXPECT_EQ(analyzer.wait(&cancel), nullptr);
  EXPECT_TRUE(analyzer.isFinished());
  EXPECT_TRUE(analyzer.failure().empty());
}

// Half an hour for the first unit: who waits for it does not end in time.
TEST_F(TakeAnalyzerTest, LettingGoDoesNotWaitForTheMedium) {
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 1000);
  {
    const TakeAnalyzer analyzer(*reader);
    EXPECT_EQ(analyzer.progress(), 0);
    EXPECT_FALSE(analyzer.isFinished());
  }
}

TEST_F(TakeAnalyzerTest, AMediumThatIsPulledOutIsAFailureWithAReason) {
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 0);
  SlowReads::pullOut();
  TakeAnalyzer analyzer(*reader);
  EXPECT_EQ(analyzer.wait(), nullptr);
  EXPECT_FALSE(analyzer.failure().empty());
}

TEST_F(TakeAnalyzerTest, AFileThatBecomesShorterIsAFailure) {
  const auto reader = openFile();
  std::filesystem::resize_file(_folder.path() / "take.wav", 100000);
  TakeAnalyzer analyzer(*reader);
  EXPECT_EQ(analyzer.wait(), nullptr);
  EXPECT_EQ(analyzer.failure(), "The file became shorter");
}

TEST_F(TakeAnalyzerTest, TheResultOfAnHourIsAtMostEightMebibytes) {
  constexpr std::size_t kSeconds = 60;
  const auto analysis = TestTake::analyse(Frames(2 * kSeconds * kTakeRate), kTakeRate, true);
  constexpr std::size_t kHour = 3600 / kSeconds;
  EXPECT_LE(analysis->memory() * kHour, std::size_t{8} << 20);
}
