// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

/// Makes a database of the layout of the first version, as it was given out: of a take "a" with
/// all that can be remembered, and of a take "b" with no more than has to be.
inline void makeFirst(const std::filesystem::path& file) {
  constexpr const char* kStatements =
      "CREATE TABLE takes (identity TEXT PRIMARY KEY NOT NULL, width REAL, gain INTEGER NOT NULL, "
      "loop_first INTEGER, loop_end INTEGER, used INTEGER NOT NULL) WITHOUT ROWID;"
      "INSERT INTO takes VALUES ('a', 90.5, -6, 48000, 96000, 1700000000);"
      "INSERT INTO takes VALUES ('b', NULL, 3, NULL, NULL, 1700000001);"
      "PRAGMA user_version = 1";
  std::filesystem::create_directories(file.parent_path());
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(connection, kStatements, nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(connection);
}
