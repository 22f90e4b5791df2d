// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <vector>

#include "wav/WavArray.h"

/// The bytes of one whole file in memory, shared by every reader and cursor over it.
///
/// An image made from a file starts empty; `startLoading` fills it from the front on a thread of
/// its own while others already read what has arrived. Bytes that have arrived never change.
///
/// Threads: everything from any thread at any time, but `raw`, which is for who began the loading.
class WaveImage : public std::enable_shared_from_this<WaveImage> {
 public:
  /// A complete image holding a copy of `data`.
  static std::shared_ptr<WaveImage> fromBytes(std::span<const std::byte> data);

  /// An image of the regular file at `path`, nothing loaded yet. On failure none, with the reason
  /// in `whyNot`.
  static std::shared_ptr<WaveImage> fromFile(const std::filesystem::path& path,
                                             std::string& whyNot);

  WaveImage(const WaveImage&) = delete;
  WaveImage& operator=(const WaveImage&) = delete;
  ~WaveImage();

  /// Byte count of the whole file.
  [[nodiscard]] std::uint64_t size() const { return _size; }
  /// Byte count that has arrived so far; `size` when complete.
  [[nodiscard]] std::uint64_t loaded() const { return _loaded.load(std::memory_order_acquire); }
  /// What has arrived so far.
  [[nodiscard]] std::span<const std::byte> bytes() const;
  /// The block that holds the image; of it `loaded` bytes are valid.
  [[nodiscard]] const WavArray& raw() const { return _raw; }

  /// Begins to fill the image on a thread of its own. Returns at once; a second call does nothing.
  void startLoading();
  /// Gives up loading; waiters return. Returns at once, even when the medium hangs.
  void abandon();
  /// Waits until the first `end` bytes (at most `size`) are there. False when loading failed or was
  /// given up, or `*cancel` became true first (checked every 20 ms). An image that nobody loads is
  /// waited for until then.
  bool waitUntilLoaded(std::uint64_t end, const std::atomic<bool>* cancel = nullptr) const;
  /// Why reading the file failed; empty when it did not.
  [[nodiscard]] std::string failure() const;

  /// Copies bytes from `offset` on, from memory or, where they have not arrived, from the file
  /// itself. Returns how many were there, less than asked only at the end or on a read error
  /// (which `failure` then tells).
  std::size_t readAt(std::uint64_t offset, std::span<std::byte> to) const;

  /// `count` bytes from `offset` on, fewer where `readAt` would give fewer: in place where they
  /// have arrived, else read into `scratch`.
  std::span<const std::byte> view(std::uint64_t offset, std::size_t count,
                                  std::vector<std::byte>& scratch) const;

 private:
  WaveImage() = default;
  bool allocate();
  void launch();
  void load();
  void fail(const std::string& reason) const;

  int _file = -1;
  std::uint64_t _size = 0;
  WavArray _raw;
  std::once_flag _launched;
  std::atomic<std::uint64_t> _loaded{0};
  mutable std::atomic<bool> _stopped{false};
  mutable std::mutex _mutex;  ///< guards `_failure` and the waits
  mutable std::condition_variable _progressed;
  mutable std::string _failure;
};
