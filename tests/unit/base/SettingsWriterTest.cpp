// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsWriter.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "base/SettingsFile.h"
#include "support/LogLines.h"
#include "support/RefusedMemory.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr std::chrono::minutes kPatience(2);

/// Settings whose lock another program holds, which a write waits for.
class HeldSettings {
 public:
  explicit HeldSettings(const std::filesystem::path& file)
      : _lock(open((file.native() + ".lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600)) {
    EXPECT_EQ(flock(_lock, LOCK_EX), 0);
  }
  HeldSettings(const HeldSettings&) = delete;
  HeldSettings& operator=(const HeldSettings&) = delete;
  ~HeldSettings() { close(_lock); }

 private:
  int _lock;
};

class SettingsWriterTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_TRUE(writer.flush(kPatience)); }

  TemporaryFolder folder;
  std::filesystem::path path = folder.path() / "settings";
  SettingsWriter& writer = SettingsWriter::get();
};

TEST_F(SettingsWriterTest, WritesWhatIsStored) {
  for (int i = 0; i < 20; ++i)
    writer.store(path, "key " + std::to_string(i % 3), std::to_string(i));
  EXPECT_TRUE(writer.flush(kPatience));
  const SettingsFile file(path);
  EXPECT_EQ(file.get("key 0"), "18");
  EXPECT_EQ(file.get("key 1"), "19");
  EXPECT_EQ(file.get("key 2"), "17");
  EXPECT_EQ(writer.pending(path, "key 0"), std::nullopt);
}

TEST_F(SettingsWriterTest, TheNewestValueIsThereBeforeItIsWritten) {
  {
    const HeldSettings held(path);
    for (int i = 0; i < 5; ++i) {
      writer.store(path, "key", std::to_string(i));
      EXPECT_EQ(writer.pending(path, "key"), std::to_string(i));
    }
    EXPECT_EQ(writer.pending(path, "another"), std::nullopt);
    EXPECT_EQ(writer.pending(folder.path() / "another", "key"), std::nullopt);
  }
  EXPECT_TRUE(writer.flush(kPatience));
  EXPECT_EQ(SettingsFile(path).get("key"), "4");
}

TEST_F(SettingsWriterTest, NobodyWaitsLongerThanHeWantsTo) {
  const HeldSettings held(path);
  writer.store(path, "key", "1");
  EXPECT_FALSE(writer.flush(std::chrono::milliseconds(0)));
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
TEST_F(SettingsWriterTest, WhatThereIsNoMemoryForIsLoggedAndTheNextIsWritten) {
  constexpr std::size_t kLength = 100'000;
  const std::string line = "Cannot write " + path.native() + ": There is not enough memory";
  for (const std::size_t missing : {kLength, kLength + 2}) {  // for the value, for the file
    const LogLines log;
    {
      const RefusedMemory refused(missing);
      writer.store(path, "key", std::string(kLength, 'v'));
      ASSERT_TRUE(writer.flush(kPatience));
      EXPECT_EQ(RefusedMemory::count(), 1);
    }
    EXPECT_EQ(log.get(), std::vector{line});
    writer.store(path, "key", "1");
    ASSERT_TRUE(writer.flush(kPatience));
    EXPECT_EQ(SettingsFile(path).get("key"), "1");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"settings", "settings.lock"}));
  }
}
#endif

}  // namespace
