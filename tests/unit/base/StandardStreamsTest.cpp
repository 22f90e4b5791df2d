// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/StandardStreams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <initializer_list>

namespace {

constexpr int kRight = 0;
constexpr int kTaken = 1;
constexpr int kUsable = 2;

// In a process that began without any of the three.
int outcomeWithoutStreams() {
  char byte = 0;
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
  StandardStreams::reserve();
  if (open("/dev/null", O_RDWR) <= STDERR_FILENO) return kTaken;
  if (read(STDIN_FILENO, &byte, 1) >= 0) return kUsable;
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    if (write(stream, &byte, 1) >= 0) return kUsable;
  }
  return kRight;
}

}  // namespace

TEST(StandardStreamsTest, NoFileGetsTheNumberOfOneThatIsClosed) {
  const pid_t child = fork();
  if (child == 0) _exit(outcomeWithoutStreams());
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), kRight);
}

TEST(StandardStreamsTest, ThoseThatAreThereStay) {
  const int before = fcntl(STDOUT_FILENO, F_GETFL);
  StandardStreams::reserve();
  EXPECT_EQ(fcntl(STDOUT_FILENO, F_GETFL), before);
}
