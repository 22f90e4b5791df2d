// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/MediumFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/SlowReads.h"
#include "support/TemporaryFolder.h"
#include "transfer/ContentHash.h"

namespace {

using Bytes = std::vector<std::byte>;

class MediumFileTest : public testing::Test {
 protected:
  ~MediumFileTest() override { SlowReads::reset(); }

  [[nodiscard]] MediumContent read(MediumFile::Way way) const {
    return MediumContent::of(_path, way, [](auto /*bytes*/) { return true; });
  }

  Bytes _bytes = Bytes(3'000'001, std::byte{7});
  TemporaryFolder _folder;
  std::filesystem::path _path = _folder.file("take.WAV", _bytes);
};

TEST_F(MediumFileTest, ReadsTheSameEitherWay) {
  ContentHash hash;
  hash.add(_bytes);
  for (const auto way : {MediumFile::Way::Plain, MediumFile::Way::PastCache}) {
    const MediumContent content = read(way);
    EXPECT_EQ(content.failure, "");
    EXPECT_EQ(content.size, _bytes.size());
    EXPECT_EQ(content.hash, hash.hex());
  }
}

TEST_F(MediumFileTest, WhereReadsPastTheCacheAreRefusedItIsReadThroughIt) {
  const MediumContent before = read(MediumFile::Way::Plain);
  SlowReads::refusePastCache(_folder.path().string());
  const MediumContent content = read(MediumFile::Way::PastCache);
  EXPECT_EQ(content.failure, "");
  EXPECT_EQ(content.hash, before.hash);
  // Where the file system opens none so, there is nothing to refuse.
  const int file = open(_path.c_str(), O_RDONLY | O_DIRECT | O_CLOEXEC);
  EXPECT_EQ(SlowReads::refusals() > 0, file >= 0);
  if (file >= 0) close(file);
}

TEST_F(MediumFileTest, TellsWhyItCannotBeRead) {
  _path = _folder.path();
  EXPECT_EQ(read(MediumFile::Way::Plain).failure, "Is a directory");
  _path = _folder.path() / "none";
  EXPECT_EQ(read(MediumFile::Way::PastCache).failure, "No such file or directory");
}

}  // namespace
