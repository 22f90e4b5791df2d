// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <span>
#include <thread>
#include <utility>

#include "export/RawBytes.h"

/// Appends blocks to a file on a thread of its own, so that the next block is made while the last
/// one is written. A few blocks are in flight at most; then `submit` waits. Where no thread can be
/// had, `submit` writes the block itself.
///
/// Threads: all operations by one thread, but `hasFailed` by any; the file belongs to the writer
/// from the first `submit` to `finish`.
class BackgroundWriter {
 public:
  /// Appends the bytes to the file; false when that failed. Called on the writer's thread, or from
  /// inside `submit`.
  using Append = std::function<bool(std::span<const std::byte>)>;

  explicit BackgroundWriter(Append append) : _append(std::move(append)) {}
  BackgroundWriter(const BackgroundWriter&) = delete;
  BackgroundWriter& operator=(const BackgroundWriter&) = delete;
  /// Drops what has not been written yet, once a write that is under way is over.
  ~BackgroundWriter();

  /// Takes the bytes out of `block` to append them, and gives an empty block with room in return.
  void submit(RawBytes& block);
  /// Waits until all is written. After it the file is the caller's again.
  void finish();
  /// True once a write failed, after which nothing is written any more, or the rest is dropped. The
  /// file tells why after `finish`.
  [[nodiscard]] bool hasFailed() const { return _hasFailed.load(std::memory_order_relaxed); }

 private:
  using Block = RawBytes;
  static constexpr std::size_t kSlots = 3;

  /// Whether there is a thread.
  bool startOnce();
  void hand(Block& block);
  void append(const Block& block);
  void run();
  void end(bool dropRest);

  const Append _append;
  std::mutex _mutex;  ///< guards the members below
  std::condition_variable _changed;
  std::array<Block, kSlots> _slots;
  std::size_t _submitted = 0;
  std::size_t _written = 0;
  bool _isEnding = false;
  std::atomic<bool> _hasFailed{false};
  std::thread _thread;
};
