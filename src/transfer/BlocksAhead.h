// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <thread>
#include <vector>

/// The blocks of a file in their order, read ahead by threads of their own: the medium works while
/// the last block is worked on. Where no thread can be started, the caller reads.
///
/// One thread at a time calls; it waits for the medium, as the end does for reads that have begun.
class BlocksAhead {
 public:
  /// Past the cache two reads are under way at a time: each is one request to the medium. Otherwise
  /// it is one, as the system reads ahead where it sees one reader go on.
  enum class Way { Plain, PastCache };

  static constexpr std::size_t kAlignment = 4096;  ///< bytes, of memory that is read into

  /// Reads `file` from its start on, a descriptor that must stay open until the end of this, and
  /// was opened with O_DIRECT to be read past the cache. Throws std::bad_alloc.
  BlocksAhead(int file, Way way);
  BlocksAhead(const BlocksAhead&) = delete;
  BlocksAhead& operator=(const BlocksAhead&) = delete;
  ~BlocksAhead();

  /// Valid until the next call; none at the end of the file and after a failure.
  std::span<const std::byte> next();
  /// The system's number for the failure that ended it; 0 if none did.
  [[nodiscard]] int error() const { return _error; }

 private:
  struct Release {
    void operator()(std::byte* bytes) const;
  };
  struct Block {
    std::unique_ptr<std::byte, Release> bytes;
    std::size_t size = 0;
    int error = 0;
    bool isRead = false;
  };

  static constexpr std::size_t kBlocks = 4;  // one of them with the caller

  void start();
  void run();
  void read(Block& block, std::uint64_t number) const;
  void awaitRead(Block& block);

  int _file;
  Way _way;
  std::array<Block, kBlocks> _blocks;
  std::mutex _mutex;
  std::condition_variable _changed;
  std::uint64_t _begun = 0;  ///< blocks whose reading has begun
  std::uint64_t _taken = 0;  ///< blocks that the caller got; the last one is in use
  bool _isStopped = false;   ///< whether nothing more is begun
  bool _isAtEnd = false;
  int _error = 0;
  std::vector<std::thread> _threads;
};
