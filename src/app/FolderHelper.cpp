// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/FolderHelper.h"

#include <QFile>
#include <algorithm>

#include "base/Log.h"

namespace {

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
  // Taken first: a change while the folder is read shows as one.
  _stamp = FolderStamp(_folderPath);
  std::error_code error;
  std::filesystem::directory_iterator entries(_folderPath, error);
  while (!error && entries != std::filesystem::directory_iterator()) {
    take(*entries);
    entries.increment(error);
  }
  if (error) fail(error);
}

void FolderHelper::take(const std::filesystem::directory_entry& entry) {
  const std::string name = entry.path().filename();
  if (name.starts_with('.')) return;
  std::error_code error;
  const bool isFolder = entry.is_directory(error);
  if (error) return;
  const std::string extension = lowerCase(entry.path().extension());
  if ((!isFolder && extension != ".wav") || extension == ".app") return;
  _files.push_back({isFolder, QFile::decodeName(name.c_str()), isFolder ? kFolderIcon : kFileIcon,
                    entry.path()});
}

void FolderHelper::fail(const std::error_code& error) {
  Log::line("eeee");
  _failure = error.message();
}

bool FolderHelper::isBefore(const WavItem& a, const WavItem& b) {
  if (a.isFolder != b.isFolder) return a.isFolder;
  return a.fileName < b.fileName;
}

void FolderHelper::sortFileList() {
  std::ranges::sort(_files, isBefore);
}

bool FolderHelper::isCurrent() const {
  return FolderStamp(_folderPath).provesUnchangedSince(_stamp);
}
