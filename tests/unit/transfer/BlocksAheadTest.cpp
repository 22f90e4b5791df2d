// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/BlocksAhead.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <vector>

#include "support/Confinement.h"
#include "support/SlowReads.h"
#include "support/TemporaryFolder.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::size_t kMiB = 1 << 20;

// The beginning of the same bytes, of which no two blocks are alike.
Bytes someBytes(std::size_t size) {
  static const Bytes kAll = [] {
    std::minstd_rand random(7);
    Bytes bytes(14 * kMiB);
    for (std::size_t i = 0; i < bytes.size(); i += 512)
      bytes[i] = static_cast<std::byte>(random() >> 8);
    return bytes;
  }();
  return {kAll.begin(), kAll.begin() + static_cast<std::ptrdiff_t>(size)};
}

class OpenFile {
 public:
  OpenFile(const std::filesystem::path& path, int flags)
      : _file(open(path.c_str(), O_RDONLY | O_CLOEXEC | flags)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (_file >= 0) close(_file);
  }

  [[nodiscard]] int number() const { return _file; }

 private:
  int _file;
};

class BlocksAheadTest : public testing::Test {
 protected:
  ~BlocksAheadTest() override { SlowReads::reset(); }

  static Bytes all(BlocksAhead& blocks) {
    Bytes bytes;
    for (auto next = blocks.next(); !next.empty(); next = blocks.next()) {
      bytes.insert(bytes.end(), next.begin(), next.end());
    }
    return bytes;
  }

  TemporaryFolder _folder;
};

TEST_F(BlocksAheadTest, HandsOutAFileInItsOrder) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kMiB - 1, kMiB, kMiB + 1, 2 * kMiB,
                                 9 * kMiB + 4096, 13 * kMiB + 5}) {
    const Bytes bytes = someBytes(size);
    const auto path = _folder.file("take.WAV", bytes);
    for (const auto way : {BlocksAhead::Way::Plain, BlocksAhead::Way::PastCache}) {
      const OpenFile file(path, way == BlocksAhead::Way::PastCache ? O_DIRECT : 0);
      if (file.number() < 0) continue;  // a file system that knows no reads past the cache
      BlocksAhead blocks(file.number(), way);
      EXPECT_TRUE(all(blocks) == bytes) << size;
      EXPECT_TRUE(blocks.next().empty());
      EXPECT_EQ(blocks.error(), 0);
    }
  }
}

TEST_F(BlocksAheadTest, TheCallerReadsNothingItself) {
  const OpenFile file(_folder.file("take.WAV", someBytes(6 * kMiB)), 0);
  SlowReads::share(_folder.path().string(), 100 * kMiB);
  BlocksAhead blocks(file.number(), BlocksAhead::Way::Plain);
  EXPECT_EQ(all(blocks).size(), 6 * kMiB);
  EXPECT_EQ(SlowReads::takenHere(), 0);
}

TEST_F(BlocksAheadTest, WithoutThreadsTheCallerReads) {
  const Bytes bytes = someBytes(3 * kMiB + 1);
  const OpenFile file(_folder.file("take.WAV", bytes), 0);
  const int same = Confinement::run([&] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 2;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 3;
    BlocksAhead blocks(file.number(), BlocksAhead::Way::Plain);
    return all(blocks) == bytes ? 0 : 1;
  });
  EXPECT_EQ(same, 0);
}

TEST_F(BlocksAheadTest, TellsWhatFailed) {
  const OpenFile folder(_folder.path(), O_DIRECTORY);
  BlocksAhead blocks(folder.number(), BlocksAhead::Way::Plain);
  EXPECT_TRUE(blocks.next().empty());
  EXPECT_EQ(blocks.error(), EISDIR);
  EXPECT_TRUE(blocks.next().empty());
  EXPECT_EQ(blocks.error(), EISDIR);
}

TEST_F(BlocksAheadTest, ACardThatIsPulledOutEndsIt) {
  const OpenFile file(_folder.file("take.WAV", someBytes(14 * kMiB)), 0);
  SlowReads::limit(_folder.path().string(), 0);
  BlocksAhead blocks(file.number(), BlocksAhead::Way::Plain);
  ASSERT_EQ(blocks.next().size(), kMiB);
  SlowReads::pullOut();
  EXPECT_LT(all(blocks).size(), 13 * kMiB);
  EXPECT_EQ(blocks.error(), EIO);
}

TEST_F(BlocksAheadTest, CanBeGivenUpAtAnyBlock) {
  const Bytes bytes = someBytes(7 * kMiB);
  const auto path = _folder.file("take.WAV", bytes);
  for (std::size_t taken = 0; taken < 9; ++taken) {
    const OpenFile file(path, 0);
    BlocksAhead blocks(file.number(), BlocksAhead::Way::PastCache);
    for (std::size_t i = 0; i < taken; ++i) {
      EXPECT_EQ(blocks.next().size(), i < 7 ? kMiB : 0);
    }
  }
}

}  // namespace
