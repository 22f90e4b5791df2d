// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// A connection to a file of SQLite. Nothing throws: what fails gives false or nothing, and
/// `failure` tells why. One thread at a time; every operation waits for the medium, and for another
/// program that writes as long as it was told.
class Database {
 public:
  enum class Access {
    Write,  ///< makes the file where there is none, not its folder
    Read,
    Frozen  ///< for a medium that cannot be written to: nobody changes the file meanwhile
  };

  Database(const std::filesystem::path& file, Access access, std::chrono::milliseconds patience);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// The library that the program runs with: "SQLite" and its version. Any thread.
  static std::string library();

  /// Carries out statements that give nothing back.
  bool run(const char* statements);
  /// From now on what is changed is written ahead, so that who reads need not wait for who writes.
  bool writeAhead();
  /// The first figure that the statement gives.
  std::optional<std::int64_t> number(const char* statement);
  /// The first text that it gives.
  std::optional<std::string> text(const char* statement);

  /// Looks through all of it; false where that fails, too.
  bool isWhole();
  [[nodiscard]] bool isReadOnly() const;
  /// Whether the last failure is one of what the file holds, and not of the medium, of memory or of
  /// others.
  [[nodiscard]] bool isDamaged() const;
  /// Whether the last failure is that the file could not be opened, or written to, as on a full
  /// disk.
  [[nodiscard]] bool isOutOfReach() const;
  /// Whether the last failure is that another program has it locked.
  [[nodiscard]] bool isBusy() const;
  [[nodiscard]] std::string failure() const;
  /// The file stays as it is when the connection ends.
  void leaveAlone();

  /// One question, with its answers row by row.
  class Statement {
   public:
    Statement(Database& database, const char* text);
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement();

    /// Places count from 1; what is not set is nothing.
    Statement& set(int place, std::string_view text);
    Statement& set(int place, double value);
    Statement& set(int place, std::int64_t value);

    /// Goes to the next row; false where there is none.
    bool next();
    /// Carries it out to its end.
    bool finish();

    /// Of the row, columns from 0.
    [[nodiscard]] std::optional<double> real(int column) const;
    [[nodiscard]] std::optional<std::int64_t> number(int column) const;
    [[nodiscard]] std::string text(int column) const;

   private:
    [[nodiscard]] bool isNothing(int column) const;

    Database& _database;
    sqlite3_stmt* _statement = nullptr;  ///< null where the text was refused
  };

 private:
  bool note(int code);
  [[nodiscard]] int kind() const;
  /// The system's number for what last went wrong with the medium; 0 for none.
  [[nodiscard]] int mediumError() const;

  std::chrono::milliseconds _patience;
  sqlite3* _connection = nullptr;
  int _code = 0;  ///< of what failed last
};
