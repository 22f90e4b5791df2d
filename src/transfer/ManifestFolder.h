// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "transfer/Manifest.h"

/// The manifests of a folder: its folder "ascmhl" with a generation a file and the chain of them.
/// One thread at a time; waits for the medium.
class ManifestFolder {
 public:
  static constexpr const char* kName = "ascmhl";

  /// Reads what there is.
  explicit ManifestFolder(std::filesystem::path folder);

  /// Whether there is a generation at all.
  [[nodiscard]] bool isThere() const { return _last > 0; }
  /// What is wrong with the manifests, a sentence for people each; a generation that cannot be read
  /// counts as none.
  [[nodiscard]] const std::vector<std::string>& problems() const { return _problems; }
  /// What each file last was, by its path from the folder on.
  [[nodiscard]] const std::map<std::string, Manifest::Entry>& files() const { return _files; }

  /// Writes the manifest as a new generation; called again, in the place of what was written last.
  /// Whole or not at all, and on the disk. Empty, or why not.
  std::string save(const Manifest& manifest);
  /// Takes the generations that are not in the chain into it, once they do not change any more.
  /// Empty, or why not.
  std::string finish();

 private:
  void readChain();
  void readGenerations();
  void read(std::uint64_t number, const std::string& name);
  [[nodiscard]] std::filesystem::path inside(const std::string& name) const;
  [[nodiscard]] std::string write(const std::string& name, const std::string& text) const;

  std::filesystem::path _folder;
  ManifestChain _chain;
  std::map<std::string, Manifest::Entry> _files;
  std::vector<std::string> _problems;
  std::uint64_t _last = 0;  ///< number of the last generation that there is
  std::string _saved;       ///< the name of the one that was saved
  bool _isChainWhole = true;
};
