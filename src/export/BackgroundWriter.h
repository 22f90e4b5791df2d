// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>
#include <vector>

#include "export/AtomicFile.h"

/// Appends blocks to a file on a thread of its own, so that the next block is made while the last
/// one is written. A few blocks are in flight at most; then `submit` waits.
///
/// Threads: all operations by one thread; the file belongs to the writer from the first `submit`
/// to `finish`.
class BackgroundWriter {
 public:
  explicit BackgroundWriter(AtomicFile& file) : _file(file) {}
  BackgroundWriter(const BackgroundWriter&) = delete;
  BackgroundWriter& operator=(const BackgroundWriter&) = delete;
  /// Drops what has not been written yet.
  ~BackgroundWriter();

  /// Takes the bytes out of `block` to append them, and gives an empty block with room in return.
  void submit(std::vector<std::byte>& block);
  /// Waits until all is written. After it the file is the caller's again.
  void finish();
  /// True once a write failed; the file tells why after `finish`.
  [[nodiscard]] bool hasFailed() const { return _hasFailed.load(std::memory_order_relaxed); }

 private:
  using Block = std::vector<std::byte>;
  static constexpr std::size_t kSlots = 3;

  void run();
  void end(bool dropRest);

  AtomicFile& _file;
  std::mutex _mutex;  ///< guards the members below
  std::condition_variable _changed;
  std::array<Block, kSlots> _slots;
  std::size_t _submitted = 0;
  std::size_t _written = 0;
  bool _isEnding = false;
  std::atomic<bool> _hasFailed{false};
  std::thread _thread;
};
