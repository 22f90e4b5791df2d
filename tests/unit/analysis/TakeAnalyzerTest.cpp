// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeAnalyzer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fstream>
#include <thread>

#include "TestTake.h"
#include "analysis/UnitPass.h"
#include "support/RefusedMemory.h"
#include "support/SlowReads.h"
#include "support/TemporaryFolder.h"
#include "support/ThreadCount.h"

namespace {

constexpr std::uint32_t kTakeRate = 48000;
constexpr double kAnyMedium = 0;  // bytes a second that make it a quick one
constexpr double kNoMedium = 1e18;
constexpr unsigned kManyWorkers = 64;          // more than may be at any rate
constexpr std::uint64_t kOneUnit = 1'750'000;  // bytes: one, and what is read beyond it

void expectSame(const TakeAnalysis& got, const TakeAnalysis& wanted) {
  EXPECT_TRUE(got.findings() == wanted.findings());
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

  /// By one worker on any processor, of a take of any length.
  static TakeAnalyzer::Options waveformFirst(double quickMedium) {
    TakeAnalyzer::Options options;
    options.workers = 1;
    options.workersMemory = 1;  // for one of them
    options.waveformFirst = true;
    options.longTake = 0;
    options.quickMedium = quickMedium;
    return options;
  }
  static std::vector<Waveform::Column> columnsOf(const TakeAnalysis& analysis, int width = 120) {
    return analysis.waveform(width, 0, 0, ~0ULL, 142).columns;
  }

  std::unique_ptr<WaveFileReader> openFile() { return openFile(_frames, kTakeRate); }
  std::unique_ptr<WaveFileReader> openFile(const Frames& frames, std::uint32_t rate) {
    std::string whyNot;
    auto reader =
        WaveFileReader::openFile(_folder.file("take.wav", TestTake::file(frames, rate)), whyNot);
    reader->setIsBoMSFormat(true);
    return reader;
  }

  /// What a medium of 20 MB/s gives in a tenth of a second, unless so many bytes are told.
  void giveUntilMoreIsKnown(const TakeAnalyzer& analyzer, std::uint64_t bytes = 2'000'000) {
    const double known = analyzer.progress();
    SlowReads::give(_folder.path().native(), bytes);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (analyzer.progress() == known && std::chrono::steady_clock::now() < deadline) {
      std::this_thread::yield();
    }
    ASSERT_GT(analyzer.progress(), known);
  }

  /// The frames of so many units.
  static Frames units(std::size_t count, std::uint32_t rate) {
    return Frames(2 * count * TakeLayout(rate, 1, true).framesPerUnit(), 0.25F);
  }

  /// What is known of it is more than its waveform.
  static bool isMeasured(const TakeFindings::Unit& unit) {
    return unit && !std::isnan(unit->blocks.front().first);
  }

  /// Units in the order in which they are measured, while the medium gives one at a time. Without
  /// the first: the worker may have been in it before it was told where to begin.
  std::vector<std::size_t> orderOf(const TakeAnalyzer& analyzer) {
    std::vector<std::size_t> order;
    while (!HasFatalFailure() && analyzer.progress() < 1) {
      giveUntilMoreIsKnown(analyzer, kOneUnit);
      const auto soFar = analyzer.soFar();
      for (std::size_t unit = 1; unit < soFar->layout().units(); ++unit) {
        const bool isNew = std::ranges::find(order, unit) == order.end();
        if (isNew && isMeasured(soFar->findings().units[unit])) order.push_back(unit);
      }
    }
    return order;
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

// There are ten pictures a second.
TEST_F(TakeAnalyzerTest, ATenthOfASecondOfASlowMediumTellsMore) {
  const auto reader = openFile();
  for (const unsigned count : {1U, 2U, 4U}) {
    SlowReads::reset();
    SlowReads::give(_folder.path().native(), 0);
    TakeAnalyzer analyzer(*reader, workers(count));
    while (analyzer.progress() < 1) giveUntilMoreIsKnown(analyzer);
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
  struct Look {
    std::uint64_t frame;
    std::vector<std::size_t> order;
  };
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  const auto reader = openFile();
  for (const Look& look : {Look{600000, {3, 1, 2}}, {500000, {2, 3, 1}}, {~0ULL, {1, 2, 3}}}) {
    SlowReads::reset();
    SlowReads::give(_folder.path().native(), 0);
    TakeAnalyzer analyzer(*reader, workers(1));
    analyzer.lookAt(look.frame);
    EXPECT_EQ(orderOf(analyzer), look.order) << look.frame;
    const auto got = analyzer.wait();
    ASSERT_NE(got, nullptr);
    expectSame(*got, *wanted);
  }
}

TEST_F(TakeAnalyzerTest, ShowsWhatHasComeSoFarFromWhereSomeoneLooks) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  const auto whole = columnsOf(*wanted);
  const std::size_t columnsOfUnit = wanted->layout().blocksPerUnit();
  const auto reader = openFile();
  SlowReads::give(_folder.path().native(), 0);
  TakeAnalyzer analyzer(*reader, workers(1));
  analyzer.lookAt(500000);
  while (!HasFatalFailure() && analyzer.progress() < 1) {
    giveUntilMoreIsKnown(analyzer, kOneUnit);
    const auto soFar = analyzer.soFar();
    const auto& units = soFar->findings().units;
    EXPECT_TRUE(units[2] || !units[1]) << "nobody looks at the second one";
    EXPECT_LE(soFar->samplePeak(120), wanted->samplePeak(120));
    const auto columns = columnsOf(*soFar);
    for (std::size_t i = 0; i < columns.size(); ++i) {
      ASSERT_EQ(columns[i].isKnown, units[i / columnsOfUnit] != nullptr) << i;
      if (!columns[i].isKnown) continue;
      EXPECT_EQ(columns[i].greatestLeft, whole[i].greatestLeft);
    }
  }
  ASSERT_NE(analyzer.wait(), nullptr);
  expectSame(*analyzer.soFar(), *wanted);
}

// The medium gives the take once, and a little more: by then all of its waveform is there.
TEST_F(TakeAnalyzerTest, TheWaveformOfALongTakeComesFirst) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  const auto reader = openFile();
  SlowReads::give(_folder.path().native(), 0);
  TakeAnalyzer analyzer(*reader, waveformFirst(kAnyMedium));
  const auto isDrawn = [&] {
    return std::ranges::all_of(columnsOf(*analyzer.soFar()), &Waveform::Column::isKnown);
  };
  while (!HasFatalFailure() && !isDrawn()) giveUntilMoreIsKnown(analyzer);
  const auto first = analyzer.soFar();
  EXPECT_LT(first->findings().unitsKnown, first->layout().units());
  EXPECT_LT(analyzer.progress(), 0.5);
  for (const int width : {0, 90, 150}) {
    const auto drawn = columnsOf(*first, width);
    const auto whole = columnsOf(*wanted, width);
    for (std::size_t i = 0; i < drawn.size(); ++i) {
      EXPECT_EQ(drawn[i].greatestLeft, whole[i].greatestLeft);
      EXPECT_EQ(drawn[i].leastRight, whole[i].leastRight);
    }
  }
  SlowReads::reset();
  const auto got = analyzer.wait();
  ASSERT_NE(got, nullptr);
  expectSame(*got, *wanted);
  EXPECT_EQ(analyzer.progress(), 1.0);
}

TEST_F(TakeAnalyzerTest, AfterTheWaveformTheRestBeginsWhereSomeoneLooks) {
  const auto reader = openFile();
  SlowReads::give(_folder.path().native(), 0);
  TakeAnalyzer analyzer(*reader, waveformFirst(kAnyMedium));
  analyzer.lookAt(500000);
  const std::vector<std::size_t> order = orderOf(analyzer);
  ASSERT_EQ(order.size(), 3U);
  EXPECT_EQ(order.front(), 2U) << "and not the one that was drawn last";
  EXPECT_EQ(analyzer.soFar()->findings().unitsDrawn, 4U);
}

TEST_F(TakeAnalyzerTest, WhatIsDrawnFirstChangesNothingInTheEnd) {
  const auto wanted = TestTake::analyse(_frames, kTakeRate, true);
  for (const double quick : {kAnyMedium, kNoMedium}) {
    for (const unsigned count : {0U, 1U, 3U}) {
      TakeAnalyzer::Options options = waveformFirst(quick);
      options.workers = count;
      options.workersMemory = TakeAnalyzer::Options().workersMemory;
      expectSame(*TestTake::analyse(_frames, kTakeRate, true, options), *wanted);
    }
  }
}

// Each of the four units takes longer than a quick medium may be late: by the first it is known,
// and that one is measured at once.
TEST_F(TakeAnalyzerTest, ASlowMediumIsNotReadTwice) {
  const auto reader = openFile();
  SlowReads::limit(_folder.path().native(), 6'000'000);
  TakeAnalyzer analyzer(*reader, waveformFirst(kNoMedium));
  const auto got = analyzer.wait();
  ASSERT_NE(got, nullptr);
  EXPECT_EQ(got->findings().unitsDrawn, 0U);
}

TEST_F(TakeAnalyzerTest, AShortTakeIsReadOnce) {
  TakeAnalyzer::Options options = waveformFirst(kAnyMedium);
  options.longTake = TakeAnalyzer::Options().longTake;
  const auto got = TestTake::analyse(_frames, kTakeRate, true, options);
  EXPECT_EQ(got->findings().unitsDrawn, 0U);
}

// A take of hours is held once, however often somebody asks what is known of it.
TEST_F(TakeAnalyzerTest, WhatHasComeIsSharedWithAllThatComesAfterIt) {
  const auto reader = openFile();
  SlowReads::give(_folder.path().native(), 0);
  TakeAnalyzer analyzer(*reader, workers(1));
  std::vector all{analyzer.soFar()};
  while (analyzer.progress() < 1) {
    giveUntilMoreIsKnown(analyzer);
    all.push_back(analyzer.soFar());
  }
  all.push_back(analyzer.wait());
  EXPECT_GT(all.size(), 4U);
  const auto& last = all.back()->findings().units;
  for (const auto& some : all) {
    for (std::size_t i = 0; i < last.size(); ++i) {
      const auto& unit = some->findings().units[i];
      EXPECT_TRUE(!unit || unit == last[i]) << "no copy of its own";
    }
  }
}

TEST_F(TakeAnalyzerTest, FiguresAloneAreTheSameInAThirdOfTheMemory) {
  for (const bool isRaw : {true, false}) {
    const auto whole = TestTake::analyse(_frames, kTakeRate, isRaw);
    TakeAnalyzer::Options options;
    options.keepsBins = false;
    const auto figures = TestTake::analyse(_frames, kTakeRate, isRaw, options);
    for (const int width : {0, 60, 120, 150}) {
      const TakeFigures got = figures->at(width, 3);
      const TakeFigures wanted = whole->at(width, 3);
      EXPECT_EQ(got.integratedLufs, wanted.integratedLufs);
      EXPECT_EQ(got.truePeakDbtp, wanted.truePeakDbtp);
      EXPECT_EQ(got.correlation, wanted.correlation);
      EXPECT_EQ(figures->samplePeak(width), whole->samplePeak(width));
    }
    EXPECT_FALSE(figures->waveform(90, 0, 0, ~0ULL, 1).columns[0].isKnown);
    const TakeFigures ofStretch = figures->at(90, 0, 0, kTakeRate);
    EXPECT_TRUE(ofStretch.arePeaksBounds);
    EXPECT_EQ(ofStretch.samplePeakDbfs, figures->at(90, 0).samplePeakDbfs) << "never too low";
    if (isRaw) {
      EXPECT_LT(3 * figures->memory(), whole->memory());
    }
  }
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

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
TEST_F(TakeAnalyzerTest, MemoryThatRunsOutIsAFailureWithAReason) {
  const auto reader = openFile();
  constexpr std::size_t kNoUnit = std::size_t{64} << 10;
  const RefusedMemory refused(kNoUnit);
  TakeAnalyzer analyzer(*reader, workers(2));
  EXPECT_EQ(analyzer.wait(), nullptr);
  EXPECT_EQ(analyzer.failure(), "There is not enough memory");
  analyzer.waitForWorkers();
  EXPECT_GT(RefusedMemory::count(), 0);
}
#endif

// All are there while the first one waits for the medium.
TEST_F(TakeAnalyzerTest, ThereAreAsManyWorkersAsFitTheMemory) {
  const std::uint64_t most = TakeAnalyzer::Options().workersMemory;
  std::vector<std::unique_ptr<TakeAnalyzer>> all;
  SlowReads::give(_folder.path().native(), 0);
  for (const std::uint32_t rate : {8000U, 48000U, 96000U, 192000U}) {
    const std::uint64_t memory = UnitPass::memory(TakeLayout(rate, 1, true));
    const auto reader = openFile(units(most / memory + 4, rate), rate);
    const std::size_t before = ThreadCount::now();
    all.push_back(std::make_unique<TakeAnalyzer>(*reader, workers(kManyWorkers)));
    const std::size_t count = ThreadCount::now() - before;
    EXPECT_GT(count, 1U) << rate;
    EXPECT_LE(count * memory, most) << rate;
    EXPECT_TRUE((count + 1) * memory > most || count == kManyWorkers) << rate;
  }
  for (const auto& analyzer : all) analyzer->cancel();
  SlowReads::reset();
  for (const auto& analyzer : all) analyzer->waitForWorkers();
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
TEST_F(TakeAnalyzerTest, MemoryOfAPassIsNoMoreThanItTells) {
  for (const std::uint32_t rate : {0U, 8000U, 48000U, 96000U, 192000U, 384000U, 768000U}) {
    const auto reader = openFile(units(3, rate), rate);
    const TakeLayout layout(rate, reader->frameCount() - 10000, true);
    const std::atomic<bool> isCancelled{false};
    HeldMemory::watch();
    UnitPass pass(*reader, layout, 0, &isCancelled);
    UnitResult result;
    result.samplePeaks = result.truePeaks = PeakEnvelope(true);
    for (const std::size_t unit : {2U, 1U}) {  // the last one is shorter
      result.unit = unit;
      ASSERT_TRUE(pass.fill(unit));
      pass.run(result);
    }
    EXPECT_LE(HeldMemory::most(), UnitPass::memory(layout)) << rate;
    EXPECT_GT(HeldMemory::most(), layout.framesPerUnit() * 2 * sizeof(float)) << rate;
  }
}

TEST_F(TakeAnalyzerTest, MemoryOfAllWorkersIsNoMoreThanTheyMayHold) {
  constexpr std::uint32_t kHighRate = 192000;
  const auto reader = openFile(units(32, kHighRate), kHighRate);
  HeldMemory::watch();
  TakeAnalyzer analyzer(*reader, workers(kManyWorkers));
  const auto got = analyzer.wait();
  ASSERT_NE(got, nullptr);
  const std::size_t most = TakeAnalyzer::Options().workersMemory;
  EXPECT_LE(HeldMemory::most(), most + got->memory());
  EXPECT_GT(HeldMemory::most(), UnitPass::memory(got->layout()) / 2) << "it was counted";
}
#endif

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
