// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/AnalysisCache.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <chrono>
#include <fstream>
#include <span>
#include <string>
#include <vector>

#include "analysis/TakeAnalyzer.h"
#include "support/Confinement.h"
#include "support/TemporaryFolder.h"
#include "takes/AnalysisBytes.h"
#include "unit/analysis/TestTake.h"

namespace {

namespace fs = std::filesystem;
using Analysis = std::shared_ptr<const TakeAnalysis>;

constexpr std::uint32_t kRate = 48000;
constexpr std::size_t kMostAtOnce = 16 << 10;

void expectSameBits(std::optional<double> got, std::optional<double> wanted) {
  ASSERT_EQ(got.has_value(), wanted.has_value());
  if (got) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*got), std::bit_cast<std::uint64_t>(*wanted));
  }
}

void expectSame(const TakeFigures& got, const TakeFigures& wanted) {
  expectSameBits(got.integratedLufs, wanted.integratedLufs);
  expectSameBits(got.rangeLu, wanted.rangeLu);
  expectSameBits(got.momentaryMaxLufs, wanted.momentaryMaxLufs);
  expectSameBits(got.shortTermMaxLufs, wanted.shortTermMaxLufs);
  expectSameBits(got.truePeakDbtp, wanted.truePeakDbtp);
  expectSameBits(got.samplePeakDbfs, wanted.samplePeakDbfs);
  expectSameBits(got.correlation, wanted.correlation);
  expectSameBits(got.balanceDb, wanted.balanceDb);
  expectSameBits(got.peakLeft, wanted.peakLeft);
  expectSameBits(got.peakRight, wanted.peakRight);
}

void expectSame(const Waveform& got, const Waveform& wanted) {
  ASSERT_EQ(got.columns.size(), wanted.columns.size());
  for (std::size_t i = 0; i < got.columns.size(); ++i) {
    const Waveform::Column& a = got.columns[i];
    const Waveform::Column& b = wanted.columns[i];
    EXPECT_EQ(a.leastLeft, b.leastLeft) << i;
    EXPECT_EQ(a.greatestLeft, b.greatestLeft) << i;
    EXPECT_EQ(a.leastRight, b.leastRight) << i;
    EXPECT_EQ(a.greatestRight, b.greatestRight) << i;
    EXPECT_EQ(a.isKnown, b.isKnown) << i;
    EXPECT_EQ(a.mayClip, b.mayClip) << i;
  }
}

// Whatever is asked of it is the same to the last bit.
void expectSame(const Analysis& got, const Analysis& wanted) {
  ASSERT_TRUE(got);
  EXPECT_TRUE(got->isComplete());
  for (int width = 0; width <= 150; ++width) {
    expectSame(got->at(width, -3), wanted->at(width, -3));
  }
  expectSame(got->at(90, 6, 20'000, 70'000), wanted->at(90, 6, 20'000, 70'000));
  expectSame(got->waveform(75, 3, 0, 200'000, 333), wanted->waveform(75, 3, 0, 200'000, 333));
  for (std::uint64_t frame = 0; frame < wanted->layout().frames(); frame += 5000) {
    expectSameBits(got->momentaryLufs(60, 0, frame), wanted->momentaryLufs(60, 0, frame));
    expectSameBits(got->shortTermLufs(60, 0, frame), wanted->shortTermLufs(60, 0, frame));
  }
}

/// The bytes of an analysis; none may come in large pieces.
std::vector<std::byte> bytesOf(const TakeAnalysis& analysis) {
  std::vector<std::byte> all;
  EXPECT_TRUE(AnalysisBytes::write(analysis, [&all](std::span<const std::byte> bytes) {
    EXPECT_LE(bytes.size(), kMostAtOnce);
    all.insert(all.end(), bytes.begin(), bytes.end());
    return true;
  }));
  return all;
}

Analysis readFrom(std::span<const std::byte> all, const TakeLayout& layout) {
  return AnalysisBytes::read(
      [&all](std::span<std::byte> bytes) {
        EXPECT_LE(bytes.size(), kMostAtOnce);
        if (bytes.size() > all.size()) return false;
        std::ranges::copy(all.first(bytes.size()), bytes.begin());
        all = all.subspan(bytes.size());
        return true;
      },
      layout);
}

class CacheTest : public testing::Test {
 protected:
  /// Of so many seconds; the same ones are the same take.
  static Analysis analysed(double seconds, bool isRaw = true) {
    return TestTake::analyse(TestTake::wandering(kRate, seconds, 7), kRate, isRaw);
  }
  static AnalysisCache::Key keyOf(const std::string& take, const Analysis& analysis,
                                  std::int64_t modified = 5) {
    return {take, FileState{.modified = modified}, analysis->layout()};
  }
  [[nodiscard]] std::vector<fs::path> kept() const {
    std::vector<fs::path> files;
    if (!fs::exists(folder)) return files;
    for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
    return files;
  }
  void age(const AnalysisCache::Key& key, int seconds) const {
    for (const fs::path& path : kept()) {
      if (!path.filename().native().starts_with(key.take)) continue;
      fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::seconds(seconds));
    }
  }

  TemporaryFolder home;
  fs::path folder = home.path() / "mixdeck" / "analyses";
  AnalysisCache cache{folder};
};

TEST_F(CacheTest, WhatIsKeptIsTheSameToTheLastBit) {
  for (const bool isRaw : {true, false}) {
    const Analysis made = analysed(9.3, isRaw);
    const auto key = keyOf("take", made);
    EXPECT_EQ(cache.find(key), nullptr);
    ASSERT_TRUE(cache.keep(key, *made));
    expectSame(cache.find(key), made);
  }
  EXPECT_EQ(kept().size(), 2U) << "raw and plain are two";
}

TEST_F(CacheTest, OddTakesAreKeptToo) {
  for (const Frames& frames : {Frames(), Frames(2), Frames(100'000)}) {
    const Analysis made = TestTake::analyse(frames, kRate, true);
    ASSERT_TRUE(cache.keep(keyOf("odd", made), *made));
    expectSame(cache.find(keyOf("odd", made)), made);
  }
}

TEST_F(CacheTest, AnotherTakeOrOneThatWasChangedIsNotFound) {
  const Analysis made = analysed(2);
  ASSERT_TRUE(cache.keep(keyOf("take", made), *made));
  EXPECT_EQ(cache.find(keyOf("other", made)), nullptr);
  EXPECT_EQ(cache.find(keyOf("take", made, 6)), nullptr);
  EXPECT_EQ(cache.find(keyOf("", made)), nullptr);
  ASSERT_TRUE(cache.find(keyOf("take", made)));
  ASSERT_TRUE(cache.keep(keyOf("take", made, 6), *made)) << "in its place";
  EXPECT_EQ(kept().size(), 1U);
  EXPECT_TRUE(cache.find(keyOf("take", made, 6)));
}

TEST_F(CacheTest, WhatIsNotWholeIsNotKept) {
  const Analysis made = analysed(2);
  TakeFindings part = made->findings();
  part.unitsKnown = 0;
  EXPECT_FALSE(cache.keep(keyOf("take", made), TakeAnalysis(part)));
  EXPECT_TRUE(kept().empty());
}

// One bit in each of many places, and every way of being cut.
TEST_F(CacheTest, ADamagedOneIsNotTakenAndRemoved) {
  const Analysis made = analysed(2);
  const auto key = keyOf("take", made);
  ASSERT_TRUE(cache.keep(key, *made));
  const auto whole = TemporaryFolder::read(kept().at(0));
  constexpr std::size_t kTime = 8;
  for (std::size_t at = kTime; at < whole.size(); at += whole.size() / 50) {
    auto damaged = whole;
    damaged[at] ^= std::byte{4};
    ASSERT_TRUE(cache.keep(key, *made));
    std::ofstream(kept().at(0), std::ios::binary)
        .write(reinterpret_cast<const char*>(damaged.data()),
               static_cast<std::streamsize>(damaged.size()));
    EXPECT_EQ(cache.find(key), nullptr) << at;
    EXPECT_TRUE(kept().empty()) << at;
  }
  for (const std::size_t size : {std::size_t{0}, std::size_t{7}, whole.size() - 1}) {
    ASSERT_TRUE(cache.keep(key, *made));
    fs::resize_file(kept().at(0), size);
    EXPECT_EQ(cache.find(key), nullptr) << size;
    EXPECT_TRUE(kept().empty()) << size;
  }
}

// A take of hours is not held a second time to be kept or found.
TEST_F(CacheTest, BytesComeAndGoInSmallPieces) {
  for (const bool isRaw : {true, false}) {
    const Analysis made = analysed(30, isRaw);
    const auto bytes = bytesOf(*made);
    EXPECT_GT(bytes.size(), kMostAtOnce);
    EXPECT_EQ(bytes.size(), AnalysisBytes::sizeOf(made->layout()));
    expectSame(readFrom(bytes, made->layout()), made);
  }
}

TEST_F(CacheTest, WritingEndsWhereNoMoreIsTaken) {
  const Analysis made = analysed(5);
  for (int most = 0; most < 6; ++most) {
    int taken = 0;
    EXPECT_FALSE(AnalysisBytes::write(
        *made, [&](std::span<const std::byte> /*bytes*/) { return taken++ < most; }));
    EXPECT_EQ(taken, most + 1);
  }
}

TEST_F(CacheTest, ATakeOfAnotherLengthDoesNotReadIt) {
  const Analysis made = analysed(2);
  const auto bytes = bytesOf(*made);
  EXPECT_EQ(bytes.size(), AnalysisBytes::sizeOf(made->layout()));
  EXPECT_TRUE(readFrom(bytes, made->layout()));
  EXPECT_FALSE(readFrom(bytes, TakeLayout(kRate, made->layout().frames() - 1, true)));
  EXPECT_FALSE(readFrom(bytes, TakeLayout(44'100, made->layout().frames(), true)));
  EXPECT_FALSE(readFrom(bytes, TakeLayout(kRate, made->layout().frames(), false)));
  EXPECT_FALSE(readFrom({}, made->layout()));
}

TEST_F(CacheTest, TheOneThatWasUsedLongestAgoGoes) {
  const Analysis made = analysed(2);
  const std::size_t size = AnalysisBytes::sizeOf(made->layout()) + 8;
  const AnalysisCache small(folder, 5 * size);
  for (int i = 0; i < 5; ++i) {
    const auto key = keyOf(std::to_string(i), made);
    ASSERT_TRUE(small.keep(key, *made));
    age(key, 100 - i);
  }
  EXPECT_TRUE(small.find(keyOf("0", made))) << "used, so that another one is the oldest";
  ASSERT_TRUE(small.keep(keyOf("5", made), *made));
  EXPECT_EQ(kept().size(), 5U);
  EXPECT_FALSE(small.find(keyOf("1", made)));
  for (const char* const take : {"0", "2", "3", "4", "5"}) {
    EXPECT_TRUE(small.find(keyOf(take, made))) << take;
  }
}

TEST_F(CacheTest, OneThatWouldDriveOutTheOthersIsNotKept) {
  const Analysis made = analysed(2);
  const AnalysisCache small(folder, 3 * AnalysisBytes::sizeOf(made->layout()));
  EXPECT_FALSE(small.keep(keyOf("take", made), *made));
  EXPECT_TRUE(kept().empty());
}

// Two programs keep, find and throw out the same few: whatever is found is right.
TEST_F(CacheTest, TwoProgramsAtOnce) {
  const Analysis made = analysed(1);
  const AnalysisCache small(folder, 5 * AnalysisBytes::sizeOf(made->layout()));
  const auto work = [&] {
    int wrong = 0;
    for (int i = 0; i < 150; ++i) {
      const auto key = keyOf(std::to_string(i % 7), made);
      small.keep(key, *made);
      const Analysis found = small.find(key);
      if (found && !(found->findings() == made->findings())) ++wrong;
    }
    return wrong;
  };
  const pid_t other = fork();
  if (other == 0) _exit(work());
  EXPECT_EQ(work(), 0);
  int status = 0;
  ASSERT_EQ(waitpid(other, &status, 0), other);
  EXPECT_EQ(status, 0);
  EXPECT_LE(kept().size(), 6U);
}

TEST_F(CacheTest, AFullOrMissingDiskIsHarmless) {
  const Analysis made = analysed(2);
  const AnalysisCache nowhere(home.file("a file", {}) / "analyses");
  EXPECT_FALSE(nowhere.keep(keyOf("take", made), *made));
  EXPECT_EQ(nowhere.find(keyOf("take", made)), nullptr);
  const int status = Confinement::run([&] {
    if (!Confinement::limitFileSize(1000)) return 2;
    if (cache.keep(keyOf("take", made), *made)) return 3;
    return cache.find(keyOf("take", made)) ? 4 : 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(kept().empty());
}

TEST_F(CacheTest, AKeyIsThatOfTheTakeAndItsTimeOfChange) {
  std::string whyNot;
  const fs::path path =
      home.file("R0001.WAV", TestTake::file(TestTake::wandering(kRate, 1, 3), kRate));
  const auto reader = WaveFileReader::openFile(path, whyNot);
  ASSERT_TRUE(reader);
  const auto key = AnalysisCache::Key::of(*reader);
  EXPECT_EQ(key.take.size(), 32U);
  EXPECT_EQ(key.layout.frames(), 48'000U);
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::seconds(1));
  const auto changed = WaveFileReader::openFile(path, whyNot);
  ASSERT_TRUE(changed);
  const auto later = AnalysisCache::Key::of(*changed);
  EXPECT_EQ(later.take, key.take);
  EXPECT_EQ(later.file.modified, key.file.modified - 1'000'000'000);

  const auto made = TakeAnalyzer(*reader).wait();
  ASSERT_TRUE(made && cache.keep(key, *made));
  const auto found = cache.find(key);
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->isOf(*reader, 0, 48'000));
  EXPECT_FALSE(found->isOf(*changed, 0, 48'000));
}

}  // namespace
