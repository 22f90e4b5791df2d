// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Utility.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "support/EnvironmentVariable.h"
#include "support/LogLines.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr std::chrono::minutes kLongEnough(2);

TEST(Utility, KeepsStringsForTheUser) {
  const TemporaryFolder folder;
  const EnvironmentVariable config("XDG_CONFIG_HOME", folder.path());
  EXPECT_EQ(Utility::getStringValue("UD_LAST_OPEN_FOLDER"), std::nullopt);
  Utility::store("UD_LAST_OPEN_FOLDER", "/music");
  Utility::store("UD_DO_NOT_SHOW_AGAIN", "1.0.12");
  Utility::store("UD_LAST_OPEN_FOLDER", "/other");
  EXPECT_EQ(Utility::getStringValue(Utility::kLastOpenFolder), "/other");
  EXPECT_EQ(Utility::getStringValue(Utility::kDoNotShowAgain), "1.0.12");
  EXPECT_TRUE(Utility::finishStoring(kLongEnough));
  EXPECT_EQ(Utility::getStringValue(Utility::kLastOpenFolder), "/other");
  EXPECT_EQ(Utility::getStringValue(Utility::kDoNotShowAgain), "1.0.12");
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "mixdeck" / "settings"));
}

TEST(Utility, SaysWhereItCouldNotWrite) {
  const TemporaryFolder folder;
  const EnvironmentVariable config("XDG_CONFIG_HOME", folder.file("file", {}));
  LogLines log;
  Utility::store("a", "1");
  EXPECT_TRUE(Utility::finishStoring(kLongEnough));
  ASSERT_EQ(log.get().size(), 1U);
  EXPECT_EQ(log.get()[0], "Cannot write " + (folder.path() / "file/mixdeck/settings").native());
}

// First in this program to use the stopwatch.
TEST(Stopwatch, CountsOnFromTheLastStart) {
  EXPECT_EQ(Utility::stopWatch_stop(), 0.0);
  Utility::stopWatch_start();
  const double lap = Utility::stopWatch_stop();
  EXPECT_GE(lap, 0.0);
  while (Utility::stopWatch_stop() <= lap) std::this_thread::yield();
  const double later = Utility::stopWatch_stop();
  EXPECT_GT(later, lap);
  Utility::stopWatch_start();
  EXPECT_LT(Utility::stopWatch_stop(), 60.0);
}

}  // namespace
