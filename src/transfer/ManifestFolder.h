// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "export/AtomicFile.h"
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
  /// Generations that the chain does not know yet, a sentence each: `finish` takes them in.
  [[nodiscard]] const std::vector<std::string>& notInChain() const { return _notInChain; }
  /// Why it is not known what there is, so that nothing can be saved; empty where it is known.
  [[nodiscard]] const std::string& whyNot() const { return _whyNot; }
  /// What each file last was, by its path from the folder on. An entry without a hash that is known
  /// here, or of a check that failed, does not take the place of one that has it.
  [[nodiscard]] const std::map<std::string, Manifest::Entry>& files() const { return _files; }
  /// Whether what is said of the file comes from a generation that is as it was written, and none
  /// since says that the file is not like that any more.
  [[nodiscard]] bool isTrusted(const std::string& path) const {
    return !_doubtful.contains(path) && !_failed.contains(path);
  }

  /// Writes the manifest as a new generation; called again, in the place of what was written last.
  /// Whole or not at all, and on the disk. Empty, or why not.
  std::string save(const Manifest& manifest);
  /// Takes the generations that are not in the chain into it, once they do not change any more.
  /// Empty, or why not.
  std::string finish();

 private:
  using Generations = std::set<std::pair<std::uint64_t, std::string>>;  ///< numbers and names

  void readChain();
  void readGenerations();
  void giveUp(const std::string& name, const std::string& reason);
  void tellMissing(const Generations& found);
  void read(std::uint64_t number, const std::string& name);
  bool isAsItWas(std::uint64_t number, const std::string& name, const std::string& c4);
  void add(const Manifest::Entry& entry, bool isIntact);
  [[nodiscard]] std::string newName(const Manifest& manifest) const;
  [[nodiscard]] std::filesystem::path inside(const std::string& name) const;
  [[nodiscard]] std::string write(const std::string& name, const std::string& text,
                                  AtomicFile::Existing existing) const;

  std::filesystem::path _folder;
  ManifestChain _chain;
  std::map<std::string, Manifest::Entry> _files;
  std::set<std::string> _doubtful;  ///< of these those that a changed generation tells of
  std::set<std::string> _failed;    ///< those that were not right when they were last checked
  std::vector<std::string> _problems;
  std::vector<std::string> _notInChain;
  std::string _whyNot;
  std::uint64_t _last = 0;  ///< number of the last generation that there is
  std::string _saved;       ///< the name of the one that was saved
  bool _isChainWhole = true;
};
