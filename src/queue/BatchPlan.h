// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "queue/BatchTake.h"
#include "queue/ExportOrder.h"

/// What several takes are to be exported as, all alike.
struct BatchWish {
  /// What becomes of an export that is there already.
  enum class Existing { Skip, Replace, Number };

  std::shared_ptr<const std::vector<BatchTake>> takes;
  std::filesystem::path folder;  ///< for all; empty: beside each take
  Existing existing = Existing::Skip;
  /// Format, level and width of each; what it says of source and target does not count.
  ExportOrder how;
  bool isAsRemembered = false;  ///< what is remembered of a take counts in place of width and gain
  std::set<std::filesystem::path> awaited;  ///< what other exports are about to write
};

/// What becomes of each take of a wish, settled before anything begins. Plain data.
struct BatchPlan {
  enum class Fate {
    Export,
    Exists,       ///< its export is there, and stays
    IsTake,       ///< its export would be one of the takes
    HasSameName,  ///< as the export of `other`, or one that is awaited
    Refused       ///< `why` tells
  };
  struct Item {
    ExportOrder order;
    Fate fate = Fate::Export;
    std::filesystem::path other;
    std::string why;  ///< in words for people; no full stop
  };
  /// A medium that is written to.
  struct Room {
    std::uint64_t needed = 0;           ///< bytes
    std::optional<std::uint64_t> free;  ///< none where that cannot be told
  };

  /// Looks at all targets and waits for their media. Ends early, with anything, when `cancel`
  /// becomes true. Any thread.
  static BatchPlan make(const BatchWish& wish, const std::atomic<bool>& cancel);

  /// Those that are to be exported, in the order of the takes.
  [[nodiscard]] std::vector<ExportOrder> orders() const;
  /// Bytes of all of them.
  [[nodiscard]] std::uint64_t needed() const;
  /// The medium that lacks most room; of those that do not the first one; null where nothing is
  /// written.
  [[nodiscard]] const Room* tightest() const;

  std::vector<Item> items;
  std::vector<Room> rooms;
  unsigned atOnce = 1;  ///< as many as help, on the slowest medium that is read or written
};
