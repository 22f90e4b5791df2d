// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <span>
#include <string>

#include "wav/FileState.h"

/// A regular file that is open for reading, as long as it was when it was opened. Nothing throws.
///
/// Threads: everything from any thread at any time; a read waits for the medium, and so may the
/// end of the last owner, which closes the file: on another thread with a `ClosingElsewhere`.
class FileBytes {
 public:
  /// On failure none, with the reason in `whyNot`.
  static std::shared_ptr<const FileBytes> open(const std::filesystem::path& path,
                                               std::string& whyNot);

  FileBytes(const FileBytes&) = delete;
  FileBytes& operator=(const FileBytes&) = delete;
  ~FileBytes();

  /// In bytes.
  [[nodiscard]] std::uint64_t size() const { return _state.size; }
  /// As the file was when it was opened.
  [[nodiscard]] const FileState& state() const { return _state; }
  /// Copies bytes from `offset` on and returns how many, less than asked only at the end or where
  /// reading failed, which `failure` then tells: that of a file that became shorter, too.
  [[nodiscard]] std::size_t readAt(std::uint64_t offset, std::span<std::byte> to) const;

  /// Nothing in any folder leads to the file any more, though what it holds can still be read;
  /// never where the file system counts no links. Waits for the medium.
  [[nodiscard]] bool isDeleted() const;

  /// Why reading failed the last time that it did; empty when it never did.
  [[nodiscard]] std::string failure() const;

 private:
  explicit FileBytes(int file) : _file(file) {}
  void fail(const std::string& reason) const;

  int _file;
  FileState _state;
  bool _hasLinks = false;     ///< or its file system counts none
  mutable std::mutex _mutex;  ///< guards `_failure`
  mutable std::string _failure;
};
