// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderHelper.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>

#include "base/Log.h"

namespace {

// A medium that goes on failing ends the listing.
constexpr int kMostFailures = 3;

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

// Whether this is a folder or leads to one; an error for what leads nowhere.
bool isFolder(const dirent& entry, const std::filesystem::path& path, std::error_code& error) {
  const bool isToBeAsked = entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN;
  return isToBeAsked ? std::filesystem::is_directory(path, error) : entry.d_type == DT_DIR;
}

std::string lowerCase(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return text;
}

}  // namespace

FolderHelper::FolderHelper(std::filesystem::path folderPath) : _folderPath(std::move(folderPath)) {
  grabWavFiles();
  sortFileList();
}

void FolderHelper::grabWavFiles() {
  _files.clear();
  _failure.clear();
  _hasLinks = false;
  // Taken first: a change while the folder is read shows as one.
  _stamp = FolderStamp(_folderPath);
  const std::unique_ptr<DIR, CloseFolder> folder(opendir(_folderPath.c_str()));
  if (!folder) return fail(errno);
  for (int failures = 0; failures < kMostFailures;) {
    errno = 0;
    if (const dirent* const entry = readdir(folder.get())) {
      take(*entry);
    } else if (errno == 0) {
      return;
    } else {
      fail(errno);
      ++failures;
    }
  }
}

void FolderHelper::take(const dirent& entry) {
  const std::filesystem::path name = entry.d_name;
  if (name.native().starts_with('.')) return;
  _hasLinks = _hasLinks || entry.d_type == DT_LNK;
  const std::filesystem::path path = _folderPath / name;
  std::error_code error;
  const bool isFolderHere = isFolder(entry, path, error);
  if (error) return;
  const std::string extension = lowerCase(name.extension());
  if ((!isFolderHere && extension != ".wav") || extension == ".app") return;
  _files.push_back({isFolderHere, QFile::decodeName(name.c_str()),
                    isFolderHere ? kFolderIcon : kFileIcon, path});
}

void FolderHelper::fail(int error) {
  Log::line("eeee");
  _failure = std::error_code(error, std::generic_category()).message();
}

bool FolderHelper::isBefore(const WavItem& a, const WavItem& b) {
  if (a.isFolder != b.isFolder) return a.isFolder;
  return a.fileName < b.fileName;
}

void FolderHelper::sortFileList() {
  std::ranges::sort(_files, isBefore);
}

bool FolderHelper::isCurrent() const {
  return !_hasLinks && FolderStamp(_folderPath).provesUnchangedSince(_stamp);
}
