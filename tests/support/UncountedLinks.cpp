// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/UncountedLinks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

namespace {

std::atomic<bool> areUncounted{false};

}  // namespace

UncountedLinks::UncountedLinks() {
  areUncounted = true;
}

UncountedLinks::~UncountedLinks() {
  areUncounted = false;
}

// Sizes have 64 bits everywhere here, so `fstat` is this too.
extern "C" int fstat64(int file, struct stat64* to) noexcept {
  const auto result = static_cast<int>(syscall(SYS_newfstatat, file, "", to, AT_EMPTY_PATH));
  if (result == 0 && areUncounted) to->st_nlink = 0;
  return result;
}
