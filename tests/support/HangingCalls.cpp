// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// A medium that does not answer: a library that is preloaded before the C library and has calls
// about what lies under one folder hang for half a minute, one kind of call or several.
//
// MIXDECK_HANG_FOLDER names the folder, MIXDECK_HANG_BOARD a file of at least one page that the
// test and the program map: what is to hang, and what was seen. See hanging.py for its layout.
// Beside that the board tells how long the main thread was away from its event loop at most.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string_view>

// The C library has no header for them.
extern "C" {
int __open_2(const char* path, int flags);
int __open64_2(const char* path, int flags);
int __openat_2(int at, const char* path, int flags);
int __openat64_2(int at, const char* path, int flags);
ssize_t __read_chk(int file, void* to, size_t count, size_t room);
ssize_t __pread_chk(int file, void* to, size_t count, off_t at, size_t room);
ssize_t __pread64_chk(int file, void* to, size_t count, off64_t at, size_t room);
ssize_t __readlink_chk(const char* path, char* to, size_t size, size_t room);
ssize_t __readlinkat_chk(int at, const char* path, char* to, size_t size, size_t room);
char* __realpath_chk(const char* path, char* to, size_t room);
int __poll_chk(pollfd* files, nfds_t count, int timeout, size_t room);
int __ppoll_chk(pollfd* files, nfds_t count, const timespec* timeout, const sigset_t* mask,
                size_t room);
}

namespace {

enum Kind { Open, Read, Write, Stat, Space, List, Rename, Sync, Lock, Close, Attribute };
constexpr std::size_t kKinds = Attribute + 1;

constexpr std::int64_t kHang = 30'000'000'000;  // ns
constexpr std::int64_t kLook = 5'000'000;
constexpr std::size_t kPath = 256;

/// What both sides map; little-endian, as is.
struct Board {
  std::array<std::atomic<std::uint32_t>, kKinds> isHanging;  ///< the test's
  std::array<std::atomic<std::uint32_t>, kKinds> calls;      ///< that hung
  std::array<std::atomic<std::uint32_t>, kKinds> mainCalls;  ///< of these, on the main thread
  std::atomic<std::uint64_t> longestRound;                   ///< ns; the test sets it to 0
  std::array<char, kPath> lastMain;                          ///< what the main thread asked for
};

std::int64_t now() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

bool isMainThread() {
  return syscall(SYS_gettid) == getpid();
}

Board* mapBoard() {
  const char* const path = std::getenv("MIXDECK_HANG_BOARD");
  if (path == nullptr || std::getenv("MIXDECK_HANG_FOLDER") == nullptr) return nullptr;
  const auto file = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC));
  if (file < 0) return nullptr;
  void* const at = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  syscall(SYS_close, file);
  return at == MAP_FAILED ? nullptr : static_cast<Board*>(at);
}

Board* board() {
  static Board* const kBoard = mapBoard();
  return kBoard;
}

std::string_view folder() {
  static const char* const kFolder = std::getenv("MIXDECK_HANG_FOLDER");
  return kFolder == nullptr ? std::string_view() : kFolder;
}

bool isUnder(std::string_view path) {
  const std::string_view root = folder();
  if (root.empty() || !path.starts_with(root)) return false;
  return path.size() == root.size() || path[root.size()] == '/';
}

void note(Board& all, Kind kind, std::string_view path) {
  if (isMainThread()) {
    const std::size_t count = std::min(path.size(), kPath - 1);
    std::memcpy(all.lastMain.data(), path.data(), count);
    all.lastMain[count] = '\0';
    ++all.mainCalls[kind];
  }
  ++all.calls[kind];  // last: who sees it sees the rest
}

void hang(Kind kind, std::string_view path) {
  Board* const all = board();
  if (all == nullptr || all->isHanging[kind] == 0 || !isUnder(path)) return;
  note(*all, kind, path);
  const std::int64_t end = now() + kHang;
  const timespec look{0, kLook};
  while (all->isHanging[kind] != 0 && now() < end) syscall(SYS_nanosleep, &look, nullptr);
}

void hang(Kind kind, const char* path) {
  if (path != nullptr) hang(kind, std::string_view(path));
}

void hang(Kind kind, int file) {
  Board* const all = board();
  if (all == nullptr || all->isHanging[kind] == 0) return;
  std::array<char, 64> link{};
  std::array<char, 4096> path{};
  std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
  const long length = syscall(SYS_readlinkat, AT_FDCWD, link.data(), path.data(), path.size());
  if (length > 0) hang(kind, std::string_view(path.data(), static_cast<std::size_t>(length)));
}

// What is meant by a path beside a descriptor.
void hangAt(Kind kind, int at, const char* path) {
  if (path == nullptr || *path == '\0') return hang(kind, at);
  if (*path == '/') return hang(kind, path);
  if (at != AT_FDCWD) hang(kind, at);
}

std::int64_t roundBegan = 0;  // the main thread's; 0: not yet

void endRound() {
  Board* const all = board();
  if (all == nullptr || roundBegan == 0 || !isMainThread()) return;
  const auto took = static_cast<std::uint64_t>(now() - roundBegan);
  if (took > all->longestRound) all->longestRound = took;
}

void beginRound() {
  if (board() != nullptr && isMainThread()) roundBegan = now();
}

bool locks(int command) {
  constexpr std::array<int, 6> kLocks = {F_SETLK,     F_SETLKW,     F_GETLK,
                                         F_OFD_SETLK, F_OFD_SETLKW, F_OFD_GETLK};
  return std::ranges::find(kLocks, command) != kLocks.end();
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// NOLINTBEGIN
#define NEXT(name) static const auto kReal = next<decltype(&name)>(#name)

extern "C" {

int poll(pollfd* files, nfds_t count, int timeout) {
  NEXT(poll);
  endRound();
  const int result = kReal(files, count, timeout);
  const int error = errno;
  beginRound();
  errno = error;
  return result;
}
int ppoll(pollfd* files, nfds_t count, const timespec* timeout, const sigset_t* mask) {
  NEXT(ppoll);
  endRound();
  const int result = kReal(files, count, timeout, mask);
  const int error = errno;
  beginRound();
  errno = error;
  return result;
}

int __poll_chk(pollfd* files, nfds_t count, int timeout, size_t /*room*/) {
  return poll(files, count, timeout);
}
int __ppoll_chk(pollfd* files, nfds_t count, const timespec* timeout, const sigset_t* mask,
                size_t /*room*/) {
  return ppoll(files, count, timeout, mask);
}

#define OPENS(name)                                                                 \
  int name(const char* path, int flags, ...) {                                      \
    NEXT(name);                                                                     \
    va_list more;                                                                   \
    va_start(more, flags);                                                          \
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0; \
    va_end(more);                                                                   \
    hang(Open, path);                                                               \
    return kReal(path, flags, mode);                                                \
  }
OPENS(open)
OPENS(open64)

// What a program calls that was built with the C library's checks.
#define OPENS_CHECKED(name)               \
  int name(const char* path, int flags) { \
    NEXT(name);                           \
    hang(Open, path);                     \
    return kReal(path, flags);            \
  }
OPENS_CHECKED(__open_2)
OPENS_CHECKED(__open64_2)

#define OPENS_AT(name)                                                              \
  int name(int at, const char* path, int flags, ...) {                              \
    NEXT(name);                                                                     \
    va_list more;                                                                   \
    va_start(more, flags);                                                          \
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0; \
    va_end(more);                                                                   \
    hangAt(Open, at, path);                                                         \
    return kReal(at, path, flags, mode);                                            \
  }
OPENS_AT(openat)
OPENS_AT(openat64)

#define OPENS_AT_CHECKED(name)                    \
  int name(int at, const char* path, int flags) { \
    NEXT(name);                                   \
    hangAt(Open, at, path);                       \
    return kReal(at, path, flags);                \
  }
OPENS_AT_CHECKED(__openat_2)
OPENS_AT_CHECKED(__openat64_2)

#define HANGS(kind, result, name, parameters, what, arguments) \
  result name parameters {                                     \
    NEXT(name);                                                \
    hang(kind, what);                                          \
    return kReal arguments;                                    \
  }
#define HANGS_AT(kind, result, name, parameters, at, path, arguments) \
  result name parameters {                                            \
    NEXT(name);                                                       \
    hangAt(kind, at, path);                                           \
    return kReal arguments;                                           \
  }

HANGS(Open, FILE*, fopen, (const char* path, const char* mode), path, (path, mode))
HANGS(Open, FILE*, fopen64, (const char* path, const char* mode), path, (path, mode))
HANGS(Open, int, mkstemp, (char* path), path, (path))
HANGS(Open, int, mkstemp64, (char* path), path, (path))
HANGS(Open, int, mkostemp, (char* path, int flags), path, (path, flags))
HANGS(Open, int, mkostemp64, (char* path, int flags), path, (path, flags))
HANGS(Open, int, mkdir, (const char* path, mode_t mode), path, (path, mode))

HANGS(Read, ssize_t, read, (int file, void* to, size_t count), file, (file, to, count))
HANGS(Read, ssize_t, pread, (int file, void* to, size_t count, off_t at), file,
      (file, to, count, at))
HANGS(Read, ssize_t, pread64, (int file, void* to, size_t count, off64_t at), file,
      (file, to, count, at))
HANGS(Read, ssize_t, readv, (int file, const iovec* to, int count), file, (file, to, count))

HANGS(Read, ssize_t, __read_chk, (int file, void* to, size_t count, size_t room), file,
      (file, to, count, room))
HANGS(Read, ssize_t, __pread_chk, (int file, void* to, size_t count, off_t at, size_t room), file,
      (file, to, count, at, room))
HANGS(Read, ssize_t, __pread64_chk, (int file, void* to, size_t count, off64_t at, size_t room),
      file, (file, to, count, at, room))

HANGS(Write, ssize_t, write, (int file, const void* from, size_t count), file, (file, from, count))
HANGS(Write, ssize_t, pwrite, (int file, const void* from, size_t count, off_t at), file,
      (file, from, count, at))
HANGS(Write, ssize_t, pwrite64, (int file, const void* from, size_t count, off64_t at), file,
      (file, from, count, at))
HANGS(Write, int, ftruncate, (int file, off_t size), file, (file, size))
HANGS(Write, int, ftruncate64, (int file, off64_t size), file, (file, size))
HANGS(Write, int, fallocate, (int file, int mode, off_t at, off_t size), file,
      (file, mode, at, size))
HANGS(Write, int, fallocate64, (int file, int mode, off64_t at, off64_t size), file,
      (file, mode, at, size))

HANGS(Stat, int, stat, (const char* path, struct stat* to), path, (path, to))
HANGS(Stat, int, stat64, (const char* path, struct stat64* to), path, (path, to))
HANGS(Stat, int, lstat, (const char* path, struct stat* to), path, (path, to))
HANGS(Stat, int, lstat64, (const char* path, struct stat64* to), path, (path, to))
HANGS(Stat, int, fstat, (int file, struct stat* to), file, (file, to))
HANGS(Stat, int, fstat64, (int file, struct stat64* to), file, (file, to))
HANGS_AT(Stat, int, fstatat, (int at, const char* path, struct stat* to, int flags), at, path,
         (at, path, to, flags))
HANGS_AT(Stat, int, fstatat64, (int at, const char* path, struct stat64* to, int flags), at, path,
         (at, path, to, flags))
HANGS_AT(Stat, int, statx, (int at, const char* path, int flags, unsigned mask, struct statx* to),
         at, path, (at, path, flags, mask, to))
HANGS(Stat, int, access, (const char* path, int mode), path, (path, mode))
HANGS(Stat, int, euidaccess, (const char* path, int mode), path, (path, mode))
HANGS_AT(Stat, int, faccessat, (int at, const char* path, int mode, int flags), at, path,
         (at, path, mode, flags))
HANGS(Stat, ssize_t, readlink, (const char* path, char* to, size_t size), path, (path, to, size))
HANGS_AT(Stat, ssize_t, readlinkat, (int at, const char* path, char* to, size_t size), at, path,
         (at, path, to, size))
HANGS(Stat, char*, realpath, (const char* path, char* to), path, (path, to))
HANGS(Stat, ssize_t, __readlink_chk, (const char* path, char* to, size_t size, size_t room), path,
      (path, to, size, room))
HANGS_AT(Stat, ssize_t, __readlinkat_chk,
         (int at, const char* path, char* to, size_t size, size_t room), at, path,
         (at, path, to, size, room))
HANGS(Stat, char*, __realpath_chk, (const char* path, char* to, size_t room), path,
      (path, to, room))
HANGS(Stat, int, inotify_add_watch, (int watch, const char* path, std::uint32_t mask), path,
      (watch, path, mask))

HANGS(Space, int, statvfs, (const char* path, struct statvfs* to), path, (path, to))
HANGS(Space, int, statvfs64, (const char* path, struct statvfs64* to), path, (path, to))
HANGS(Space, int, fstatvfs, (int file, struct statvfs* to), file, (file, to))
HANGS(Space, int, fstatvfs64, (int file, struct statvfs64* to), file, (file, to))
HANGS(Space, int, statfs, (const char* path, struct statfs* to), path, (path, to))
HANGS(Space, int, statfs64, (const char* path, struct statfs64* to), path, (path, to))
HANGS(Space, int, fstatfs, (int file, struct statfs* to), file, (file, to))
HANGS(Space, int, fstatfs64, (int file, struct statfs64* to), file, (file, to))

HANGS(List, DIR*, opendir, (const char* path), path, (path))
HANGS(List, DIR*, fdopendir, (int file), file, (file))
HANGS(List, dirent*, readdir, (DIR * entries), dirfd(entries), (entries))
HANGS(List, dirent64*, readdir64, (DIR * entries), dirfd(entries), (entries))

HANGS(Rename, int, rename, (const char* from, const char* to), to, (from, to))
HANGS_AT(Rename, int, renameat, (int at, const char* from, int to, const char* name), to, name,
         (at, from, to, name))
HANGS_AT(Rename, int, renameat2,
         (int at, const char* from, int to, const char* name, unsigned flags), to, name,
         (at, from, to, name, flags))
HANGS(Rename, int, link, (const char* from, const char* to), to, (from, to))
HANGS_AT(Rename, int, linkat, (int at, const char* from, int to, const char* name, int flags), to,
         name, (at, from, to, name, flags))
HANGS(Rename, int, unlink, (const char* path), path, (path))
HANGS_AT(Rename, int, unlinkat, (int at, const char* path, int flags), at, path, (at, path, flags))
HANGS(Rename, int, rmdir, (const char* path), path, (path))
HANGS(Rename, int, remove, (const char* path), path, (path))

HANGS(Sync, int, fsync, (int file), file, (file))
HANGS(Sync, int, fdatasync, (int file), file, (file))
HANGS(Sync, int, sync_file_range, (int file, off64_t at, off64_t count, unsigned flags), file,
      (file, at, count, flags))

HANGS(Lock, int, flock, (int file, int how), file, (file, how))
HANGS(Lock, int, lockf, (int file, int how, off_t count), file, (file, how, count))
HANGS(Lock, int, lockf64, (int file, int how, off64_t count), file, (file, how, count))

// What follows is a number or an address, either of which fits.
#define CONTROLS(name)                      \
  int name(int file, int command, ...) {    \
    NEXT(name);                             \
    va_list more;                           \
    va_start(more, command);                \
    void* const what = va_arg(more, void*); \
    va_end(more);                           \
    if (locks(command)) hang(Lock, file);   \
    return kReal(file, command, what);      \
  }
CONTROLS(fcntl)
CONTROLS(fcntl64)

HANGS(Close, int, close, (int file), file, (file))
HANGS(Close, int, closedir, (DIR * entries), dirfd(entries), (entries))
HANGS(Close, int, fclose, (FILE * file), fileno(file), (file))

HANGS(Attribute, int, futimens, (int file, const timespec times[2]), file, (file, times))
HANGS_AT(Attribute, int, utimensat, (int at, const char* path, const timespec times[2], int flags),
         at, path, (at, path, times, flags))
HANGS(Attribute, int, chmod, (const char* path, mode_t mode), path, (path, mode))
HANGS(Attribute, int, fchmod, (int file, mode_t mode), file, (file, mode))
HANGS_AT(Attribute, int, fchmodat, (int at, const char* path, mode_t mode, int flags), at, path,
         (at, path, mode, flags))
HANGS(Attribute, int, chown, (const char* path, uid_t user, gid_t group), path, (path, user, group))
HANGS(Attribute, int, fchown, (int file, uid_t user, gid_t group), file, (file, user, group))
HANGS_AT(Attribute, int, fchownat, (int at, const char* path, uid_t user, gid_t group, int flags),
         at, path, (at, path, user, group, flags))
HANGS(Attribute, int, posix_fadvise, (int file, off_t at, off_t count, int advice), file,
      (file, at, count, advice))
HANGS(Attribute, int, posix_fadvise64, (int file, off64_t at, off64_t count, int advice), file,
      (file, at, count, advice))
}
// NOLINTEND
