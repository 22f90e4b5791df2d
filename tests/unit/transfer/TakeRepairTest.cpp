// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/TakeRepair.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/ByteBuilder.h"
#include "support/ByteView.h"
#include "support/DiskLog.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::byte>;

constexpr std::uint64_t kGiB = std::uint64_t{1} << 30;
constexpr std::uint32_t kStatedElsewhere = 0xFFFFFFFF;

class TakeRepairTest : public testing::Test {
 protected:
  static Bytes loud(std::size_t count) { return Bytes(count, std::byte{0x11}); }

  TakeRepair repairOf(const fs::path& take) const {
    std::string whyNot;
    const std::shared_ptr<const WaveImage> image = WaveImage::fromFile(take, whyNot);
    return {image, TakeDiagnosis::of(*image)};
  }
  [[nodiscard]] fs::path target() const { return _folder.path() / "take_Repaired.WAV"; }

  ByteView repaired(const Bytes& broken) const {
    const fs::path take = _folder.file("take.WAV", broken);
    TakeRepair repair = repairOf(take);
    EXPECT_TRUE(repair.save(target(), AtomicFile::Existing::Replace)) << repair.failure();
    EXPECT_EQ(TemporaryFolder::read(take), broken) << "the take stays as it is";
    EXPECT_EQ(fs::file_size(target()), repair.size());
    std::string whyNot;
    EXPECT_TRUE(WaveFileReader::openFile(target(), whyNot)->isValidFile());
    EXPECT_EQ(TakeDiagnosis::of(*WaveImage::fromFile(target(), whyNot)).state,
              TakeDiagnosis::State::Sound);
    return ByteView(TemporaryFolder::read(target()));
  }

  TemporaryFolder _folder;
};

TEST_F(TakeRepairTest, StandsBesideTheTake) {
  EXPECT_EQ(TakeRepair::nameFor("/card/R0001.WAV"), "/card/R0001_Repaired.WAV");
}

TEST_F(TakeRepairTest, OnlyTheSizesAreOthers) {
  const Bytes samples = loud(600);
  const Bytes broken = WaveBytes()
                           .recorderBext()
                           .format24()
                           .chunk("data", 0, ByteBuilder().bytes(samples).zeros(3).get())
                           .get();
  const Bytes whole = WaveBytes().recorderBext().format24().data(samples).get();
  EXPECT_EQ(repaired(ByteBuilder().bytes(broken).patch32(4, 0).get()).get(), whole);
}

TEST_F(TakeRepairTest, ChunksAfterTheSoundStay) {
  const auto take = [](const Bytes& samples) {
    return WaveBytes().format24().data(samples).chunk("LIST", loud(4)).get();
  };
  EXPECT_EQ(repaired(take(loud(13))).get(), take(loud(12)));
}

TEST_F(TakeRepairTest, ATakeWithLongSizesKeepsThem) {
  const Bytes table = ByteBuilder().u32(1).text("axml").u64(3).get();
  const ByteView out = repaired(WaveBytes()
                                    .ds64(0, 0, table)
                                    .chunk("axml", kStatedElsewhere, Bytes(4))
                                    .format24()
                                    .chunk("data", kStatedElsewhere, loud(600))
                                    .getLong("BW64"));
  EXPECT_EQ(out.text(0, 4), "BW64");
  EXPECT_EQ(out.u32(20), out.size() - 8);
  EXPECT_EQ(out.u32(28), 600U);
  EXPECT_EQ(out.u32(36), 100U);
  EXPECT_EQ(out.text(48, 4), "axml") << "the table stays";
}

// The loud frame is the last one; nearly nothing is on the disk, but what is saved is read.
TEST_F(TakeRepairTest, ALongTakeBecomesRf64) {
  constexpr std::uint64_t kData = (4 * kGiB / 6 + 1) * 6;
  constexpr auto kWrapped = static_cast<std::uint32_t>(kData);  // as its field would hold it
  for (const bool hasRoom : {false, true}) {
    WaveBytes head;
    if (hasRoom) head.chunk("JUNK", Bytes(28));
    head.format24().chunk("data", hasRoom ? kWrapped : 0, {});
    const fs::path take = _folder.file("take.WAV", head.get());
    const auto start = fs::file_size(take);
    fs::resize_file(take, start + kData - 6);
    std::ofstream(take, std::ios::app | std::ios::binary) << "loud!!";
    TakeRepair repair = repairOf(take);
    EXPECT_EQ(repair.size(), start + kData + (hasRoom ? 0 : 36));
    std::atomic<bool> cancel{false};
    repair.setCancelFlag(&cancel);
    repair.setProgress([&cancel](double) { cancel = true; });
    EXPECT_FALSE(repair.save(target(), AtomicFile::Existing::Refuse));
    EXPECT_TRUE(repair.wasCancelled()) << "all but the copy itself was done";
    EXPECT_FALSE(fs::exists(target()));
  }
}

TEST_F(TakeRepairTest, ItsProgressEndsWithTheWork) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600'000)).get());
  TakeRepair repair = repairOf(take);
  std::vector<double> told;
  repair.setProgress([&told](double done) { told.push_back(done); });
  EXPECT_TRUE(repair.save(target(), AtomicFile::Existing::Refuse));
  ASSERT_EQ(told.size(), 3U);
  EXPECT_LT(told[0], 0.5);
  EXPECT_EQ(told[2], 1.0);
}

TEST_F(TakeRepairTest, WhatIsSalvagedIsOnTheDiskBeforeItHasAName) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600)).get());
  TakeRepair repair = repairOf(take);
  DiskLog::start();
  EXPECT_TRUE(repair.save(target(), AtomicFile::Existing::Refuse));
  const std::vector<DiskCall> calls = DiskLog::stop();
  const auto place = [&](DiskCall::Kind kind) {
    return std::find_if(calls.begin(), calls.end(),
                        [kind](const DiskCall& call) { return call.kind == kind; });
  };
  ASSERT_NE(place(DiskCall::Kind::Name), calls.end());
  EXPECT_LT(place(DiskCall::Kind::Sync), place(DiskCall::Kind::Name));
}

TEST_F(TakeRepairTest, TheNameOfWhatIsSalvagedIsOnTheDisk) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600)).get());
  fs::create_directories(_folder.path() / "other");
  const fs::path link = _folder.path() / "link.WAV";
  fs::create_symlink("other/new.WAV", link);
  for (const fs::path& path : {target(), link}) {
    TakeRepair repair = repairOf(take);
    DiskLog::start();
    EXPECT_TRUE(repair.save(path, AtomicFile::Existing::Refuse));
    const std::vector<DiskCall> calls = DiskLog::stop();
    struct stat folder {};
    ASSERT_EQ(stat(fs::canonical(path).parent_path().c_str(), &folder), 0);
    const auto named = std::find_if(calls.begin(), calls.end(), [](const DiskCall& call) {
      return call.kind == DiskCall::Kind::Name;
    });
    EXPECT_TRUE(std::any_of(named, calls.end(), [&folder](const DiskCall& call) {
      return call.kind == DiskCall::Kind::Sync && call.file == folder.st_ino;
    })) << path;
  }
}

TEST_F(TakeRepairTest, ANameThatMayBeLostIsTold) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600)).get());
  TakeRepair repair = repairOf(take);
  DiskLog::failFolderSyncs(EIO, 1);
  EXPECT_FALSE(repair.save(target(), AtomicFile::Existing::Refuse));
  DiskLog::failFolderSyncs(0, 0);
  EXPECT_EQ(repair.failure(), "Input/output error");
}

TEST_F(TakeRepairTest, ATargetWithoutAFolderIsSavedHere) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600)).get());
  TakeRepair repair = repairOf(take);
  const fs::path before = fs::current_path();
  fs::current_path(_folder.path());
  EXPECT_TRUE(repair.save("here.WAV", AtomicFile::Existing::Refuse)) << repair.failure();
  fs::current_path(before);
  EXPECT_TRUE(fs::exists(_folder.path() / "here.WAV"));
}

TEST_F(TakeRepairTest, RefusesWhatExistsAndForetellsIt) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600)).get());
  _folder.file("take_Repaired.WAV", loud(3));
  TakeRepair repair = repairOf(take);
  EXPECT_EQ(repair.whyNot(target(), AtomicFile::Existing::Refuse), "File exists");
  EXPECT_FALSE(repair.save(target(), AtomicFile::Existing::Refuse));
  EXPECT_EQ(repair.failure(), "File exists");
  EXPECT_EQ(TemporaryFolder::read(target()), loud(3));
}

TEST_F(TakeRepairTest, ATakeThatGetsShorterMeanwhileFails) {
  const fs::path take =
      _folder.file("take.WAV", WaveBytes().format24().chunk("data", 0, loud(600'000)).get());
  TakeRepair repair = repairOf(take);
  fs::resize_file(take, 1000);
  EXPECT_FALSE(repair.save(target(), AtomicFile::Existing::Refuse));
  EXPECT_EQ(repair.failure(), "The take cannot be read: The file became shorter");
  EXPECT_FALSE(repair.wasCancelled());
  EXPECT_EQ(_folder.names(), std::vector<std::string>{"take.WAV"});
}

}  // namespace
