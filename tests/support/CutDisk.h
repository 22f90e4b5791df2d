// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "support/DiskLog.h"

/// A disk whose power may go at any moment: what was written and not synced may be there, be lost,
/// or be there in parts. Knows everything that may then be found under one name.
class CutDisk {
 public:
  using Bytes = std::vector<std::byte>;
  /// Nothing where the name is gone.
  using Found = std::set<std::optional<Bytes>>;

  enum class Kind {
    /// As ext4: names change in their order, and with a sync of any file all until then are kept.
    Journal,
    /// As FAT: each name changes by itself, is kept with a sync of its file or of the folder, and
    /// the room of a file that nobody knows any more is free at once.
    Table,
  };
  /// What a file reads as whose room was given to others.
  static const Bytes kFreed;

  /// With one file, known by `number`, on it; all of it was synced.
  CutDisk(Kind kind, std::string name, std::uint64_t number, Bytes content);
  /// Without a file of that name.
  CutDisk(Kind kind, std::string name) : _kind(kind), _name(std::move(name)) {}

  /// What may be found after a cut at the moment when just these calls were made.
  [[nodiscard]] Found after(std::span<const DiskCall> calls) const;
  /// The same for a cut at any moment.
  [[nodiscard]] Found any(std::span<const DiskCall> calls) const;

 private:
  using Number = std::optional<std::uint64_t>;
  /// A name's change from one file, or none, to another.
  struct Change {
    std::string name;
    Number file;
    bool isKept = false;
  };

  [[nodiscard]] std::vector<Change> changes(std::span<const DiskCall> calls) const;
  void keep(std::vector<Change>& made, std::uint64_t synced) const;
  [[nodiscard]] std::set<Number> files(const std::vector<Change>& made) const;
  [[nodiscard]] bool isFreed(std::uint64_t file, std::span<const DiskCall> calls) const;
  void addContents(std::uint64_t file, std::span<const DiskCall> calls, Found& found) const;

  Kind _kind;
  std::string _name;
  Number _old;
  Bytes _content;
};
