// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "ReadMeter.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>

namespace {

std::atomic<std::uint64_t> readCount{0};
std::atomic<std::uint64_t> byteCount{0};

}  // namespace

void ReadMeter::reset() {
  readCount = byteCount = 0;
}

std::uint64_t ReadMeter::reads() {
  return readCount;
}

std::uint64_t ReadMeter::bytes() {
  return byteCount;
}

// Offsets have 64 bits everywhere here, so `pread` is this too.
extern "C" ssize_t pread64(int file, void* to, size_t count, off64_t offset) {
  const ssize_t got = syscall(SYS_pread64, file, to, count, offset);
  ++readCount;
  if (got > 0) byteCount += static_cast<std::uint64_t>(got);
  return got;
}
