// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>

#include "export/AtomicFile.h"
#include "transfer/MediumFile.h"

/// A file on a card.
struct CardTake {
  std::filesystem::path path;  ///< from the card's folder on
  std::uint64_t size = 0;      ///< bytes
  timespec modified{};
};

/// Copies one take. The copy gets its name only when it has been read back from its medium and is
/// what was read from the card: nothing that bears a name is unverified. It tells the time of
/// change of the take, where that can be set. One thread at a time; waits for the media.
class TakeCopy {
 public:
  enum class End { Copied, NotRead, NotWritten, NotTheSame, Cancelled };

  /// `step` is told of the bytes that were read from the card, and again of those read back.
  TakeCopy(const std::filesystem::path& card, const CardTake& take, MediumStep step);

  /// `target` must not exist.
  End to(const std::filesystem::path& target);

  /// Of the content, when it was copied.
  [[nodiscard]] const std::string& hash() const { return _hash; }
  /// Why it was not copied, in words for people; empty when it was, or was cancelled.
  [[nodiscard]] const std::string& failure() const { return _failure; }
  /// Whether that was for want of room.
  [[nodiscard]] bool isDiskFull() const { return _isDiskFull; }

 private:
  End write(AtomicFile& file);
  End readBack(const AtomicFile& file);
  End end(End end, const std::string& reason);
  End notWritten(const AtomicFile& file);

  std::filesystem::path _source;
  const CardTake& _take;
  MediumStep _step;
  std::string _hash;
  std::string _failure;
  bool _isDiskFull = false;
};
