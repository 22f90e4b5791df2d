// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/UseLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace {

constexpr mode_t kPrivate = 0600;
constexpr auto kPoll = std::chrono::milliseconds(2);

int openLock(const std::filesystem::path& file) {
  return open((file.native() + ".lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, kPrivate);
}

}  // namespace

UseLock::UseLock(const std::filesystem::path& file, Kind kind, std::chrono::milliseconds patience)
    : _descriptor(openLock(file)) {
  const int wish = (kind == Kind::Alone ? LOCK_EX : LOCK_SH) | LOCK_NB;
  const auto end = std::chrono::steady_clock::now() + patience;
  while (_descriptor >= 0 && !_isHeld) {
    _isHeld = flock(_descriptor, wish) == 0;
    const bool isTaken = errno == EWOULDBLOCK || errno == EINTR;
    if (_isHeld || !isTaken || std::chrono::steady_clock::now() >= end) return;
    std::this_thread::sleep_for(kPoll);
  }
}

UseLock::~UseLock() {
  if (_descriptor >= 0) close(_descriptor);
}
