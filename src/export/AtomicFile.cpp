// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/AtomicFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <mutex>
#include <random>
#include <string_view>
#include <system_error>

#include "export/FolderSync.h"

namespace fs = std::filesystem;

namespace {

constexpr int kMostLinks = 40;
constexpr mode_t kNewFileMode = 0666;  // less the umask
constexpr mode_t kModeBits = 07777;
constexpr uid_t kNobodyElse = static_cast<uid_t>(-1);  // leaves the owner
constexpr std::string_view kLeftoverStart = ".mixdeck-";
constexpr std::string_view kLeftoverEnd = ".part";

fs::path temporaryName(const fs::path& folder) {
  std::random_device device;
  const std::uint64_t number = std::uint64_t{device()} << 32 | device();
  return folder / fmt::format("{}{:016x}{}", kLeftoverStart, number, kLeftoverEnd);
}

bool isTemporaryName(std::string_view name) {
  return name.size() == kLeftoverStart.size() + 16 + kLeftoverEnd.size() &&
         name.starts_with(kLeftoverStart) && name.ends_with(kLeftoverEnd);
}

// Some file systems know no modes or times that can be set, or let only the owner set them.
bool isNotForThisFile(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS;
}

// Gives an unnamed file a name. The /proc way needs no privilege.
int nameFile(int file, const char* procPath, const char* name) {
  if (linkat(AT_FDCWD, procPath, AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0) return 0;
  if (errno != ENOENT) return -1;
  return linkat(file, "", AT_FDCWD, name, AT_EMPTY_PATH);
}

// Makes the name with nothing in it, so that nobody else can have made it, and renames over that.
int renameOverPlaceholder(const char* from, const char* to) {
  const int placeholder = open(to, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kNewFileMode);
  if (placeholder < 0) return -1;
  close(placeholder);
  if (rename(from, to) == 0) return 0;
  const int error = errno;
  unlink(to);
  errno = error;
  return -1;
}

// Renames to a name that is free, at one stroke. Where the kernel or the file system knows no such
// rename, a second link is as good; where there are no links either, a placeholder holds the name.
int renameToFreeName(const char* from, const char* to) {
  if (renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return -1;
  if (link(from, to) == 0) return unlink(from);
  const bool hasLinks = errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS;
  return hasLinks ? -1 : renameOverPlaceholder(from, to);
}

// Some file systems do not tell.
std::uint64_t available(int result, const struct statvfs& room) {
  if (result != 0 || room.f_blocks == 0) return std::numeric_limits<std::uint64_t>::max();
  return std::uint64_t{room.f_bavail} * room.f_frsize;
}

bool writeFully(int file, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t done = ::write(file, bytes.data(), bytes.size());
    if (done < 0 && errno == EINTR) continue;
    if (done < 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(done));
  }
  return true;
}

bool writeFullyAt(int file, std::span<const std::byte> bytes, std::uint64_t offset) {
  while (!bytes.empty()) {
    const ssize_t done = pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (done < 0 && errno == EINTR) continue;
    if (done < 0) return false;
    offset += static_cast<std::uint64_t>(done);
    bytes = bytes.subspan(static_cast<std::size_t>(done));
  }
  return true;
}

}  // namespace

fs::path AtomicFile::resolveLinks(fs::path path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
    const fs::path to = fs::read_symlink(path, error);
    path = to.is_absolute() ? to : path.parent_path() / to;
  }
  return path;
}

AtomicFile::AtomicFile(const Place& place)
    : _target(resolveLinks(place.target)),
      _folder(_target.has_parent_path() ? _target.parent_path() : fs::path(".")),
      _mayReplace(place.mayReplace) {}

AtomicFile::AtomicFile(const fs::path& target, Existing existing)
    : AtomicFile(Place{target, existing == Existing::Replace}) {
  if (!examineTarget()) return;
  if (!openUnnamed() && _failure.empty()) openNamed();
  if (_file >= 0 && _replaces) takeOverAttributes();
}

AtomicFile::~AtomicFile() {
  discard();
}

bool AtomicFile::fail(int error) {
  if (!_failure.empty()) return false;
  _failure = std::generic_category().message(error);
  _error = error;
  return false;
}

bool AtomicFile::examineTarget() {
  struct stat status {};
  if (!_target.has_filename()) return fail(EISDIR);
  if (lstat(_target.c_str(), &status) != 0) return errno == ENOENT || fail(errno);
  if (S_ISDIR(status.st_mode)) return fail(EISDIR);
  if (S_ISLNK(status.st_mode)) return fail(ELOOP);
  if (!_mayReplace) return fail(EEXIST);
  if (!S_ISREG(status.st_mode)) {
    _failure = "Not a regular file";
    return false;
  }
  _replaces = true;
  return faccessat(AT_FDCWD, _target.c_str(), W_OK, AT_EACCESS) == 0 || fail(errno);
}

bool AtomicFile::examineFolder() {
  struct stat status {};
  if (stat(_folder.c_str(), &status) != 0) return fail(errno);
  if (!S_ISDIR(status.st_mode)) return fail(ENOTDIR);
  return faccessat(AT_FDCWD, _folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0 || fail(errno);
}

std::string AtomicFile::whyNot(const fs::path& target, Existing existing, std::uint64_t bytes) {
  AtomicFile file(Place{target, existing == Existing::Replace});
  struct statvfs room {};
  if (file.examineTarget() && file.examineFolder()) {
    if (bytes > available(statvfs(file._folder.c_str(), &room), room)) file.fail(ENOSPC);
  }
  return file.failure();
}

bool AtomicFile::openUnnamed() {
  _file = open(_folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kNewFileMode);
  if (_file >= 0) return true;
  const bool unsupported = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL;
  return unsupported ? false : fail(errno);
}

bool AtomicFile::openNamed() {
  removeLeftovers();
  for (int attempt = 0; attempt < 100; ++attempt) {
    if (createNamed() || !_failure.empty()) break;
  }
  return _file >= 0 || fail(EEXIST);
}

// The lock tells others that the file is in use. One of them may have taken it for a leftover
// before it was locked: then it has the lock, or there is no name any more, and another attempt is
// made. Where files cannot be locked nobody takes any away.
bool AtomicFile::createNamed() {
  _temporary = temporaryName(_folder);
  _file = open(_temporary.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kNewFileMode);
  if (_file < 0) return errno == EEXIST ? false : fail(errno);
  const bool isTaken = flock(_file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  struct stat status {};  // of the name: some file systems count no links
  if (!isTaken && lstat(_temporary.c_str(), &status) == 0) return true;
  if (isTaken) unlink(_temporary.c_str());
  close(_file);
  _file = -1;
  return false;
}

void AtomicFile::removeLeftovers() {
  std::error_code error;
  for (fs::directory_iterator entry(_folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (!isTemporaryName(entry->path().filename().native())) continue;
    const int leftover = open(entry->path().c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
    if (leftover < 0) continue;
    if (flock(leftover, LOCK_EX | LOCK_NB) == 0) unlink(entry->path().c_str());
    close(leftover);
  }
}

bool AtomicFile::takeOverAttributes() {
  struct stat status {};
  if (stat(_target.c_str(), &status) != 0) return fail(errno);
  // Only root may give files away; for others the file stays theirs, as with any editor, but its
  // group may be any of theirs.
  const bool isGiven = fchown(_file, status.st_uid, status.st_gid) == 0;
  if (!isGiven && fchown(_file, kNobodyElse, status.st_gid) != 0) errno = 0;
  const bool isSet = fchmod(_file, status.st_mode & kModeBits) == 0;
  return isSet || isNotForThisFile(errno) || fail(errno);
}

bool AtomicFile::hasRoomFor(std::uint64_t bytes) {
  struct statvfs room {};
  return _file < 0 || bytes <= available(fstatvfs(_file, &room), room) || fail(ENOSPC);
}

// Only where files can be unnamed: such file systems set room aside without writing to it, and what
// is not filled goes with the file. FAT would be left with lost clusters by a power cut. What two
// have of a full disk before both are refused would be enough for one: whoever is refused tries
// again while nobody else does.
void AtomicFile::expect(std::uint64_t bytes) {
  static std::mutex oneAtATime;
  if (_file < 0 || !_temporary.empty()) return;
  const auto setAside = [&] {
    return fallocate(_file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(bytes)) == 0;
  };
  if (setAside() || errno != ENOSPC) return;
  const std::lock_guard lock(oneAtATime);
  setAside();
}

bool AtomicFile::write(std::span<const std::byte> bytes) {
  if (!_failure.empty()) return false;
  return writeFully(_file, bytes) || fail(errno);
}

bool AtomicFile::writeAt(std::uint64_t offset, std::span<const std::byte> bytes) {
  if (!_failure.empty()) return false;
  return writeFullyAt(_file, bytes, offset) || fail(errno);
}

void AtomicFile::beginSync() {
  if (_failure.empty()) sync_file_range(_file, 0, 0, SYNC_FILE_RANGE_WRITE);
}

bool AtomicFile::sync() {
  return _failure.empty() && (fsync(_file) == 0 || fail(errno));
}

bool AtomicFile::setModified(const timespec& time) {
  const timespec accessed{0, UTIME_NOW};
  const std::array<timespec, 2> times{accessed, time};
  if (!_failure.empty()) return false;
  const bool isSet = futimens(_file, times.data()) == 0;
  return isSet || isNotForThisFile(errno) || fail(errno);
}

fs::path AtomicFile::readablePath() const {
  return fmt::format("/proc/self/fd/{}", _file);
}

// Some file systems tell of failed writes only when a descriptor is closed; a replaced file's
// successor has to be on the disk before the old one goes.
bool AtomicFile::flush() {
  const int copy = dup(_file);
  if (copy < 0 || close(copy) != 0) return fail(errno);
  return !_replaces || fsync(_file) == 0 || fail(errno);
}

bool AtomicFile::publishUnnamed() {
  const std::string procPath = fmt::format("/proc/self/fd/{}", _file);
  if (!_replaces && nameFile(_file, procPath.c_str(), _target.c_str()) == 0) return true;
  if (!_replaces && (errno != EEXIST || !_mayReplace)) return fail(errno);
  _replaces = true;
  if (!flush()) return false;
  removeLeftovers();
  flock(_file, LOCK_EX | LOCK_NB);
  const fs::path temporary = temporaryName(_folder);
  if (nameFile(_file, procPath.c_str(), temporary.c_str()) != 0) return fail(errno);
  _temporary = temporary;
  return replace();
}

// Without a journal, as on FAT, a file's room is free as soon as nobody knows it, while its name
// may still stand on the disk. So the old file is held until the new name is there.
bool AtomicFile::replace() {
  const int old = open(_target.c_str(), O_PATH | O_CLOEXEC | O_NOFOLLOW);
  const bool isRenamed = rename(_temporary.c_str(), _target.c_str()) == 0 || fail(errno);
  if (isRenamed) _temporary.clear();
  bool isKept = isRenamed && (fsync(_file) == 0 || fail(errno));
  if (isKept) {
    const std::error_code error = FolderSync::of(_folder);
    isKept = !error || fail(error.value());
  }
  if (old >= 0) close(old);
  return isKept;
}

bool AtomicFile::publishNamed() {
  if (_replaces) return replace();
  if (renameToFreeName(_temporary.c_str(), _target.c_str()) == 0) {
    _temporary.clear();
    return true;
  }
  if (errno != EEXIST || !_mayReplace) return fail(errno);
  _replaces = true;
  return flush() && replace();
}

bool AtomicFile::commit() {
  if (!_failure.empty() || !flush()) return false;
  const bool published = _temporary.empty() ? publishUnnamed() : publishNamed();
  discard();
  return published;
}

void AtomicFile::discard() {
  if (!_temporary.empty()) unlink(_temporary.c_str());
  _temporary.clear();
  if (_file >= 0) close(_file);
  _file = -1;
}
