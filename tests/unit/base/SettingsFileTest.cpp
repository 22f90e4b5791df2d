// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

using testing::Contains;
using namespace std::chrono_literals;

namespace fs = std::filesystem;

namespace {

std::vector<std::byte> bytesOf(const std::string& text) {
  std::vector<std::byte> bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char character) { return static_cast<std::byte>(character); });
  return bytes;
}

class SettingsFileTest : public testing::Test {
 protected:
  /// As another program that holds it: to be closed.
  [[nodiscard]] int lockHeld() const {
    const int lock = open((path.native() + ".lock").c_str(), O_CREAT | O_RDWR, 0600);
    EXPECT_EQ(flock(lock, LOCK_EX), 0);
    return lock;
  }

  TemporaryFolder folder;
  fs::path path = folder.path() / "settings";
  SettingsFile settings{path};
};

TEST_F(SettingsFileTest, AnAbsentFileHasNoValuesAndIsNotMade) {
  EXPECT_EQ(settings.get("a"), std::nullopt);
  EXPECT_TRUE(folder.names().empty());
}

TEST_F(SettingsFileTest, KeepsWhatWasStored) {
  EXPECT_TRUE(settings.set("a", "1"));
  EXPECT_TRUE(settings.set("b", "/x y"));
  EXPECT_TRUE(settings.set("a", "2"));
  const SettingsFile later(path);
  EXPECT_EQ(later.get("a"), "2");
  EXPECT_EQ(later.get("b"), "/x y");
  EXPECT_EQ(later.get("c"), std::nullopt);
}

TEST_F(SettingsFileTest, MakesItsFolders) {
  const SettingsFile deep(folder.path() / "x" / "y" / "settings");
  EXPECT_TRUE(deep.set("a", "1"));
  EXPECT_EQ(deep.get("a"), "1");
}

TEST_F(SettingsFileTest, LeavesNoTemporaryFile) {
  EXPECT_TRUE(settings.set("a", "1"));
  EXPECT_THAT(folder.names(), testing::ElementsAre("settings", "settings.lock"));
}

TEST_F(SettingsFileTest, RemovesWhatAKilledProgramLeftAndNothingElse) {
  folder.file("settings.part-abc123", {});
  folder.file("settings.backup", {});
  const fs::path used = folder.file("settings.part-def456", {});
  const int other = open(used.c_str(), O_WRONLY);
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  EXPECT_TRUE(settings.set("a", "1"));
  close(other);
  EXPECT_THAT(folder.names(), testing::ElementsAre("settings", "settings.backup", "settings.lock",
                                                   "settings.part-def456"));
}

TEST_F(SettingsFileTest, AKillAtAnyMomentLosesNothing) {
  ASSERT_TRUE(settings.set("kept", "1"));
  for (int kill = 0; kill < 60; ++kill) {
    const pid_t other = fork();
    if (other == 0) {
      for (int i = 0;; ++i) (void)settings.set("changed", std::to_string(i % 7));
    }
    std::this_thread::sleep_for(std::chrono::microseconds(100 * kill));
    ::kill(other, SIGKILL);
    ASSERT_EQ(waitpid(other, nullptr, 0), other);
    ASSERT_EQ(settings.get("kept"), "1");
    ASSERT_THAT(settings.get("changed").value_or("0"), testing::MatchesRegex("[0-6]"));
  }
  EXPECT_TRUE(settings.set("changed", "7"));
  EXPECT_THAT(folder.names(), testing::ElementsAre("settings", "settings.lock"));
}

TEST_F(SettingsFileTest, SetsADamagedFileAside) {
  for (const std::string& damaged : {std::string(), std::string("rubbish"), std::string(3, '\0')}) {
    folder.file("settings", bytesOf(damaged));
    EXPECT_TRUE(settings.set("a", "1"));
    EXPECT_EQ(TemporaryFolder::read(folder.path() / "settings.damaged"), bytesOf(damaged));
    EXPECT_EQ(settings.get("a"), "1");
  }
}

// At the start it is the interface thread that looks.
TEST_F(SettingsFileTest, ALookAtADamagedFileChangesNothing) {
  folder.file("settings", bytesOf("rubbish"));
  EXPECT_EQ(settings.get("a"), std::nullopt);
  EXPECT_THAT(folder.names(), testing::ElementsAre("settings"));
}

TEST_F(SettingsFileTest, WhatWasSetAsideBeforeStays) {
  for (const char* const damaged : {"first", "second", "third"}) {
    folder.file("settings", bytesOf(damaged));
    EXPECT_TRUE(settings.set("a", "1"));
  }
  EXPECT_TRUE(settings.set("a", "2")) << "nothing is damaged now";
  EXPECT_EQ(TemporaryFolder::read(folder.path() / "settings.damaged-2"), bytesOf("first"));
  EXPECT_EQ(TemporaryFolder::read(folder.path() / "settings.damaged-3"), bytesOf("second"));
  EXPECT_EQ(TemporaryFolder::read(folder.path() / "settings.damaged"), bytesOf("third"));
}

TEST_F(SettingsFileTest, SetsAsideWhatIsNoFileAtAll) {
  fs::create_directory(path);
  EXPECT_TRUE(settings.set("a", "1"));
  EXPECT_EQ(settings.get("a"), "1");
  EXPECT_THAT(folder.names(), Contains("settings.damaged"));
}

TEST_F(SettingsFileTest, ADamagedFileIsReplacedByTheNextValue) {
  folder.file("settings", bytesOf("mixdeck-settings 1\na"));
  EXPECT_TRUE(settings.set("b", "2"));
  EXPECT_EQ(settings.get("b"), "2");
  EXPECT_THAT(folder.names(), Contains("settings.damaged"));
}

// However long the disk takes over a save: neither loses its patience.
TEST_F(SettingsFileTest, TwoProgramsKeepEachOthersKeys) {
  constexpr int kKeys = 40;
  const SettingsFile patient(path, {.unsaved = 1h, .most = 1h});
  const pid_t other = fork();
  if (other == 0) {
    bool isFine = true;
    for (int i = 0; i < kKeys; ++i) {
      isFine = patient.set("other" + std::to_string(i), "1") && isFine;
    }
    _exit(isFine ? 0 : 1);
  }
  for (int i = 0; i < kKeys; ++i) EXPECT_TRUE(patient.set("own" + std::to_string(i), "1"));
  int status = 0;
  ASSERT_EQ(waitpid(other, &status, 0), other);
  EXPECT_EQ(status, 0);
  for (int i = 0; i < kKeys; ++i) {
    EXPECT_EQ(settings.get("own" + std::to_string(i)), "1") << i;
    EXPECT_EQ(settings.get("other" + std::to_string(i)), "1") << i;
  }
}

TEST_F(SettingsFileTest, AProgramThatHangsOnTheLockDoesNotHangThisOne) {
  const int lock = lockHeld();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(settings.set("a", "1"));  // or the test's time limit ends it
  EXPECT_GE(std::chrono::steady_clock::now() - start, 500ms) << "not waited for";
  close(lock);
  EXPECT_EQ(settings.get("a"), "1");
}

TEST_F(SettingsFileTest, ALockThatOthersKeepBusyIsNotWaitedForForever) {
  const int lock = lockHeld();
  std::jthread others([this](const std::stop_token& end) {
    for (int i = 0; !end.stop_requested(); ++i) {
      folder.file("next", bytesOf("mixdeck-settings 1\nother=" + std::to_string(i) + "\n"));
      fs::rename(folder.path() / "next", path);
    }
  });
  EXPECT_TRUE(SettingsFile(path, {.unsaved = 1h, .most = 50ms}).set("a", "1"));
  close(lock);
}

TEST_F(SettingsFileTest, ALinkStaysALink) {
  fs::create_directory(folder.path() / "shared");
  fs::create_symlink(folder.path() / "shared" / "real", path);
  EXPECT_TRUE(SettingsFile(path).set("a", "1"));
  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(SettingsFile(folder.path() / "shared" / "real").get("a"), "1");
}

TEST_F(SettingsFileTest, AFolderThatCannotBeWrittenIsReported) {
  folder.file("nofolder", {});
  EXPECT_FALSE(SettingsFile(folder.path() / "nofolder" / "settings").set("a", "1"));
}

TEST(SettingsFilePath, FollowsTheUsersFolders) {
  const EnvironmentVariable home("HOME", "/home/someone");
  {
    const EnvironmentVariable config("XDG_CONFIG_HOME", "/elsewhere");
    EXPECT_EQ(SettingsFile::defaultPath(), "/elsewhere/mixdeck/settings");
  }
  for (const char* const unusable : {"", "relative"}) {
    const EnvironmentVariable config("XDG_CONFIG_HOME", unusable);
    EXPECT_EQ(SettingsFile::defaultPath(), "/home/someone/.config/mixdeck/settings");
  }
}

}  // namespace
