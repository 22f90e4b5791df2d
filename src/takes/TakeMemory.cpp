// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/TakeMemory.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "base/DamagedFile.h"
#include "dsp/GainStage.h"
#include "dsp/SideGain.h"
#include "takes/Database.h"
#include "takes/UseLock.h"
#include "takes/UserFolder.h"

namespace fs = std::filesystem;

namespace {

// Each brings the layout of its place in the list to the next. One that was ever given out is never
// changed.
constexpr std::array<const char*, TakeMemory::kVersion> kSteps{
    "CREATE TABLE takes (identity TEXT PRIMARY KEY NOT NULL, width REAL, gain INTEGER NOT NULL, "
    "loop_first INTEGER, loop_end INTEGER, used INTEGER NOT NULL) WITHOUT ROWID",
    "CREATE TABLE exports (source TEXT NOT NULL, target TEXT NOT NULL, width REAL, gain REAL, "
    "written INTEGER NOT NULL, PRIMARY KEY (source, target)) WITHOUT ROWID"};

// All that is asked for, by version; refused where it is not there.
constexpr std::array<const char*, TakeMemory::kVersion + 1> kProbes{
    "", "SELECT identity, width, gain, loop_first, loop_end, used FROM takes LIMIT 0",
    "SELECT identity, width, gain, loop_first, loop_end, used FROM takes LIMIT 0;"
    "SELECT source, target, width, gain, written FROM exports LIMIT 0"};
constexpr const char* kFind =
    "SELECT width, gain, loop_first, loop_end FROM takes WHERE identity = ?1";
constexpr const char* kRemember =
    "INSERT OR REPLACE INTO takes (identity, width, gain, loop_first, loop_end, used) "
    "VALUES (?1, ?2, ?3, ?4, ?5, ?6)";
constexpr const char* kNote =
    "INSERT OR REPLACE INTO exports (source, target, width, gain, written) "
    "VALUES (?1, ?2, ?3, ?4, ?5)";
constexpr const char* kForgetOthers = "DELETE FROM exports WHERE target = ?1 AND source <> ?2";
constexpr const char* kExports =
    "SELECT source, target, width, gain, written FROM exports "
    "WHERE source = ?1 OR (source >= ?2 AND source < ?3)";

std::int64_t now() {
  const auto since = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::seconds>(since).count();
}

std::optional<double> widthOf(const Database::Statement& row) {
  const auto width = row.real(0);
  const bool isOne = width && *width >= 0 && *width <= double{SideGain::kMaxAngle};
  return isOne ? width : std::nullopt;
}

std::optional<FrameRange> loopOf(const Database::Statement& row) {
  const std::int64_t first = row.number(2).value_or(-1);
  const std::int64_t end = row.number(3).value_or(-1);
  if (first < 0 || end <= first) return std::nullopt;
  return FrameRange{static_cast<std::uint64_t>(first), static_cast<std::uint64_t>(end)};
}

// What no dial or slider can be set to was not remembered by this program.
std::optional<RememberedSound> soundOf(const Database::Statement& row) {
  const auto gain = row.number(1);
  const bool isOne = gain && std::abs(static_cast<double>(*gain)) <= GainStage::kMostGain;
  if (!isOne) return std::nullopt;
  return RememberedSound{widthOf(row), *gain, loopOf(row)};
}

}  // namespace

TakeMemory::TakeMemory(fs::path file, std::chrono::milliseconds patience)
    : _file(std::move(file)), _patience(patience) {}

fs::path TakeMemory::defaultPath() {
  return UserFolder::of("XDG_DATA_HOME", ".local/share") / "takes.db";
}

fs::path TakeMemory::damagedPath() const {
  return DamagedFile::placeOf(_file);
}

std::optional<RememberedSound> TakeMemory::find(const std::string& take) {
  std::error_code error;
  if (!fs::exists(_file, error)) return std::nullopt;
  std::optional<RememberedSound> found;
  use([&](Database& database) {
    Database::Statement question(database, kFind);
    question.set(1, take);
    if (question.next()) found = soundOf(question);
    return database.failure().empty();
  });
  return found;
}

bool TakeMemory::remember(const std::string& take, const RememberedSound& sound) {
  std::error_code error;
  fs::create_directories(_file.parent_path(), error);
  return use([&](Database& database) {
    Database::Statement order(database, kRemember);
    order.set(1, take).set(3, sound.gain).set(6, now());
    if (sound.width) order.set(2, *sound.width);
    if (sound.loop) {
      order.set(4, static_cast<std::int64_t>(sound.loop->first));
      order.set(5, static_cast<std::int64_t>(sound.loop->end));
    }
    return order.finish();
  });
}

bool TakeMemory::noteExport(const ExportNote& note) {
  std::error_code error;
  fs::create_directories(_file.parent_path(), error);
  return use([&](Database& database) {
    Database::Statement others(database, kForgetOthers);
    others.set(1, note.target.native()).set(2, note.source.native());
    if (!others.finish()) return false;
    Database::Statement order(database, kNote);
    order.set(1, note.source.native()).set(2, note.target.native()).set(5, note.written);
    if (note.width) order.set(3, *note.width);
    if (note.gain) order.set(4, *note.gain);
    return order.finish();
  });
}

// A file of the version before has none, and where it cannot be written to it stays so. What is in
// a folder begins with its name and a slash, and comes before its name and the sign after the
// slash.
std::vector<ExportNote> TakeMemory::exportsOf(const fs::path& place) {
  const std::string first = (place / "").native();
  std::string end = first;
  ++end.back();
  std::error_code error;
  std::vector<ExportNote> found;
  if (!fs::exists(_file, error)) return found;
  use([&](Database& database) {
    if (database.isReadOnly() && database.number("PRAGMA user_version") < 2) return true;
    Database::Statement question(database, kExports);
    question.set(1, place.native()).set(2, first).set(3, end);
    while (question.next()) {
      found.push_back({question.text(0), question.text(1), question.real(2), question.real(3),
                       question.number(4).value_or(0)});
    }
    return database.failure().empty();
  });
  return found;
}

// A second time with a new file where the first one was damaged.
bool TakeMemory::use(const Work& work) {
  End end = tryOnce(work);
  if (end == End::Damaged && setAside()) end = tryOnce(work);
  if (end == End::Damaged && _trouble == Trouble::None) {
    _trouble = Trouble::OutOfReach;
    _failure = fmt::format("{}: is damaged and cannot be set aside", _file.native());
  }
  return end == End::Done;
}

TakeMemory::End TakeMemory::tryOnce(const Work& work) {
  return tryFor(_hasWaitedInVain ? std::chrono::milliseconds(0) : _patience, work);
}

TakeMemory::End TakeMemory::tryFor(std::chrono::milliseconds patience, const Work& work) {
  const auto began = std::chrono::steady_clock::now();
  const UseLock lock(_file, UseLock::Kind::Shared, patience);
  Database database(_file, Database::Access::Write, patience);
  const End end = useOpened(database, work);
  const bool hasWaited = std::chrono::steady_clock::now() - began >= patience;
  _hasWaitedInVain = end == End::Failed && database.isBusy() && hasWaited;
  if (end != End::Failed || !database.isOutOfReach()) return end;
  const std::string why = _failure;
  Database frozen(_file, Database::Access::Frozen, patience);
  const End last = useOpened(frozen, work);
  if (last == End::Failed) _failure = why;  // more than that nothing is written to a frozen one
  return last;
}

TakeMemory::End TakeMemory::useOpened(Database& database, const Work& work) {
  const End end = look(database);
  if (end != End::Done) return end;
  const bool isOlder = database.number("PRAGMA user_version") < kVersion;
  if (isOlder && !database.isReadOnly() && !bringUp(database)) return fail(database);
  return work(database) ? End::Done : fail(database);
}

// Through all of it once: that takes longer than what is asked for.
TakeMemory::End TakeMemory::look(Database& database) {
  const auto version = database.number("PRAGMA user_version");
  if (!version) return fail(database);
  if (*version < 0) return End::Damaged;
  if (*version > kVersion) {
    database.leaveAlone();
    _trouble = Trouble::Newer;
    return End::Failed;
  }
  _isChecked = _isChecked ||
               (database.isWhole() && database.run(kProbes.at(static_cast<std::size_t>(*version))));
  return _isChecked ? End::Done : fail(database);
}

// Another program may have been quicker.
bool TakeMemory::bringUp(Database& database) {
  if (!database.writeAhead() || !database.run("BEGIN IMMEDIATE")) return false;
  const auto from = database.number("PRAGMA user_version");
  if (!from || *from < 0) return false;
  for (auto step = static_cast<std::size_t>(*from); step < kSteps.size(); ++step) {
    if (!database.run(kSteps[step])) return false;
  }
  if (*from >= kVersion) return database.run("ROLLBACK");
  return database.run(fmt::format("PRAGMA user_version = {}; COMMIT", kVersion).c_str());
}

// Nobody has it open then, so that nobody writes into one under another's name. Who was quicker has
// set it aside already.
bool TakeMemory::setAside() {
  const UseLock lock(_file, UseLock::Kind::Alone, _patience);
  if (!lock.isHeld()) return false;
  _isChecked = false;
  {
    Database database(_file, Database::Access::Write, _patience);
    const End end = look(database);
    if (end != End::Damaged) return end == End::Done;
  }
  if (!DamagedFile::setAside(_file, {"-wal", "-shm"})) return false;
  _trouble = Trouble::SetAside;
  return true;
}

TakeMemory::End TakeMemory::fail(const Database& database) {
  if (database.isDamaged()) return End::Damaged;
  _failure = fmt::format("{}: {}", _file.native(), database.failure());
  if (_trouble == Trouble::None) _trouble = Trouble::OutOfReach;
  return End::Failed;
}
