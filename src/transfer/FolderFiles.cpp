// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/FolderFiles.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

#include "transfer/ManifestFolder.h"

namespace fs = std::filesystem;

namespace {

/// Walks one folder and those below it, each by itself: what one of them hides does not keep the
/// others from being listed.
class Listing {
 public:
  Listing(const fs::path& folder, FolderFiles::Which which, const FolderFiles::GoOn& mayGoOn)
      : _folder(folder), _which(which), _mayGoOn(mayGoOn) {}

  FolderFiles run() {
    for (_next.emplace_back(); !_next.empty() && goesOn();) {
      const fs::path inside = std::move(_next.back());
      _next.pop_back();
      list(inside);
    }
    std::sort(_found.files.begin(), _found.files.end(),
              [](const CardTake& a, const CardTake& b) { return a.path < b.path; });
    return std::move(_found);
  }

 private:
  bool goesOn() {
    _found.isCutShort = _found.isCutShort || !_mayGoOn();
    return !_found.isCutShort;
  }

  void list(const fs::path& inside) {
    std::error_code error;
    const fs::path folder = inside.empty() ? _folder : _folder / inside;
    fs::directory_iterator entry(folder, error);
    for (const fs::directory_iterator end; !error && entry != end && goesOn();
         entry.increment(error)) {
      const fs::path path = inside / entry->path().filename();
      if (!isLeftOut(path)) look(path);
    }
    if (error) _found.gaps.push_back({inside, error.message()});
  }

  static bool isLeftOut(const fs::path& path) {
    return path.filename().native().starts_with('.') || path == ManifestFolder::kName;
  }

  void look(const fs::path& path) {
    struct stat status {};
    if (lstat((_folder / path).c_str(), &status) != 0) {
      _found.gaps.push_back({path, std::generic_category().message(errno)});
      return;
    }
    if (S_ISDIR(status.st_mode)) _next.push_back(path);
    if (!S_ISREG(status.st_mode) ||
        (_which == FolderFiles::Which::Takes && !FolderFiles::isTake(path)))
      return;
    _found.files.push_back({path, static_cast<std::uint64_t>(status.st_size), status.st_mtim});
  }

  const fs::path& _folder;
  FolderFiles::Which _which;
  const FolderFiles::GoOn& _mayGoOn;
  FolderFiles _found;
  std::vector<fs::path> _next;  ///< folders that are still to be listed
};

}  // namespace

bool FolderFiles::Gap::hides(const fs::path& file) const {
  return std::mismatch(path.begin(), path.end(), file.begin(), file.end()).first == path.end();
}

fs::path FolderFiles::Gap::in(const fs::path& folder) const {
  return path.empty() ? folder : folder / path;
}

bool FolderFiles::mayHide(const fs::path& file) const {
  return std::any_of(gaps.begin(), gaps.end(), [&file](const Gap& gap) { return gap.hides(file); });
}

bool FolderFiles::isTake(const fs::path& path) {
  std::string ending = path.extension().native();
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return ending == ".wav";
}

FolderFiles FolderFiles::of(const fs::path& folder, Which which, const GoOn& mayGoOn) {
  return Listing(folder, which, mayGoOn).run();
}
