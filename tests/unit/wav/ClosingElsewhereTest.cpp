// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/ClosingElsewhere.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "support/Confinement.h"
#include "support/TemporaryFolder.h"
#include "wav/FileBytes.h"

namespace {

std::atomic<ino_t> watched{0};
std::atomic<pid_t> closedBy{0};  ///< the thread; 0 for none yet

pid_t thisThread() {
  return static_cast<pid_t>(syscall(SYS_gettid));
}

}  // namespace

// It stands before the C library.
extern "C" int close(int file) {
  struct stat status {};
  const bool isIt = watched != 0 && fstat(file, &status) == 0 && status.st_ino == watched;
  const auto result = static_cast<int>(syscall(SYS_close, file));
  if (isIt) {
    closedBy = thisThread();
    closedBy.notify_all();
  }
  return result;
}

namespace {

class ClosingElsewhereTest : public testing::Test {
 protected:
  ClosingElsewhereTest() {
    closedBy = 0;
    std::string whyNot;
    _file = FileBytes::open(_folder.file("a", {std::byte{'a'}}), whyNot);
    struct stat status {};
    stat((_folder.path() / "a").c_str(), &status);
    watched = status.st_ino;
  }
  ~ClosingElsewhereTest() override { watched = 0; }

  TemporaryFolder _folder;
  std::shared_ptr<const FileBytes> _file;
};

TEST_F(ClosingElsewhereTest, FilesOfAThreadThatAsksAreClosedOnAnother) {
  const ClosingElsewhere here;
  _file.reset();
  closedBy.wait(0);
  EXPECT_NE(closedBy, thisThread());
}

TEST_F(ClosingElsewhereTest, OthersCloseTheirFilesAtOnce) {
  const ClosingElsewhere here;
  std::thread([this] {
    _file.reset();
    EXPECT_EQ(closedBy, thisThread());
  }).join();
}

TEST_F(ClosingElsewhereTest, AfterItTheThreadClosesItsFilesItself) {
  { const ClosingElsewhere here; }
  _file.reset();
  EXPECT_EQ(closedBy, thisThread());
}

// The thread sanitizer starts none after a fork.
TEST_F(ClosingElsewhereTest, WithoutAThreadTheyAreClosedThere) {
  const int status = Confinement::run([this] {
    const ClosingElsewhere here;
    if (!Confinement::refuseThreads()) return 1;
    _file.reset();
    return closedBy == thisThread() ? 0 : 2;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
