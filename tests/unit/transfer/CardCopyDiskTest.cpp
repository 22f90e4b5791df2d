// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "CardFixture.h"
#include "support/Confinement.h"

namespace {

/// Copies in a child, where calls fail.
class CardCopyDiskTest : public CardFixture {
 protected:
  /// A sanitizer writes something, too, before it has seen a type once, that of an error included.
  bool failBefore() {
    CardCopy before(card(), _folder.path() / "before");
    return before.prepare().empty() && Confinement::limitFileSize(1) && !before.run() &&
           Confinement::limitFileSize(RLIM_INFINITY);
  }

  /// What became of it while writing fails so, as one line.
  std::string copyWhileWritesFail(int error) {
    std::string text;
    const std::filesystem::path said = _folder.path() / "said";
    const int result = Confinement::run([&] {
      CardCopy job(card(), home());
      job.setResult([&](const CardCopy::Result& told) {
        text += told.take.native() + ": " + told.reason + "\n";
      });
      if (!failBefore()) return 3;
      if (!job.prepare().empty() || !Confinement::failSystemCall(SYS_write, error)) return 1;
      if (job.run()) return 2;
      text += job.failure();
      // Writing fails here, too: a name holds what there is to tell.
      std::filesystem::create_symlink(text, said);
      return 0;
    });
    EXPECT_EQ(result, 0);
    return std::filesystem::read_symlink(said);
  }
};

/// Copies in a child, onto a disk of its own.
class CardCopySmallDiskTest : public CardFixture {
 protected:
  static constexpr std::uint64_t kPage = 4096;
  static constexpr std::uint64_t kTakes = kLong + 1000;

  CardCopySmallDiskTest() { std::filesystem::create_directories(home()); }

  /// What the work gets onto a disk of this size.
  template <class Work>
  std::string onDiskOf(std::uint64_t bytes, const Work& work) const {
    const std::filesystem::path said = _folder.file("said", {});
    const int result = Confinement::run([&] {
      if (!Confinement::mountSmallDisk(home(), bytes)) return 1;
      return std::ofstream(said) << work() << std::flush ? 0 : 2;
    });
    EXPECT_EQ(result, 0);
    std::string text;
    for (const std::byte byte : TemporaryFolder::read(said)) text += static_cast<char>(byte);
    return text;
  }
  /// What a copy tells, while another program writes so much once the first take is there.
  std::string copyBesideAnother(std::size_t bytes) {
    return onDiskOf(kTakes + (1 << 20), [&] {
      CardCopy job(card(), home());
      job.setProgress([&](const CardCopy::Progress& progress) {
        const std::filesystem::path other = home() / "other";
        if (progress.takesDone == 0 || std::filesystem::exists(other)) return;
        std::ofstream(other) << std::string(bytes, 'x') << std::flush;
      });
      run(job);
      std::string text;
      for (const std::string& told : _told) text += told + "\n";
      text += job.failure() + "\n" + job.manifestFailure() + "\n";
      return text + (ManifestFolder(home()).isThere() ? "with" : "without") + " a manifest";
    });
  }
};

TEST_F(CardCopySmallDiskTest, WhereNotEvenTheManifestHasRoomBothAreTold) {
  EXPECT_EQ(copyBesideAnother(kLong + (2 << 20)),
            "DAY2/R0003.WAV copied\nR0001.WAV failed\nNo space left on device\n"
            "The manifest cannot be written: No space left on device\nwithout a manifest");
}

TEST_F(CardCopySmallDiskTest, WhereATakeHasNoRoomTheManifestOfTheOthersMay) {
  EXPECT_EQ(copyBesideAnother(2 << 20),
            "DAY2/R0003.WAV copied\nR0001.WAV failed\nNo space left on device\n\nwith a manifest");
}

TEST_F(CardCopySmallDiskTest, WhatMayBeginHasRoomForTheManifestToo) {
  bool mayBegin = false;
  std::uint64_t pages = kTakes / kPage;
  for (; !mayBegin && pages < kTakes / kPage + 64; ++pages) {
    const std::string what = onDiskOf(pages * kPage, [&] {
      CardCopy job(card(), home());
      if (!job.prepare().empty()) {
        return job.obstacle() == CardCopy::Obstacle::FolderFull ? "refused" : "another reason";
      }
      return job.run() && isRight() ? "right" : "not right";
    });
    mayBegin = what != "refused";
    EXPECT_EQ(what, mayBegin ? "right" : "refused") << pages;
  }
  EXPECT_TRUE(mayBegin);
  EXPECT_GT(pages, kTakes / kPage + 4);
}

TEST_F(CardCopyDiskTest, AFullDiskEndsTheCopy) {
  for (const int error : {ENOSPC, EDQUOT}) {
    const std::string reason = std::generic_category().message(error);
    EXPECT_EQ(copyWhileWritesFail(error), "DAY2/R0003.WAV: " + reason + "\n" + reason);
    EXPECT_TRUE(homeNames().empty());
    std::filesystem::remove(_folder.path() / "said");
  }
}

TEST_F(CardCopyDiskTest, AnotherFailureEndsNothingButTheTake) {
  const std::string reason = std::generic_category().message(EFBIG);
  EXPECT_EQ(copyWhileWritesFail(EFBIG), "DAY2/R0003.WAV: " + reason + "\nR0001.WAV: " + reason +
                                            "\nR0002.wav: \n" +
                                            "The manifest cannot be written: " + reason);
}

// As on a share, or a disk of somebody else's, where all may write.
TEST_F(CardCopyDiskTest, WhereTheTimeMayNotBeSetTakesComeHomeAndAreComparedLater) {
  const auto made = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000);
  for (const char* const take : {"R0001.WAV", "R0002.wav", "DAY2/R0003.WAV"}) {
    std::filesystem::last_write_time(card() / take, made);
  }
  const auto all = [this](const std::string& outcome) {
    return _told == std::vector<std::string>{"DAY2/R0003.WAV " + outcome, "R0001.WAV " + outcome,
                                             "R0002.wav " + outcome};
  };
  for (const int error : {EPERM, EOPNOTSUPP, ENOSYS}) {
    std::filesystem::remove_all(home());
    const int result = Confinement::run([&] {
      if (!Confinement::failSystemCall(SYS_utimensat, error)) return 1;
      if (!copy() || !all("copied")) return 2;
      return copy() && all("kept") ? 0 : 3;
    });
    ASSERT_EQ(result, 0) << error;
    EXPECT_NE(std::filesystem::last_write_time(home() / "R0001.WAV"), made) << "it was refused";
    EXPECT_TRUE(isRight());
    std::fstream(home() / "R0001.WAV", std::ios::in | std::ios::out) << "another";
    EXPECT_FALSE(copy()) << "its time tells nothing";
  }
}

TEST_F(CardCopyDiskTest, ATimeThatFailsToBeSetForAnotherReasonFails) {
  const int result = Confinement::run([&] {
    if (!Confinement::failSystemCall(SYS_utimensat, EIO)) return 1;
    return copy() || _reasons[0] != std::generic_category().message(EIO) ? 2 : 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_FALSE(std::filesystem::exists(home() / "R0001.WAV"));
}

}  // namespace
