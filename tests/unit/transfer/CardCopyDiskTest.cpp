// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <string>

#include "CardFixture.h"
#include "support/Confinement.h"
#include "transfer/MediumFile.h"

namespace {

/// Copies in a child, where calls fail.
class CardCopyDiskTest : public CardFixture {
 protected:
  /// What became of it while writing fails so, as one line.
  std::string copyWhileWritesFail(int error) {
    std::string text;
    const std::filesystem::path said = _folder.path() / "said";
    const int result = Confinement::run([&] {
      CardCopy job(card(), home());
      job.setResult([&](const CardCopy::Result& told) {
        text += told.take.native() + ": " + told.reason + "\n";
      });
      // A sanitizer writes something, too, before it has seen a type once: that of the threads.
      MediumFile(card() / "R0001.WAV", MediumFile::Way::Plain).next();
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

}  // namespace
