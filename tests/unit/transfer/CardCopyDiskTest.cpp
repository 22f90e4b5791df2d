// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>

#include <cerrno>
#include <chrono>
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
