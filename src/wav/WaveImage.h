// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "wav/FileBytes.h"
#include "wav/FollowedBlocks.h"
#include "wav/WavArray.h"

/// The bytes of one whole file, shared by every reader and cursor over it.
///
/// An image of bytes holds them. An image of a file takes no more memory than a few blocks, however
/// long the file is: who may wait for the medium reads from the file itself (`readAt`, `view`); who
/// must not wait says where it is (`follow`) and takes what has been read ahead (`readHeld`).
///
/// Threads: everything from any thread at any time.
class WaveImage {
 public:
  /// An image that holds a copy of `data`.
  static std::shared_ptr<WaveImage> fromBytes(std::span<const std::byte> data);

  /// An image of the regular file at `path`. On failure none, with the reason in `whyNot`.
  static std::shared_ptr<WaveImage> fromFile(const std::filesystem::path& path,
                                             std::string& whyNot);

  /// Another image of the same open file, which has nothing read ahead: whoever may hang in a read
  /// holds that one, and the blocks of this one go when its owners let go. None for an image in
  /// memory.
  [[nodiscard]] std::shared_ptr<WaveImage> sibling() const;

  WaveImage(const WaveImage&) = delete;
  WaveImage& operator=(const WaveImage&) = delete;
  /// Waits for nothing where the image was followed: the worker closes the file. Else it closes the
  /// file itself, as its last owner.
  ~WaveImage();

  /// Byte count of the whole file.
  [[nodiscard]] std::uint64_t size() const { return _size; }
  [[nodiscard]] bool isInMemory() const { return _file == nullptr; }
  [[nodiscard]] FileState fileState() const { return _file ? _file->state() : FileState(); }
  /// The whole image where it is in memory; nothing of a file.
  [[nodiscard]] std::span<const std::byte> bytes() const;
  /// The block that holds an image in memory; empty for one of a file.
  [[nodiscard]] const WavArray& raw() const { return _raw; }

  /// Has what follows `offset` read ahead, on a worker, instead of what was followed before. One
  /// place at a time for all that share the image. Returns at once, whatever the medium does.
  void follow(std::uint64_t offset);
  /// Gives up reading ahead until the next `follow`. Returns at once.
  void abandon();
  /// Why reading ahead has stopped; empty when it goes on, has all, or was given up. Never waits.
  [[nodiscard]] std::string followFailure() const;
  /// How many bytes from `offset` on are at hand: at least 3.75 MiB, or all that there are, soon
  /// after they are followed. Never waits.
  [[nodiscard]] std::uint64_t heldFrom(std::uint64_t offset) const;
  /// Copies bytes from `offset` on that are at hand, and returns how many. Never waits.
  [[nodiscard]] std::size_t readHeld(std::uint64_t offset, std::span<std::byte> to) const;

  /// Copies bytes from `offset` on, from memory or the file. Returns how many were there, less than
  /// asked only at the end or on a read error (which `failure` then tells). Waits for the medium.
  [[nodiscard]] std::size_t readAt(std::uint64_t offset, std::span<std::byte> to) const;
  /// `count` bytes from `offset` on, fewer where `readAt` would give fewer: in place where the
  /// image is in memory, else read into `scratch`.
  std::span<const std::byte> view(std::uint64_t offset, std::size_t count,
                                  std::vector<std::byte>& scratch) const;

  /// Whether it is an image of a file that has been deleted meanwhile. Waits for the medium.
  [[nodiscard]] bool isDeleted() const;
  /// Why reading the file failed, by whomever; empty when it did not.
  [[nodiscard]] std::string failure() const;

 private:
  WaveImage() = default;
  static std::shared_ptr<WaveImage> over(std::shared_ptr<const FileBytes> file);

  std::uint64_t _size = 0;
  WavArray _raw;
  std::string _allocationFailure;
  std::shared_ptr<const FileBytes> _file;   ///< null for an image in memory
  std::shared_ptr<FollowedBlocks> _blocks;  ///< of the file
};
