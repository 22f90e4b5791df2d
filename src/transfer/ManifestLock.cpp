// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ManifestLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <thread>

#include "transfer/ManifestFolder.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kAgain{5};

// Whether somebody else's lock is in the way; where there are no locks, none is.
bool isRefused(int folder, int kind) {
  return flock(folder, kind | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

ManifestLock::ManifestLock(const std::filesystem::path& folder, Kind kind,
                           std::chrono::milliseconds patience)
    : _manifests(folder / ManifestFolder::kName), _kind(kind) {
  std::error_code error;
  if (kind == Kind::Copy) std::filesystem::create_directories(_manifests, error);
  _folder = open(_manifests.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (_folder < 0) return;
  kind == Kind::Copy ? waitAlone(patience) : lookAmongChecks();
}

void ManifestLock::lookAmongChecks() {
  _other = tryAmongChecks();
}

void ManifestLock::waitAlone(std::chrono::milliseconds patience) {
  const auto end = Clock::now() + patience;
  for (_other = tryAlone(); _other == Other::Check && Clock::now() < end; _other = tryAlone()) {
    std::this_thread::sleep_for(kAgain);
  }
  struct stat status {};
  // Whoever had it may have taken the folder away between the two.
  const bool isGone = fstat(_folder, &status) == 0 && status.st_nlink == 0;
  if (_other == Other::Nobody && isGone) _other = Other::Copy;
}

// Where checks have it, one more may; none is left behind, as two copies would wait for each other.
ManifestLock::Other ManifestLock::tryAlone() const {
  if (!isRefused(_folder, LOCK_EX)) return Other::Nobody;
  if (tryAmongChecks() != Other::Nobody) return Other::Copy;
  flock(_folder, LOCK_UN);
  return Other::Check;
}

ManifestLock::Other ManifestLock::tryAmongChecks() const {
  return isRefused(_folder, LOCK_SH) ? Other::Copy : Other::Nobody;
}

ManifestLock::~ManifestLock() {
  if (_folder < 0) return;
  if (_kind == Kind::Copy && _other == Other::Nobody) rmdir(_manifests.c_str());
  close(_folder);
}
