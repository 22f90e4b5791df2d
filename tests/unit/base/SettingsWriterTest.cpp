// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsWriter.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "base/SettingsFile.h"
#include "support/LogLines.h"
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

}  // namespace
