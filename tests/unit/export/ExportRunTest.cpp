// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The course of an export: refusals, progress, cancelling, running again.

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "unit/export/ExportFixture.h"

namespace fs = std::filesystem;

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

constexpr std::size_t kManySamples = 600000;

class ExportRunTest : public ExportFixture {
 protected:
  static Bytes manyFrames() {
    return recordingFloat(std::vector<float>(kManySamples, 0.25F), true);
  }

  /// A recording of this many sample bytes that takes no room on the disk.
  fs::path sparseRecording(std::uint32_t sampleBytes) const {
    ByteBuilder head;
    head.bytes(WaveBytes().format24().recorderBext().chunk("data", sampleBytes, {}).get());
    head.patch32(4, static_cast<std::uint32_t>(head.size() + sampleBytes - 8));
    const fs::path path = _folder.file("in.wav", head.get());
    fs::resize_file(path, head.size() + sampleBytes);
    return path;
  }

  static std::vector<double> progressOf(Export& job, const fs::path& target, bool normalize) {
    std::vector<double> seen;
    job.setProgress([&seen](double done) { seen.push_back(done); });
    EXPECT_TRUE(job.export2File(target, true, normalize)) << job.failure();
    return seen;
  }
};

TEST_F(ExportRunTest, TellsItsProgressUpToTheEnd) {
  Export job(_folder.file("in.wav", manyFrames()));
  for (const bool normalize : {false, true}) {
    const std::vector<double> seen = progressOf(job, target(), normalize);
    ASSERT_GE(seen.size(), 3U);
    EXPECT_GT(seen.front(), 0.0);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(std::count(seen.begin(), seen.end(), 1.0), 1);
    EXPECT_EQ(seen.back(), 1.0);
  }
}

TEST_F(ExportRunTest, TellsTheProgressOfASmallFileOnce) {
  Export job(_folder.file("in.wav", recording24({1, 2}, true)));
  EXPECT_THAT(progressOf(job, target(), false), ElementsAre(1.0));
}

TEST_F(ExportRunTest, ATakeOfNothingIsDoneAtOnce) {
  Export job(_folder.file("in.wav", recording24({}, true)));
  for (const bool normalize : {false, true}) {
    for (const double done : progressOf(job, target(), normalize)) EXPECT_EQ(done, 1.0);
  }
}

TEST_F(ExportRunTest, GivesTheSameFileAgain) {
  Export job(_folder.file("in.wav", manyFrames()));
  ByteBuilder first;
  ASSERT_TRUE(job.export2File(target(), true, true));
  first.bytes(TemporaryFolder::read(target()));
  ASSERT_TRUE(job.export2File(_folder.path() / "other.wav", false, false));
  ASSERT_TRUE(job.export2File(target(), true, true));
  ByteBuilder second;
  second.bytes(TemporaryFolder::read(target()));
  for (std::size_t date = 376; date < 396; date += 4) {  // dated when it was made
    first.patch32(date, 0);
    second.patch32(date, 0);
  }
  EXPECT_EQ(first.get(), second.get());
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav", "other.wav", "out.wav"));
}

TEST_F(ExportRunTest, TakesTheWidthAndTheModeOfTheLastCall) {
  Export job(_folder.file("in.wav", recordingFloat({0.5F, 0.0F}, false)));
  ASSERT_TRUE(job.export2File(target(), true, true));
  EXPECT_TRUE(job.normalize());
  ASSERT_TRUE(job.export2File(target()));
  EXPECT_EQ(ByteView(TemporaryFolder::read(target())).s24(kSamples), 8388607);
  ASSERT_TRUE(job.export2File(target(), false, false));
  EXPECT_FALSE(job.normalize());
  EXPECT_EQ(ByteView(TemporaryFolder::read(target())).f32(kSamples), 0.5F);
}

TEST_F(ExportRunTest, LeavesTheReadersCursorAlone) {
  Export job(_folder.file("in.wav", recordingFloat({0.5F, 0.0F, 0.25F, 0.0F}, false)));
  job.reader()->beginReadSample();
  const std::uint64_t before = job.reader()->readDataIdx();
  ASSERT_TRUE(job.export2File(target(), true, true));
  EXPECT_EQ(job.reader()->readDataIdx(), before);
}

TEST_F(ExportRunTest, LeavesNothingBehindAfterACancel) {
  Export job(_folder.file("in.wav", manyFrames()));
  for (const bool normalize : {false, true}) {
    std::atomic<bool> cancel{false};
    double last = 0;
    job.setCancelFlag(&cancel);
    job.setProgress([&](double done) {
      last = done;
      cancel = true;
    });
    EXPECT_FALSE(job.export2File(target(), true, normalize));
    EXPECT_TRUE(job.wasCancelled());
    EXPECT_EQ(job.failure(), "");
    EXPECT_LT(last, 1.0);
    EXPECT_THAT(_folder.names(), ElementsAre("in.wav"));
  }
}

TEST_F(ExportRunTest, KeepsTheOldFileAfterACancel) {
  const Bytes old(1000, std::byte{7});
  _folder.file("out.wav", old);
  Export job(_folder.file("in.wav", manyFrames()));
  std::atomic<bool> cancel{true};
  job.setCancelFlag(&cancel);
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_TRUE(job.wasCancelled());
  EXPECT_EQ(TemporaryFolder::read(target()), old);
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav", "out.wav"));
  cancel = false;
  EXPECT_TRUE(job.export2File(target(), true, false));
  EXPECT_FALSE(job.wasCancelled());
  EXPECT_EQ(fs::file_size(target()), 748 + 3 * kManySamples);
}

TEST_F(ExportRunTest, RefusesAnExistingTargetWhenTold) {
  _folder.file("out.wav", Bytes(10));
  Export job(_folder.file("in.wav", recording24({1, 2}, true)));
  job.setExisting(AtomicFile::Existing::Refuse);
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_EQ(job.failure(), "File exists");
  EXPECT_EQ(fs::file_size(target()), 10U);
  EXPECT_FALSE(job.wasCancelled());
}

TEST_F(ExportRunTest, NeverReplacesTheSource) {
  const Bytes source = recording24({1, 2}, true);
  const fs::path path = _folder.file("in.wav", source);
  fs::create_symlink("in.wav", _folder.path() / "link.wav");
  fs::create_hard_link(path, _folder.path() / "hard.wav");
  fs::create_directory(_folder.path() / "sub");
  Export job(path);
  for (const char* name : {"in.wav", "link.wav", "hard.wav", "sub/../in.wav", "./in.wav"}) {
    EXPECT_TRUE(job.isSource(_folder.path() / name)) << name;
    EXPECT_FALSE(job.export2File(_folder.path() / name, true, false)) << name;
    EXPECT_EQ(job.failure(), "The target is the source itself");
  }
  EXPECT_FALSE(job.isSource(target()));
  EXPECT_EQ(TemporaryFolder::read(path), source);
  EXPECT_TRUE(fs::is_symlink(_folder.path() / "link.wav"));
}

TEST_F(ExportRunTest, NeverMakesTheSourceAnewThatIsGone) {
  const fs::path path = _folder.file("in.wav", recording24({1, 2}, true));
  Export job(path);
  fs::remove(path);
  EXPECT_FALSE(job.export2File(path, true, false));
  EXPECT_FALSE(fs::exists(path));
}

TEST_F(ExportRunTest, RefusesMoreThan4GiBBeforeItWritesWhereTold) {
  constexpr std::uint64_t kSize = 748 + 0xD0000000ULL / 6 * 8;
  Export job(sparseRecording(0xD0000000));
  job.setLongOutput(Export::LongOutput::Refuse);
  ASSERT_TRUE(job.IsFileValid()) << job.failure();
  bool hasStarted = false;
  job.setProgress([&hasStarted](double) { hasStarted = true; });
  EXPECT_FALSE(job.export2File(target(), false, false));
  EXPECT_THAT(job.failure(),
              StartsWith("The export would take " + std::to_string(kSize) + " bytes"));
  EXPECT_FALSE(hasStarted);
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav"));
  EXPECT_FALSE(job.wasCancelled());
}

// 536870817 frames of 8 bytes and the header are the last that stay below 4 GiB.
TEST_F(ExportRunTest, KnowsTheLastSizeThatFits) {
  constexpr std::uint64_t kLast = (0xFFFFFFFFU - 748U) / 8;
  Export fits(sparseRecording(static_cast<std::uint32_t>(kLast * 6)));
  fits.setLongOutput(Export::LongOutput::Refuse);
  EXPECT_FALSE(fits.isRf64(false));
  EXPECT_EQ(fits.outputSize(false), 748 + kLast * 8);
  std::atomic<bool> cancel{true};
  fits.setCancelFlag(&cancel);
  EXPECT_FALSE(fits.export2File(target(), false, false));
  EXPECT_TRUE(fits.wasCancelled());  // it was let through to its first block
  Export over(sparseRecording(static_cast<std::uint32_t>(kLast * 6 + 6)));
  over.setLongOutput(Export::LongOutput::Refuse);
  over.setCancelFlag(&cancel);
  EXPECT_TRUE(over.isRf64(false));
  EXPECT_FALSE(over.isRf64(true));
  EXPECT_FALSE(over.export2File(target(), false, false));
  EXPECT_FALSE(over.wasCancelled());
  EXPECT_THAT(over.failure(), EndsWith("a WAVE file ends at 4 GiB"));
  over.setLongOutput(Export::LongOutput::Rf64);
  EXPECT_FALSE(over.export2File(target(), false, false));
  EXPECT_TRUE(over.wasCancelled());
}

TEST_F(ExportRunTest, ForetellsWhatItRefusesAndWritesNothingForIt) {
  const fs::path source = _folder.file("in.wav", recording24({1, 2}, true));
  const fs::path old = _folder.file("old.wav", Bytes(3));
  Export job(source);
  EXPECT_EQ(job.whyNot(target(), true), "");
  EXPECT_EQ(job.whyNot(old, true), "");
  EXPECT_EQ(job.whyNot(source, true), "The target is the source itself");
  EXPECT_EQ(job.whyNot(_folder.path() / "missing" / "out.wav", true), "No such file or directory");
  EXPECT_EQ(job.whyNot(source / "out.wav", true), "Not a directory");
  EXPECT_EQ(job.whyNot(_folder.path(), true), "Is a directory");
  job.setExisting(AtomicFile::Existing::Refuse);
  EXPECT_EQ(job.whyNot(old, true), "File exists");
  EXPECT_EQ(job.failure(), "");
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav", "old.wav"));
  Export large(sparseRecording(0xD0000000));
  EXPECT_EQ(large.whyNot(target(), true), "");
  EXPECT_EQ(large.whyNot(target(), false), "");
  large.setLongOutput(Export::LongOutput::Refuse);
  EXPECT_THAT(large.whyNot(target(), false), EndsWith("a WAVE file ends at 4 GiB"));
  EXPECT_EQ(Export(target()).whyNot(target(), true), "No recording is open");
}

TEST_F(ExportRunTest, ForetellsThatThereIsNoRoom) {
  EXPECT_EQ(AtomicFile::whyNot(target(), AtomicFile::Existing::Refuse, std::uint64_t{1} << 60),
            "No space left on device");
  EXPECT_EQ(AtomicFile::whyNot(target(), AtomicFile::Existing::Refuse, 1), "");
}

TEST_F(ExportRunTest, TellsWhereItCannotSave) {
  Export job(_folder.file("in.wav", recording24({1, 2}, true)));
  EXPECT_FALSE(job.export2File(_folder.path() / "missing" / "out.wav", true, false));
  EXPECT_EQ(job.failure(), "No such file or directory");
  EXPECT_FALSE(job.export2File(_folder.path(), true, false));
  EXPECT_EQ(job.failure(), "Is a directory");
  EXPECT_TRUE(job.export2File(target(), true, false));
  EXPECT_EQ(job.failure(), "");
}

TEST_F(ExportRunTest, FailsWhenTheSourceBecomesShorter) {
  const fs::path path = _folder.file("in.wav", manyFrames());
  Export job(path);
  fs::resize_file(path, 100000);
  EXPECT_FALSE(job.export2File(target(), true, false));
  EXPECT_THAT(job.failure(), StartsWith("The source cannot be read: "));
  EXPECT_FALSE(job.wasCancelled());
  EXPECT_THAT(_folder.names(), ElementsAre("in.wav"));
}

TEST_F(ExportRunTest, FinishesWhenTheSourceVanishes) {
  const fs::path path = _folder.file("in.wav", manyFrames());
  Export job(path);
  fs::remove(path);
  EXPECT_TRUE(job.export2File(target(), true, false)) << job.failure();
  EXPECT_EQ(fs::file_size(target()), 748 + 3 * kManySamples);
}

}  // namespace
