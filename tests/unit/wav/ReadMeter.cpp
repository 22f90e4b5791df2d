// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "ReadMeter.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

namespace {

std::atomic<std::uint64_t> readCount{0};
std::atomic<std::uint64_t> byteCount{0};
std::atomic<std::uint64_t> brokenFrom{UINT64_MAX};
std::atomic<bool> isHanging{false};
std::atomic<int> hangingReads{0};

}  // namespace

void ReadMeter::reset() {
  readCount = byteCount = 0;
  brokenFrom = UINT64_MAX;
}

void ReadMeter::breakFrom(std::uint64_t offset) {
  brokenFrom = offset;
}

std::uint64_t ReadMeter::reads() {
  return readCount;
}

std::uint64_t ReadMeter::bytes() {
  return byteCount;
}

void ReadMeter::hang() {
  isHanging = true;
}

void ReadMeter::letGo() {
  isHanging = false;
  isHanging.notify_all();
}

void ReadMeter::waitUntilHanging() {
  hangingReads.wait(0);
}

// Offsets have 64 bits everywhere here, so `pread` is this too.
extern "C" ssize_t pread64(int file, void* to, size_t count, off64_t offset) {
  ++hangingReads;
  hangingReads.notify_all();
  isHanging.wait(true);
  --hangingReads;
  const std::uint64_t whole =
      brokenFrom - std::min<std::uint64_t>(brokenFrom, static_cast<std::uint64_t>(offset));
  if (count > 0 && whole == 0) {
    errno = EIO;
    return -1;
  }
  const std::size_t wanted = std::min<std::uint64_t>(count, whole);
  const ssize_t got = syscall(SYS_pread64, file, to, wanted, offset);
  ++readCount;
  if (got > 0) byteCount += static_cast<std::uint64_t>(got);
  return got;
}
