// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

/// A database that another program keeps for itself for as long as this is there: nobody else can
/// write to it, nor even read it. The file is there already.
class LockedMemory {
 public:
  explicit LockedMemory(const std::filesystem::path& file) {
    EXPECT_EQ(sqlite3_open_v2(file.c_str(), &_other, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    const char* const lock = "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE";
    EXPECT_EQ(sqlite3_exec(_other, lock, nullptr, nullptr, nullptr), SQLITE_OK);
  }
  LockedMemory(const LockedMemory&) = delete;
  LockedMemory& operator=(const LockedMemory&) = delete;
  ~LockedMemory() { sqlite3_close(_other); }

 private:
  sqlite3* _other = nullptr;
};
