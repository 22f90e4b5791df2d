// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What is verified is what stands on the medium, not what the system still holds of it.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "CardFixture.h"
#include "support/DiskLog.h"
#include "support/SlowReads.h"

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

using Calls = std::vector<DiskCall>;

// Whether what was written to it had been synced when the cache was dropped: of what was not, the
// system drops nothing.
bool isDropped(const Calls& calls, std::uint64_t file) {
  bool isSynced = true;  // before the log began
  bool isIt = false;
  for (const DiskCall& call : calls) {
    if (call.file != file) continue;
    if (call.kind == DiskCall::Kind::Write) isSynced = isIt = false;
    if (call.kind == DiskCall::Kind::Sync) isSynced = true;
    if (call.kind == DiskCall::Kind::Drop) isIt = isSynced;
  }
  return isIt;
}

/// At home the file system refuses reads past the cache, or, where it is one that opens no file for
/// them, need not.
class ReadBackTest : public CardFixture {
 protected:
  ~ReadBackTest() override { SlowReads::reset(); }

  /// Which files at home are read past the cache by the work, once it is refused after it was
  /// dropped.
  template <class Work>
  std::vector<std::string> readPastCache(const Work& work) {
    SlowReads::refusePastCache(home().native());
    DiskLog::start();
    work();
    const Calls calls = DiskLog::stop();
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(home())) {
      struct stat status {};
      EXPECT_EQ(stat(entry.path().c_str(), &status), 0);
      if (isDropped(calls, status.st_ino)) {
        names.push_back(entry.path().lexically_relative(home()).native());
      }
    }
    EXPECT_EQ(SlowReads::refusals(), opensPastCache() ? static_cast<int>(names.size()) : 0)
        << "each is tried past the cache first";
    return names;
  }

 private:
  [[nodiscard]] bool opensPastCache() const {
    const int file = open((card() / "R0001.WAV").c_str(), O_RDONLY | O_DIRECT | O_CLOEXEC);
    if (file >= 0) close(file);
    return file >= 0;
  }
};

TEST_F(ReadBackTest, EachTakeThatIsCopied) {
  EXPECT_THAT(readPastCache([this] { EXPECT_TRUE(copy()); }),
              UnorderedElementsAre("DAY2/R0003.WAV", "R0001.WAV", "R0002.wav"));
}

TEST_F(ReadBackTest, EachThatIsThereAndIsCompared) {
  copy();
  fs::remove_all(home() / "ascmhl");
  EXPECT_THAT(readPastCache([this] { EXPECT_TRUE(copy()); }),
              UnorderedElementsAre("DAY2/R0003.WAV", "R0001.WAV", "R0002.wav"));
}

TEST_F(ReadBackTest, EachThatIsVerified) {
  copy();
  EXPECT_THAT(readPastCache([this] { EXPECT_TRUE(isRight()); }),
              UnorderedElementsAre("DAY2/R0003.WAV", "R0001.WAV", "R0002.wav"));
}

TEST_F(ReadBackTest, OneThatWasMovedToo) {
  copy();
  fs::rename(home() / "DAY2" / "R0003.WAV", home() / "moved.WAV");
  EXPECT_THAT(readPastCache([this] { EXPECT_FALSE(isRight()); }),
              UnorderedElementsAre("R0001.WAV", "R0002.wav", "moved.WAV"));
}

}  // namespace
