// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

/// Makes the reads of files under one folder, and of folders from it on, as slow as a medium, or
/// fail as those of one that was pulled out. A shared library that stands before the C library;
/// linked, or preloaded with MIXDECK_SLOW_FOLDER and MIXDECK_SLOW_RATE (bytes per second) in the
/// environment; with MIXDECK_SLOW_GOES_WITH_FOLDER it is pulled out once the folder is removed. Any
/// thread.
class SlowReads {
 public:
  /// All readers share the rate, piece by piece; nothing is cached. 0 is full speed.
  static void limit(const std::string& folder, std::uint64_t bytesPerSecond);
  /// A medium without a clock: every other thread gets so many bytes, none for 0, and then waits,
  /// until the next call here or `reset`. The calling thread is never held up; `takenHere` tells
  /// what it took.
  static void share(const std::string& folder, std::uint64_t bytesPerThread);
  /// The same for all other threads together: they get so many bytes more and then wait.
  static void give(const std::string& folder, std::uint64_t bytes);
  /// Bytes that the calling thread has read since the last `limit` or `share`.
  static std::uint64_t takenHere();
  /// Every read from now on fails with an input/output error.
  static void pullOut();
  /// So many times from now on, going on with the listing of a folder there fails so.
  static void breakListings(int times);
  /// Every read of these files past the cache fails from now on, as by a file system that opens
  /// them for it and does not know it; `refusals` counts them.
  static void refusePastCache(const std::string& folder);
  static int refusals();
  static void reset();
};
