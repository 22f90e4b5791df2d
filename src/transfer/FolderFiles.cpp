// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/FolderFiles.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <system_error>

#include "transfer/ManifestFolder.h"

namespace fs = std::filesystem;

namespace {

bool isTake(const fs::path& path) {
  std::string ending = path.extension().native();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending == ".wav";
}

/// Walks one folder.
class Listing {
 public:
  Listing(const fs::path& folder, FolderFiles::Which which) : _folder(folder), _which(which) {}

  FolderFiles run() {
    std::error_code error;
    fs::recursive_directory_iterator entry(_folder, error);
    for (const fs::recursive_directory_iterator end; !error && entry != end;
         entry.increment(error)) {
      const fs::path path = entry->path();
      const bool isHidden = path.filename().native().starts_with('.');
      const bool isManifest = entry.depth() == 0 && path.filename() == ManifestFolder::kName;
      if (isHidden || isManifest) entry.disable_recursion_pending();
      if (!isHidden && !isManifest) look(path);
    }
    if (error) _found.failure = error.message();
    std::sort(_found.files.begin(), _found.files.end(),
              [](const CardTake& a, const CardTake& b) { return a.path < b.path; });
    return _found;
  }

 private:
  void look(const fs::path& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) {
      _found.failure = std::generic_category().message(errno);
      return;
    }
    if (!S_ISREG(status.st_mode) || (_which == FolderFiles::Which::Takes && !isTake(path))) return;
    _found.files.push_back({path.lexically_relative(_folder),
                            static_cast<std::uint64_t>(status.st_size), status.st_mtim});
  }

  const fs::path& _folder;
  FolderFiles::Which _which;
  FolderFiles _found;
};

}  // namespace

FolderFiles FolderFiles::of(const fs::path& folder, Which which) {
  return Listing(folder, which).run();
}
