// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// The C library has each of these calls under two names; one may not stand for the other here.
#undef _FILE_OFFSET_BITS

#include "support/DiskLog.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace {

using Kind = DiskCall::Kind;

struct Head {
  Kind kind;
  std::uint32_t nameSize;
  std::uint32_t newNameSize;
  std::uint32_t bytesSize;
  std::uint64_t file;
  std::uint64_t offset;
};

int logFile = -1;  // a child writes on at the same offset
int syncsToFail = 0;
int syncError = 0;

template <typename Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

std::uint64_t fileOf(int file) {
  struct stat status {};
  const bool isOnDisk =
      fstat(file, &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
  return isOnDisk ? status.st_ino : 0;
}

std::uint64_t fileNamed(const char* path) {
  struct stat status {};
  return lstat(path, &status) == 0 ? status.st_ino : 0;
}

std::string lastPart(const char* path) {
  const std::string_view whole(path);
  return std::string(whole.substr(whole.rfind('/') + 1));
}

void put(const void* bytes, std::size_t size) {
  // Past our own `write`; a log that is cut short would make a test pass that should not.
  if (syscall(SYS_write, logFile, bytes, size) != static_cast<long>(size)) std::abort();
}

void note(const DiskCall& call, const void* bytes = nullptr, std::size_t size = 0) {
  if (logFile < 0) return;
  const Head head{call.kind,
                  static_cast<std::uint32_t>(call.name.size()),
                  static_cast<std::uint32_t>(call.newName.size()),
                  static_cast<std::uint32_t>(size),
                  call.file,
                  call.offset};
  std::string record(reinterpret_cast<const char*>(&head), sizeof head);
  record += call.name + call.newName;
  record.append(static_cast<const char*>(bytes), size);
  put(record.data(), record.size());
}

// What an `open` of any kind brought.
int noteOpened(int file, const char* path, bool isMade) {
  const std::uint64_t number = logFile < 0 || file < 0 ? 0 : fileOf(file);
  if (number == 0) return file;
  if (isMade) note({.kind = Kind::Name, .file = number, .name = lastPart(path)});
  note({.kind = Kind::Open, .file = number});
  return file;
}

ssize_t noteWritten(int file, const void* bytes, ssize_t size, off_t offset) {
  const std::uint64_t number = logFile < 0 || size <= 0 ? 0 : fileOf(file);
  if (number == 0) return size;
  note({.kind = Kind::Write, .file = number, .offset = static_cast<std::uint64_t>(offset)}, bytes,
       static_cast<std::size_t>(size));
  return size;
}

bool isSyncFailing(int file) {
  struct stat status {};
  if (syncsToFail == 0 || fstat(file, &status) != 0 || !S_ISDIR(status.st_mode)) return false;
  --syncsToFail;
  errno = syncError;
  return true;
}

int noteSynced(int file, int result) {
  if (logFile >= 0 && result == 0) note({.kind = Kind::Sync, .file = fileOf(file)});
  return result;
}

int noteAdvised(int file, off_t offset, off_t size, int advice, int result) {
  const bool isDrop = advice == POSIX_FADV_DONTNEED && offset == 0 && size == 0;
  if (logFile >= 0 && isDrop && result == 0) note({.kind = Kind::Drop, .file = fileOf(file)});
  return result;
}

int noteRenamed(const char* from, const char* to, int result) {
  if (logFile >= 0 && result == 0)
    note({.kind = Kind::Rename, .name = lastPart(from), .newName = lastPart(to)});
  return result;
}

int openAndNote(const char* path, int flags, mode_t mode) {
  static const auto kOpen = real<int (*)(const char*, int, ...)>("open");
  const bool isMade = (flags & O_CREAT) != 0 && fileNamed(path) == 0;
  return noteOpened(kOpen(path, flags, mode), path, isMade);
}

mode_t modeIn(int flags, va_list& rest) {
  return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = modeIn(flags, rest);
  va_end(rest);
  return openAndNote(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = modeIn(flags, rest);
  va_end(rest);
  return openAndNote(path, flags, mode);
}

int mkostemp(char* path, int flags) {
  static const auto kReal = real<int (*)(char*, int)>("mkostemp");
  const int file = kReal(path, flags);
  return noteOpened(file, path, true);
}

int mkostemp64(char* path, int flags) {
  return mkostemp(path, flags);
}

int dup(int file) noexcept {
  static const auto kReal = real<int (*)(int)>("dup");
  return noteOpened(kReal(file), "", false);
}

int close(int file) {
  static const auto kReal = real<int (*)(int)>("close");
  const std::uint64_t number = logFile < 0 ? 0 : fileOf(file);
  const int result = kReal(file);
  if (number != 0 && result == 0) note({.kind = Kind::Close, .file = number});
  return result;
}

ssize_t write(int file, const void* bytes, size_t size) {
  static const auto kReal = real<ssize_t (*)(int, const void*, size_t)>("write");
  const off_t offset = logFile < 0 ? 0 : lseek(file, 0, SEEK_CUR);
  return noteWritten(file, bytes, kReal(file, bytes, size), offset);
}

ssize_t pwrite(int file, const void* bytes, size_t size, off_t offset) {
  static const auto kReal = real<ssize_t (*)(int, const void*, size_t, off_t)>("pwrite");
  return noteWritten(file, bytes, kReal(file, bytes, size, offset), offset);
}

ssize_t pwrite64(int file, const void* bytes, size_t size, off64_t offset) {
  return pwrite(file, bytes, size, offset);
}

int fsync(int file) {
  static const auto kReal = real<int (*)(int)>("fsync");
  return isSyncFailing(file) ? -1 : noteSynced(file, kReal(file));
}

int fdatasync(int file) {
  static const auto kReal = real<int (*)(int)>("fdatasync");
  return noteSynced(file, kReal(file));
}

int posix_fadvise(int file, off_t offset, off_t size, int advice) noexcept {
  static const auto kReal = real<int (*)(int, off_t, off_t, int)>("posix_fadvise");
  return noteAdvised(file, offset, size, advice, kReal(file, offset, size, advice));
}

int posix_fadvise64(int file, off64_t offset, off64_t size, int advice) noexcept {
  return posix_fadvise(file, offset, size, advice);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  static const auto kReal = real<int (*)(int, const char*, int, const char*, int)>("linkat");
  const int result = kReal(fromFolder, from, toFolder, to, flags);
  if (logFile >= 0 && result == 0)
    note({.kind = Kind::Name, .file = fileNamed(to), .name = lastPart(to)});
  return result;
}

int link(const char* from, const char* to) noexcept {
  return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int rename(const char* from, const char* to) noexcept {
  static const auto kReal = real<int (*)(const char*, const char*)>("rename");
  return noteRenamed(from, to, kReal(from, to));
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
  static const auto kReal =
      real<int (*)(int, const char*, int, const char*, unsigned)>("renameat2");
  return noteRenamed(from, to, kReal(fromFolder, from, toFolder, to, flags));
}

int unlink(const char* path) noexcept {
  static const auto kReal = real<int (*)(const char*)>("unlink");
  const int result = kReal(path);
  if (logFile >= 0 && result == 0) note({.kind = Kind::Remove, .name = lastPart(path)});
  return result;
}

}  // extern "C"

void DiskLog::start() {
  logFile = memfd_create("disk-log", MFD_CLOEXEC);
  if (logFile < 0) std::abort();
}

void DiskLog::failFolderSyncs(int error, int times) {
  syncError = error;
  syncsToFail = times;
}

std::vector<DiskCall> DiskLog::stop() {
  const int file = logFile;
  logFile = -1;
  std::string text(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
  if (pread(file, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) std::abort();
  close(file);
  std::vector<DiskCall> calls;
  for (std::size_t at = 0; at < text.size();) {
    Head head{};
    std::memcpy(&head, &text[at], sizeof head);
    at += sizeof head;
    DiskCall call{.kind = head.kind, .file = head.file, .offset = head.offset};
    call.name = text.substr(at, head.nameSize);
    call.newName = text.substr(at + head.nameSize, head.newNameSize);
    at += head.nameSize + head.newNameSize;
    const auto* const bytes = reinterpret_cast<const std::byte*>(&text[at]);
    call.bytes.assign(bytes, bytes + head.bytesSize);
    at += head.bytesSize;
    calls.push_back(std::move(call));
  }
  return calls;
}
