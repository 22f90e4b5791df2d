// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QScrollBar>
#include <QSignalSpy>
#include <algorithm>
#include <ctime>

#include "WindowFixture.h"

namespace {

constexpr int kEntries = 20'000;
constexpr double kMostMilliseconds = 50.0;

/// Time of the interface thread itself: what others on the machine take does not count.
double threadMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

class LargeFolder : public WindowFixture {
 protected:
  void SetUp() override {
    for (int i = 0; i < kEntries; ++i) touch("take " + std::to_string(100'000 + i) + ".WAV");
  }
  void touch(const std::string& name) const {
    ::close(::open((takes.path() / name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  }

  /// Another folder, with the listing that follows by itself still to come.
  void changeTo(const std::filesystem::path& folder) {
    controller().setStart(folder);
    controller().viewDidAppear();
  }
  /// The longest that the event loop was kept busy at a stretch while the folder was listed.
  double longestStall() {
    const QSignalSpy answers(&controller(), &ViewController::listed);
    controller().updateFileBrowser();
    double longest = 0.0;
    int quiet = 0;  // rounds: what follows from the listing is measured too
    while (answers.count() == 0 || quiet < 200) {
      const double before = threadMilliseconds();
      QCoreApplication::processEvents();
      longest = std::max(longest, threadMilliseconds() - before);
      quiet = answers.count() == 0 ? 0 : quiet + 1;
    }
    return longest;
  }
};

TEST_F(LargeFolder, NeverHoldsUpTheInterface) {
  startOnTakes();
  EXPECT_EQ(view().tableFile->model()->rowCount(), kEntries);
  // Not by a click, after which the list brings the row into sight half a second later.
  view().tableFile->selectRow(rowOf("take 110000.WAV"));
  constexpr int kPlace = 123'456;
  waitFor([this] { return view().tableFile->verticalScrollBar()->maximum() > kPlace; },
          "the layout");
  view().tableFile->verticalScrollBar()->setValue(kPlace);
  EXPECT_LT(longestStall(), kMostMilliseconds) << "unchanged";
  touch("take 105000b.WAV");
  EXPECT_LT(longestStall(), kMostMilliseconds) << "one more";
  EXPECT_EQ(view().tableFile->model()->rowCount(), kEntries + 1);
  EXPECT_EQ(selected(), "take 110000.WAV");
  EXPECT_EQ(view().tableFile->verticalScrollBar()->value(), kPlace);
  for (int i = 0; i < 1000; ++i) touch("more " + std::to_string(i) + ".WAV");
  EXPECT_LT(longestStall(), kMostMilliseconds) << "many more";
  EXPECT_EQ(selected(), "take 110000.WAV");
  TemporaryFolder elsewhere;
  changeTo(elsewhere.path());
  EXPECT_LT(longestStall(), kMostMilliseconds) << "gone";
  changeTo(takes.path());
  EXPECT_LT(longestStall(), kMostMilliseconds) << "all of them anew";
  EXPECT_EQ(view().tableFile->model()->rowCount(), kEntries + 1001);

  // As it would be a while after the last change.
  const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  utimensat(AT_FDCWD, takes.path().c_str(), old, 0);
  refresh();  // may be the answer to what was asked before
  refresh();
  const auto listing = controller().folderHelper();
  refresh();
  EXPECT_EQ(controller().folderHelper(), listing) << "not listed again";
  const double before = threadMilliseconds();
  EXPECT_EQ(FolderLister::answerTo({takes.path(), {}, listing}).listing, listing);
  EXPECT_LT(threadMilliseconds() - before, 1.0);
}

}  // namespace
