// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/Database.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace {

// Signs that mean something in an address.
std::string asAddress(const std::filesystem::path& file) {
  std::string address = "file:";
  for (const char sign : file.native()) {
    if (sign == '%' || sign == '?' || sign == '#') {
      address += fmt::format("%{:02x}", static_cast<int>(sign));
    } else {
      address += sign;
    }
  }
  return address + "?immutable=1";
}

int flagsOf(Database::Access access) {
  switch (access) {
    case Database::Access::Write:
      return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    case Database::Access::Read:
      return SQLITE_OPEN_READONLY;
    case Database::Access::Frozen:
      break;
  }
  return SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
}

}  // namespace

Database::Database(const std::filesystem::path& file, Access access,
                   std::chrono::milliseconds patience) {
  const std::string name = access == Access::Frozen ? asAddress(file) : file.native();
  note(sqlite3_open_v2(name.c_str(), &_connection, flagsOf(access), nullptr));
  sqlite3_busy_timeout(_connection, static_cast<int>(patience.count()));
}

Database::~Database() {
  sqlite3_close(_connection);
}

bool Database::note(int code) {
  const bool isWell = code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE;
  if (!isWell) _code = code;
  return isWell;
}

bool Database::run(const char* statements) {
  return note(sqlite3_exec(_connection, statements, nullptr, nullptr, nullptr));
}

std::optional<std::int64_t> Database::number(const char* statement) {
  Statement question(*this, statement);
  return question.next() ? question.number(0) : std::nullopt;
}

std::optional<std::string> Database::text(const char* statement) {
  Statement question(*this, statement);
  return question.next() ? std::optional(question.text(0)) : std::nullopt;
}

bool Database::isReadOnly() const {
  return sqlite3_db_readonly(_connection, "main") == 1;
}

// A statement is refused where what it names is not there.
bool Database::isDamaged() const {
  return _code == SQLITE_CORRUPT || _code == SQLITE_NOTADB || _code == SQLITE_ERROR;
}

bool Database::isOutOfReach() const {
  return _code == SQLITE_CANTOPEN || _code == SQLITE_READONLY || _code == SQLITE_PERM;
}

bool Database::isBusy() const {
  return _code == SQLITE_BUSY;
}

std::string Database::failure() const {
  return _code == SQLITE_OK ? std::string() : sqlite3_errstr(_code);
}

void Database::leaveAlone() {
  sqlite3_db_config(_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

Database::Statement::Statement(Database& database, const char* text) : _database(database) {
  _database.note(sqlite3_prepare_v2(_database._connection, text, -1, &_statement, nullptr));
}

Database::Statement::~Statement() {
  sqlite3_finalize(_statement);
}

Database::Statement& Database::Statement::set(int place, std::string_view text) {
  sqlite3_bind_text(_statement, place, text.data(), static_cast<int>(text.size()),
                    SQLITE_TRANSIENT);  // NOLINT: a cast of the library's own
  return *this;
}

Database::Statement& Database::Statement::set(int place, double value) {
  sqlite3_bind_double(_statement, place, value);
  return *this;
}

Database::Statement& Database::Statement::set(int place, std::int64_t value) {
  sqlite3_bind_int64(_statement, place, value);
  return *this;
}

bool Database::Statement::next() {
  if (_statement == nullptr) return false;
  const int code = sqlite3_step(_statement);
  return _database.note(code) && code == SQLITE_ROW;
}

bool Database::Statement::finish() {
  if (_statement == nullptr) return false;
  int code = SQLITE_ROW;
  while (code == SQLITE_ROW) code = sqlite3_step(_statement);
  return _database.note(code);
}

bool Database::Statement::isNothing(int column) const {
  return sqlite3_column_type(_statement, column) == SQLITE_NULL;
}

std::optional<double> Database::Statement::real(int column) const {
  if (isNothing(column)) return std::nullopt;
  return sqlite3_column_double(_statement, column);
}

std::optional<std::int64_t> Database::Statement::number(int column) const {
  if (isNothing(column)) return std::nullopt;
  return sqlite3_column_int64(_statement, column);
}

std::string Database::Statement::text(int column) const {
  const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(_statement, column));
  return bytes == nullptr
             ? std::string()
             : std::string(bytes,
                           static_cast<std::size_t>(sqlite3_column_bytes(_statement, column)));
}
