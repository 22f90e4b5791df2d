// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/Database.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <charconv>
#include <system_error>
#include <thread>

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

// What a look through all of it could not read is among its findings.
int causeOf(std::string_view finding) {
  constexpr std::string_view kNumber = "unable to get the page. error code=";
  if (finding.find("failed to get page") != std::string_view::npos) return SQLITE_IOERR;
  int cause = SQLITE_CORRUPT;
  const auto at = finding.find(kNumber);
  if (at == std::string_view::npos) return cause;
  std::from_chars(finding.data() + at + kNumber.size(), finding.data() + finding.size(), cause);
  return cause;
}

}  // namespace

std::string Database::library() {
  return std::string("SQLite ") + sqlite3_libversion();
}

Database::Database(const std::filesystem::path& file, Access access,
                   std::chrono::milliseconds patience)
    : _patience(patience) {
  const std::string name = access == Access::Frozen ? asAddress(file) : file.native();
  note(sqlite3_open_v2(name.c_str(), &_connection, flagsOf(access), nullptr));
  if (_connection == nullptr) return;  // no memory
  sqlite3_extended_result_codes(_connection, 1);
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

// SQLite itself does not wait there for who is about to write.
bool Database::writeAhead() {
  constexpr auto kPoll = std::chrono::milliseconds(2);
  const int before = _code;
  const auto end = std::chrono::steady_clock::now() + _patience;
  while (!run("PRAGMA journal_mode = WAL")) {
    if (!isBusy() || std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(kPoll);
  }
  _code = before;
  return true;
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

bool Database::isWhole() {
  const auto told = text("PRAGMA quick_check(1)");
  if (told && *told != "ok") note(causeOf(*told));
  return told == "ok";
}

// A statement is refused where what it names is not there. What the medium does not give is called
// corrupt too.
bool Database::isDamaged() const {
  const bool isContent =
      kind() == SQLITE_CORRUPT || kind() == SQLITE_NOTADB || kind() == SQLITE_ERROR;
  return isContent && mediumError() == 0;
}

// Whoever only reads makes the list of what was written ahead, too, for which a full disk has no
// room.
bool Database::isOutOfReach() const {
  return kind() == SQLITE_CANTOPEN || kind() == SQLITE_READONLY || kind() == SQLITE_PERM ||
         kind() == SQLITE_FULL || _code == SQLITE_IOERR_SHMOPEN || _code == SQLITE_IOERR_SHMSIZE ||
         _code == SQLITE_IOERR_SHMMAP;
}

bool Database::isBusy() const {
  return kind() == SQLITE_BUSY;
}

std::string Database::failure() const {
  if (_code == SQLITE_OK) return {};
  const int error = mediumError();
  return error == 0 ? sqlite3_errstr(_code) : std::generic_category().message(error);
}

int Database::kind() const {
  constexpr int kKind = 0xff;
  return _code & kKind;
}

int Database::mediumError() const {
  if (_connection == nullptr) return 0;
  int error = 0;
  sqlite3_file_control(_connection, "main", SQLITE_FCNTL_LAST_ERRNO, &error);
  sqlite3_file* ahead = nullptr;
  sqlite3_file_control(_connection, "main", SQLITE_FCNTL_JOURNAL_POINTER,
                       static_cast<void*>(&ahead));
  const bool isOpen = ahead != nullptr && ahead->pMethods != nullptr;
  if (error != 0 || !isOpen || ahead->pMethods->xFileControl == nullptr) return error;
  ahead->pMethods->xFileControl(ahead, SQLITE_FCNTL_LAST_ERRNO, &error);
  return error;
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
