// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/SlowReads.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kPiece = 1 << 16;
constexpr auto kAnyNumber = std::numeric_limits<std::uint64_t>::max();

struct Medium {
  std::mutex mutex;
  std::string folder;
  std::condition_variable changed;
  std::uint64_t round = 0;           ///< counts the calls that set the medium up
  std::uint64_t share = kAnyNumber;  ///< bytes a thread may have
  bool isShared = false;             ///< `given` counts
  std::uint64_t given = 0;           ///< bytes that all may have
  std::uint64_t taken = 0;           ///< bytes that all have had of them
  std::thread::id privileged;        ///< who is not held to it
  Clock::time_point free;            ///< when the medium has done what was asked of it
  std::atomic<std::uint64_t> rate{0};
  std::atomic<bool> isActive{false};
  std::atomic<bool> isGone{false};
  std::atomic<bool> goesWithFolder{false};
  std::atomic<int> brokenListings{0};
  std::atomic<bool> isPastCacheRefused{false};
  std::atomic<int> refusals{0};
};

// Never destroyed: reads may come from threads that outlive everything.
Medium& medium() {
  static auto* const kOnly = new Medium;
  return *kOnly;
}

const bool kIsPreloaded = [] {
  const char* const folder = std::getenv("MIXDECK_SLOW_FOLDER");
  const char* const rate = std::getenv("MIXDECK_SLOW_RATE");
  if (folder != nullptr && rate != nullptr)
    SlowReads::limit(folder, std::strtoull(rate, nullptr, 10));
  medium().goesWithFolder = std::getenv("MIXDECK_SLOW_GOES_WITH_FOLDER") != nullptr;
  return folder != nullptr;
}();

bool isOnMedium(int file) {
  Medium& all = medium();
  if (!all.isActive) return false;
  std::array<char, 4096> path{};
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  const ssize_t length = readlink(link.c_str(), path.data(), path.size());
  const std::lock_guard lock(all.mutex);
  if (length <= 0) return false;
  const std::string name(path.data(), static_cast<std::size_t>(length));
  return (name + "/").starts_with(all.folder + "/");
}

// What this thread has read, and in which round.
struct Account {
  std::uint64_t round = 0;
  std::uint64_t taken = 0;
};

Account& account() {
  thread_local Account account;
  if (account.round != medium().round) account = {medium().round, 0};
  return account;
}

void waitForShare(std::size_t bytes) {
  Medium& all = medium();
  std::unique_lock lock(all.mutex);
  const std::uint64_t taken = account().taken += bytes;
  if (all.share == kAnyNumber || all.privileged == std::this_thread::get_id()) return;
  const auto mayGoOn = [&, round = all.round] {
    return taken <= all.share || all.round != round || all.isGone || !all.isActive;
  };
  all.changed.wait(lock, mayGoOn);
}

void waitForGift(std::size_t bytes) {
  Medium& all = medium();
  std::unique_lock lock(all.mutex);
  if (!all.isShared || all.privileged == std::this_thread::get_id()) return;
  all.taken += bytes;
  const auto mayGoOn = [&, mark = all.taken] {
    return !all.isShared || mark <= all.given || all.isGone || !all.isActive;
  };
  all.changed.wait(lock, mayGoOn);
}

void waitFor(std::size_t bytes) {
  Medium& all = medium();
  waitForShare(bytes);
  waitForGift(bytes);
  if (all.rate == 0) return;
  Clock::time_point done;
  {
    const std::lock_guard lock(all.mutex);
    const std::chrono::duration<double> taken(static_cast<double>(bytes) /
                                              static_cast<double>(all.rate));
    all.free =
        std::max(all.free, Clock::now()) + std::chrono::duration_cast<Clock::duration>(taken);
    done = all.free;
  }
  std::this_thread::sleep_until(done);
}

bool isRefused(int file) {
  if (!medium().isPastCacheRefused || (fcntl(file, F_GETFL) & O_DIRECT) == 0) return false;
  ++medium().refusals;
  return true;
}

bool isPulledOut() {
  Medium& all = medium();
  if (all.isGone || !all.goesWithFolder) return all.isGone;
  const std::lock_guard lock(all.mutex);
  return access(all.folder.c_str(), F_OK) != 0;
}

// Piece by piece, so that readers take turns as at a real medium.
template <class Real>
ssize_t slowly(int file, std::byte* to, std::size_t count, Real real) {
  if (!isOnMedium(file)) return real(to, count, 0);
  std::size_t done = 0;
  if (isRefused(file)) {
    errno = EINVAL;
    return -1;
  }
  while (done < count) {
    if (isPulledOut()) {
      errno = EIO;
      return -1;
    }
    const ssize_t got = real(to + done, std::min(kPiece, count - done), done);
    if (got <= 0) return done > 0 ? static_cast<ssize_t>(done) : got;
    waitFor(static_cast<std::size_t>(got));
    done += static_cast<std::size_t>(got);
  }
  return static_cast<ssize_t>(done);
}

void setUp(const std::string& folder, std::uint64_t rate, std::uint64_t share) {
  Medium& all = medium();
  const std::lock_guard lock(all.mutex);
  all.folder = folder;
  all.free = Clock::now();
  all.rate = rate;
  all.share = share;
  all.isShared = false;
  all.given = all.taken = 0;
  all.privileged = std::this_thread::get_id();
  all.isGone = false;
  all.brokenListings = 0;
  all.isPastCacheRefused = false;
  all.refusals = 0;
  all.isActive = true;
  ++all.round;
  all.changed.notify_all();
}

// Whether this step of a listing is one that fails.
bool isBroken(DIR* folder) {
  std::atomic<int>& broken = medium().brokenListings;
  if (broken == 0 || !isOnMedium(dirfd(folder))) return false;
  --broken;
  errno = EIO;
  return true;
}

template <class Function>
Function next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void SlowReads::limit(const std::string& folder, std::uint64_t bytesPerSecond) {
  setUp(folder, bytesPerSecond, kAnyNumber);
}

void SlowReads::share(const std::string& folder, std::uint64_t bytesPerThread) {
  setUp(folder, 0, bytesPerThread);
}

void SlowReads::give(const std::string& folder, std::uint64_t bytes) {
  Medium& all = medium();
  if (!all.isShared) setUp(folder, 0, kAnyNumber);
  const std::lock_guard lock(all.mutex);
  all.isShared = true;
  all.given += bytes;
  all.changed.notify_all();
}

std::uint64_t SlowReads::takenHere() {
  const std::lock_guard lock(medium().mutex);
  return account().taken;
}

void SlowReads::pullOut() {
  const std::lock_guard lock(medium().mutex);
  medium().isGone = true;
  medium().changed.notify_all();
}

void SlowReads::breakListings(int times) {
  medium().brokenListings = times;
}

void SlowReads::refusePastCache(const std::string& folder) {
  setUp(folder, 0, kAnyNumber);
  medium().isPastCacheRefused = true;
}

int SlowReads::refusals() {
  return medium().refusals;
}

void SlowReads::reset() {
  const std::lock_guard lock(medium().mutex);
  medium().isActive = false;
  medium().isShared = false;
  medium().changed.notify_all();
}

extern "C" {

struct dirent64* readdir64(DIR* folder) {
  static const auto kReal = next<struct dirent64* (*)(DIR*)>("readdir64");
  return isBroken(folder) ? nullptr : kReal(folder);
}

ssize_t read(int file, void* to, size_t count) {
  static const auto kReal = next<ssize_t (*)(int, void*, size_t)>("read");
  return slowly(
      file, static_cast<std::byte*>(to), count,
      [&](std::byte* at, std::size_t wanted, std::size_t) { return kReal(file, at, wanted); });
}

ssize_t pread64(int file, void* to, size_t count, off64_t offset) {
  static const auto kReal = next<ssize_t (*)(int, void*, size_t, off64_t)>("pread64");
  return slowly(file, static_cast<std::byte*>(to), count,
                [&](std::byte* at, std::size_t wanted, std::size_t done) {
                  return kReal(file, at, wanted, offset + static_cast<off64_t>(done));
                });
}
}
