// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "transfer/FolderFiles.h"
#include "transfer/ManifestFolder.h"
#include "transfer/ManifestLock.h"
#include "transfer/MediumFile.h"

/// Holds the files of a folder to its manifests, by what stands on the medium. Reads only. One
/// thread at a time.
class FolderCheck {
 public:
  enum class State { Right, Changed, Missing, Moved, New, Unreadable };
  struct Finding {
    State state;
    std::string path;    ///< from the folder on, as the manifest has it
    std::string detail;  ///< where it moved to, or why it is changed or unreadable
  };
  /// Why nothing can be checked.
  enum class Obstacle { None, Copying, Cancelled, Folder, NoManifest, Manifest };
  using Tell = std::function<void(const Finding&)>;

  /// Lists the folder, as long as it may, and reads its manifests. No copy begins there meanwhile.
  explicit FolderCheck(
      std::filesystem::path folder, const FolderFiles::GoOn& mayGoOn = [] { return true; });

  /// What keeps it from being checked: that a copy is at work there, which tells the manifest of
  /// its takes after they are there; that it was not to go on, cannot be listed, has no manifest,
  /// or has one that cannot be read.
  [[nodiscard]] Obstacle obstacle() const;
  /// The same, in words; empty where it can be checked.
  [[nodiscard]] std::string whyNot() const;
  /// What is wrong with the manifests themselves.
  [[nodiscard]] std::vector<std::string> problems() const;
  /// What could not be listed, and why. A file that may be there is no missing one, but unreadable.
  [[nodiscard]] const std::vector<FolderFiles::Gap>& gaps() const { return _found.gaps; }
  /// Of all that is to be read, as far as it is known beforehand.
  [[nodiscard]] std::uint64_t bytes() const;

  /// Tells of each file in the order of the paths, hidden and missing ones last. Whether all are
  /// right; false where `step` ended it.
  bool run(const Tell& tell, const MediumStep& step);

 private:
  void note(State state, const std::string& path, const std::string& detail = {});
  void checkKnown(const CardTake& file, const Manifest::Entry& entry);
  void checkNew(const CardTake& file);
  [[nodiscard]] bool mayHaveMoved(const CardTake& file) const;
  std::vector<std::string> takeHidden();
  [[nodiscard]] std::string whyNotListed() const;

  std::filesystem::path _folder;
  std::unique_ptr<const ManifestLock> _lock;  ///< while all of that is read
  bool _isCopiedInto;
  ManifestFolder _manifests;
  FolderFiles _found;
  std::map<std::string, Manifest::Entry> _missing;
  Tell _tell;
  MediumStep _step;
  bool _isAllRight = true;
  bool _hasEnded = false;
};
