// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "takes/ExportNote.h"
#include "takes/RememberedSound.h"
#include "takes/TakeMemory.h"

/// Remembers takes for one who must not wait for the medium: on a thread of its own, in the order
/// in which they were given; of a take that has yet to be written the newest alone is.
///
/// Every operation from any thread. The keeper's end waits for nobody: what was given is written
/// after it, unless the program ends before.
class TakeKeeper {
 public:
  explicit TakeKeeper(const std::filesystem::path& file = TakeMemory::defaultPath());
  TakeKeeper(const TakeKeeper&) = delete;
  TakeKeeper& operator=(const TakeKeeper&) = delete;
  ~TakeKeeper();

  /// Returns at once.
  void remember(const std::string& take, const RememberedSound& sound);
  /// What was given last for the take, written or not. Waits for the medium.
  [[nodiscard]] std::optional<RememberedSound> find(const std::string& take);
  /// The same of an export.
  void noteExport(const ExportNote& note);
  /// Those that were given, written or not, of a take or of all that are in a folder or below it.
  /// Waits for the medium.
  [[nodiscard]] std::vector<ExportNote> exportsOf(const std::filesystem::path& place);
  /// Until all is written or given up, but no longer than this; false where something still waits,
  /// as all does where no thread can be had: the next flush tries again.
  bool flush(std::chrono::milliseconds most);
  /// The first trouble since this was asked last; that a damaged file was set aside goes before
  /// every other. Returns at once.
  TakeMemory::Trouble takeTrouble();

 private:
  class Desk;

  std::shared_ptr<Desk> _desk;  ///< shared with the thread
};
