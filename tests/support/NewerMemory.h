// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

/// Makes of a database, which is there already and not in use, one of a version to come.
inline void makeNewer(const std::filesystem::path& file) {
  sqlite3* connection = nullptr;
  ASSERT_EQ(sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(connection, "PRAGMA user_version = 99", nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(connection);
}
