// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "transfer/BlocksAhead.h"

/// Told of bytes that were worked on, on the thread that works; false ends the work.
using MediumStep = std::function<bool(std::uint64_t bytes)>;

/// A file that is read once from its start to its end, in large blocks, of which some are read
/// ahead. Nothing throws but where there is no memory; one thread at a time; reads wait for the
/// medium.
class MediumFile {
 public:
  /// Plain: through the cache of the system, without telling the medium that it was read.
  /// PastCache: what stands on the medium: what the cache holds is passed by, or dropped before.
  using Way = BlocksAhead::Way;

  MediumFile(std::filesystem::path path, Way way);
  MediumFile(const MediumFile&) = delete;
  MediumFile& operator=(const MediumFile&) = delete;
  ~MediumFile();

  /// The next bytes; none at the end or on a failure.
  std::span<const std::byte> next();
  /// Why opening or reading failed; empty when it did not.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  void open(Way way);
  bool openPastCache();
  void fail(int error);

  std::filesystem::path _path;
  int _file = -1;
  std::unique_ptr<BlocksAhead> _blocks;
  std::string _failure;
};

/// What stands in a file.
struct MediumContent {
  std::string hash;  ///< of `ContentHash`; empty where it could not be read, or was given up
  std::uint64_t size = 0;
  std::string failure;  ///< why it could not be read

  static MediumContent of(const std::filesystem::path& path, MediumFile::Way way,
                          const MediumStep& step);
};
