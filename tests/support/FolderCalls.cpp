// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/FolderCalls.h"

#include <dirent.h>
#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/statfs.h>

#include <atomic>
#include <string_view>

namespace {

// Never destroyed: calls may come from threads that outlive everything.
std::atomic<const std::string*> watched{nullptr};

FolderCalls::Counts& counts() {
  thread_local FolderCalls::Counts counts;
  return counts;
}

bool isWatched(const char* path) {
  const std::string* const folder = watched;
  return folder != nullptr && std::string_view(path).starts_with(*folder);
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void FolderCalls::watch(const std::string& folder) {
  watched = new std::string(folder);
}

FolderCalls::Counts FolderCalls::here() {
  return counts();
}

// The program, the toolkit and the standard library have names of their own for the same.
#define LOOKS(result, name, parameters, arguments)               \
  result name parameters noexcept {                              \
    static const auto kReal = next<result(*) parameters>(#name); \
    if (isWatched(path)) ++counts().looks;                       \
    return kReal arguments;                                      \
  }

extern "C" {
LOOKS(int, stat, (const char* path, struct stat* to), (path, to))
LOOKS(int, stat64, (const char* path, struct stat64* to), (path, to))
LOOKS(int, lstat, (const char* path, struct stat* to), (path, to))
LOOKS(int, lstat64, (const char* path, struct stat64* to), (path, to))
LOOKS(int, fstatat, (int at, const char* path, struct stat* to, int flags), (at, path, to, flags))
LOOKS(int, fstatat64, (int at, const char* path, struct stat64* to, int flags),
      (at, path, to, flags))
LOOKS(int, statx, (int at, const char* path, int flags, unsigned mask, struct statx* to),
      (at, path, flags, mask, to))
LOOKS(int, statfs, (const char* path, struct statfs* to), (path, to))
LOOKS(int, statfs64, (const char* path, struct statfs64* to), (path, to))

DIR* opendir(const char* path) {
  static const auto kReal = next<DIR* (*)(const char*)>("opendir");
  if (isWatched(path)) ++counts().listings;
  return kReal(path);
}
}
