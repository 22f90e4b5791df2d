// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "takes/ExportNote.h"
#include "takes/RememberedSound.h"

class Database;

/// What is remembered of takes, by their `TakeIdentity`, and of their exports, by where they lie,
/// in one file of the user's.
///
/// The file is opened for each operation alone, so that nothing is lost with a program that ends,
/// and several programs may use it at once. One that is damaged is set aside (`DamagedFile`), and a
/// new one begun; one of a newer version is left as it is, and nothing is remembered. What cannot
/// be read or written, or set aside, counts as not remembered, and is left as it is too. An
/// operation waits for another program that has the file locked as long as its patience lasts;
/// after one that waited in vain none waits until one has succeeded, so that many do not wait many
/// times.
///
/// Nothing throws but where memory runs out. One thread at a time; each operation waits for the
/// medium.
class TakeMemory {
 public:
  /// Of the file's layout. Older ones are brought up to it, step by step.
  static constexpr int kVersion = 2;
  /// What went wrong, beyond that nothing was found.
  enum class Trouble {
    None,
    SetAside,   ///< the file was damaged
    Newer,      ///< the file is of a version to come
    OutOfReach  ///< it could not be read, written or set aside: `failure` tells why
  };

  explicit TakeMemory(std::filesystem::path file = defaultPath(),
                      std::chrono::milliseconds patience = std::chrono::seconds(2));

  /// "mixdeck/takes.db" under $XDG_DATA_HOME, else under ~/.local/share.
  static std::filesystem::path defaultPath();

  [[nodiscard]] std::optional<RememberedSound> find(const std::string& take);
  /// In place of what was known of it; false where it cannot be written.
  bool remember(const std::string& take, const RememberedSound& sound);

  /// In place of what was known of this target: it is an export of no other take any more.
  bool noteExport(const ExportNote& note);
  /// Of a take, or of all that are in a folder or below it. In any order; whether they are still
  /// there is not known.
  [[nodiscard]] std::vector<ExportNote> exportsOf(const std::filesystem::path& place);

  /// The greatest trouble since this was asked last.
  Trouble takeTrouble() { return std::exchange(_trouble, Trouble::None); }
  /// Where a damaged file goes.
  [[nodiscard]] std::filesystem::path damagedPath() const;
  /// Why the file could not be used the last time that it could not; for a log.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  using Work = std::function<bool(Database& database)>;
  enum class End { Done, Failed, Damaged };

  bool use(const Work& work);
  End tryOnce(const Work& work);
  End tryFor(std::chrono::milliseconds patience, const Work& work);
  End useOpened(Database& database, const Work& work);
  End look(Database& database);
  static bool bringUp(Database& database);
  bool setAside();
  End fail(const Database& database);

  std::filesystem::path _file;
  std::chrono::milliseconds _patience;
  bool _isChecked = false;
  bool _hasWaitedInVain = false;
  Trouble _trouble = Trouble::None;
  std::string _failure;
};
