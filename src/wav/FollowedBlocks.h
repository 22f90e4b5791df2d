// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "wav/FileBytes.h"

/// The bytes of a file from a wished offset on, kept at hand for those who must not wait: a worker
/// fills a ring of blocks ahead of the wish. Takes 4 MiB however long the file is (less for a
/// shorter one), from the first wish on.
///
/// Nobody waits for the worker, and a medium that hangs holds only the worker. It owns the file
/// from its start on and keeps the blocks alive by itself, so that the file is closed by it as well
/// once `end` was called and nobody else owns it. Where there is no memory or thread for it, that
/// is a failure as of a read. Nothing throws.
///
/// Threads: everything from any thread at any time.
class FollowedBlocks : public std::enable_shared_from_this<FollowedBlocks> {
 public:
  static constexpr std::size_t kBlockBytes = 1 << 18;
  static constexpr std::size_t kMostBlocks = 16;

  static std::shared_ptr<FollowedBlocks> over(std::shared_ptr<const FileBytes> file);

  /// Wishes for what follows `offset`, instead of what was wished for before. After a
  /// failure it is tried again only once another block is wished for, or after a rest.
  void follow(std::uint64_t offset);
  /// Wishes for nothing; what is at hand stays.
  void rest();
  /// The worker ends as soon as it can. Nothing is followed after this.
  void end();

  /// Why there is not all at hand that was wished for; empty when there is, or nothing failed yet.
  [[nodiscard]] std::string failure() const;
  /// How many bytes from `offset` on are at hand.
  [[nodiscard]] std::uint64_t heldFrom(std::uint64_t offset) const;
  /// Copies bytes from `offset` on that are at hand, and returns how many.
  [[nodiscard]] std::size_t read(std::uint64_t offset, std::span<std::byte> to) const;

 private:
  /// What a block of the ring holds: the first bytes of one block of the file.
  struct Held {
    std::optional<std::uint64_t> number;
    std::size_t bytes = 0;
  };

  explicit FollowedBlocks(std::shared_ptr<const FileBytes> file);
  void start();
  void work(const FileBytes& file);
  void fill(std::uint64_t number, const FileBytes& file, std::unique_lock<std::mutex>& lock);
  [[nodiscard]] std::optional<std::uint64_t> nextToFill() const;
  [[nodiscard]] std::size_t sizeOf(std::uint64_t number) const;
  [[nodiscard]] std::span<const std::byte> held(std::uint64_t offset) const;
  [[nodiscard]] std::span<std::byte> place(std::uint64_t number) const;

  const std::uint64_t _fileSize;
  const std::size_t _blockCount;           ///< in the ring
  std::shared_ptr<const FileBytes> _file;  ///< until the worker takes it
  std::unique_ptr<std::byte[]> _memory;    // NOLINT(*-avoid-c-arrays): not to be zeroed
  mutable std::mutex _mutex;               ///< guards all that follows, and blocks that are held
  std::condition_variable _wished;
  std::vector<Held> _held;                   ///< of each block of the ring
  std::optional<std::uint64_t> _wish;        ///< block of the file
  std::optional<std::uint64_t> _failedWish;  ///< reading failed while this was wished for
  std::string _failure;                      ///< the last one, until all is at hand
  bool _isStarted = false;
  bool _hasEnded = false;
};
