// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/FolderCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace fs = std::filesystem;

FolderCheck::FolderCheck(fs::path folder, const FolderFiles::GoOn& mayGoOn)
    : _folder(std::move(folder)),
      _lock(std::make_unique<const ManifestLock>(_folder, ManifestLock::Kind::Check)),
      _isCopiedInto(_lock->other() != ManifestLock::Other::Nobody),
      _manifests(_folder) {
  if (!_isCopiedInto) _found = FolderFiles::of(_folder, FolderFiles::Which::All, mayGoOn);
  _lock.reset();
}

FolderCheck::Obstacle FolderCheck::obstacle() const {
  if (_isCopiedInto) return Obstacle::Copying;
  if (_found.isCutShort) return Obstacle::Cancelled;
  if (_manifests.isThere()) return Obstacle::None;
  if (!whyNotListed().empty()) return Obstacle::Folder;
  return _manifests.whyNot().empty() ? Obstacle::NoManifest : Obstacle::Manifest;
}

std::string FolderCheck::whyNot() const {
  switch (obstacle()) {
    case Obstacle::Copying:
      return "A copy is at work there";
    case Obstacle::Cancelled:
      return "Cancelled";
    case Obstacle::Folder:
      return "The folder cannot be read: " + whyNotListed();
    case Obstacle::NoManifest:
      return fmt::format("It has no manifest ({})", ManifestFolder::kName);
    case Obstacle::Manifest:
      return "The manifest cannot be read: " + _manifests.whyNot();
    case Obstacle::None:
      break;
  }
  return "";
}

// Of the folder itself, not of one in it.
std::string FolderCheck::whyNotListed() const {
  const auto isWhole = [](const FolderFiles::Gap& gap) { return gap.path.empty(); };
  const auto gap = std::find_if(gaps().begin(), gaps().end(), isWhole);
  return gap == gaps().end() ? "" : gap->reason;
}

std::vector<std::string> FolderCheck::problems() const {
  std::vector<std::string> problems = _manifests.problems();
  const std::vector<std::string>& more = _manifests.notInChain();
  problems.insert(problems.end(), more.begin(), more.end());
  return problems;
}

std::uint64_t FolderCheck::bytes() const {
  std::uint64_t sum = 0;
  for (const CardTake& file : _found.files) {
    if (_manifests.files().contains(file.path.native())) sum += file.size;
  }
  return sum;
}

bool FolderCheck::run(const Tell& tell, const MediumStep& step) {
  _tell = tell;
  _step = [this, &step](std::uint64_t bytes) {
    _hasEnded = _hasEnded || !step(bytes);
    return !_hasEnded;
  };
  _isAllRight = problems().empty() && gaps().empty();
  _missing = _manifests.files();
  for (const CardTake& file : _found.files) _missing.erase(file.path.native());
  const auto hidden = takeHidden();
  for (const CardTake& file : _found.files) {
    if (_hasEnded) return false;
    const auto known = _manifests.files().find(file.path.native());
    known == _manifests.files().end() ? checkNew(file) : checkKnown(file, known->second);
  }
  if (_hasEnded) return false;  // the last file may have been a missing one
  for (const std::string& path : hidden) note(State::Unreadable, path, "it cannot be listed");
  for (const auto& [path, entry] : _missing) note(State::Missing, path);
  return _isAllRight;
}

// Of those that were not found those that may be there all the same.
std::vector<std::string> FolderCheck::takeHidden() {
  std::vector<std::string> hidden;
  std::erase_if(_missing, [&](const auto& one) {
    if (!_found.mayHide(one.first)) return false;
    hidden.push_back(one.first);
    return true;
  });
  return hidden;
}

void FolderCheck::note(State state, const std::string& path, const std::string& detail) {
  _isAllRight = _isAllRight && state == State::Right;
  _tell({state, path, detail});
}

void FolderCheck::checkKnown(const CardTake& file, const Manifest::Entry& entry) {
  const std::string path = file.path.native();
  if (entry.hash.empty()) {
    return note(State::Unreadable, path, "the manifest has no hash of it that is known here");
  }
  if (file.size != entry.size.value_or(file.size)) {
    return note(State::Changed, path, fmt::format("{} bytes, not {}", file.size, *entry.size));
  }
  const auto content = MediumContent::of(_folder / file.path, MediumFile::Way::PastCache, _step);
  if (!content.failure.empty()) return note(State::Unreadable, path, content.failure);
  if (content.hash.empty()) return;
  const bool isRight = content.hash == entry.hash;
  note(isRight ? State::Right : State::Changed, path, isRight ? "" : "another content");
}

bool FolderCheck::mayHaveMoved(const CardTake& file) const {
  return std::any_of(_missing.begin(), _missing.end(), [&file](const auto& one) {
    return one.second.size.value_or(file.size) == file.size;
  });
}

void FolderCheck::checkNew(const CardTake& file) {
  const std::string path = file.path.native();
  if (!mayHaveMoved(file)) return note(State::New, path);
  const auto content = MediumContent::of(_folder / file.path, MediumFile::Way::PastCache, _step);
  if (!content.failure.empty()) return note(State::Unreadable, path, content.failure);
  if (content.hash.empty()) return;
  const auto was = std::find_if(_missing.begin(), _missing.end(),
                                [&](const auto& one) { return one.second.hash == content.hash; });
  if (was == _missing.end()) return note(State::New, path);
  note(State::Moved, was->first, path);
  _missing.erase(was);
}
