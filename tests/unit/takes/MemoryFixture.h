// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <optional>
#include <string>

#include "support/TemporaryFolder.h"
#include "takes/TakeMemory.h"

/// A memory of takes in a folder of its own.
class MemoryFixture : public testing::Test {
 protected:
  /// A sound that is told from others by its gain.
  static RememberedSound sound(std::int64_t gain) {
    return {90.5, gain, FrameRange{48'000, 96'000}};
  }
  static void remember(const std::filesystem::path& file, const std::string& take,
                       std::int64_t gain) {
    EXPECT_TRUE(TakeMemory(file).remember(take, sound(gain))) << take;
  }
  static std::optional<std::int64_t> gainOf(const std::filesystem::path& file,
                                            const std::string& take) {
    const auto found = TakeMemory(file).find(take);
    return found ? std::optional(found->gain) : std::nullopt;
  }
  /// As another program that knows SQLite alone.
  static void change(const std::filesystem::path& file, const char* statements) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(connection, statements, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(connection);
  }

  TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "mixdeck" / "takes.db";
};
