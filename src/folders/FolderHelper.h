// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <dirent.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "folders/FolderStamp.h"
#include "folders/WavItem.h"

/// The sub-folders and WAV files of one folder, folders first, then by name: plain order of the
/// characters, so "B.wav" before "a.wav" and "10.wav" before "9.wav".
///
/// Hidden entries and folders whose names end in ".app" are left out. No file is opened. One thread
/// at a time, any thread; listing blocks as long as the medium does.
class FolderHelper {
 public:
  /// Names of the artwork of the two kinds of entry.
  static constexpr std::string_view kFolderIcon = "folder";
  static constexpr std::string_view kFileIcon = "wav_file";

  /// Lists the folder at once.
  explicit FolderHelper(std::filesystem::path folderPath);
  /// Looks at nothing: of a folder that cannot be read, and why.
  FolderHelper(std::filesystem::path folderPath, std::string failure)
      : _folderPath(std::move(folderPath)), _failure(std::move(failure)) {}

  /// Lists again, in the order of the file system. A folder that cannot be read is logged, and read
  /// on where that is possible; an entry that cannot be looked at is left out.
  void grabWavFiles();
  void sortFileList();

  [[nodiscard]] const std::filesystem::path& folderPath() const { return _folderPath; }
  [[nodiscard]] const std::vector<WavItem>& files() const { return _files; }

  /// Why the folder, or some of it, could not be read, a phrase for people; empty when it could.
  [[nodiscard]] const std::string& failure() const { return _failure; }
  /// Whether the folder is surely still as it was listed. Costs no listing; blocks as the medium.
  /// Never where links are in it: what they lead to comes and goes without it.
  [[nodiscard]] bool isCurrent() const;

  /// The order of the list.
  static bool isBefore(const WavItem& a, const WavItem& b);

  // No program calls what follows; it belongs to the system's interface.

  void setFolderPath(std::filesystem::path path) { _folderPath = std::move(path); }
  void setFiles(std::vector<WavItem> files) { _files = std::move(files); }

 private:
  void take(const dirent& entry);
  void fail(int error);

  std::filesystem::path _folderPath;
  std::vector<WavItem> _files;
  FolderStamp _stamp;
  bool _hasLinks = false;
  std::string _failure;
};
