// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderWalk.h"

#include <utility>

#include "controls/Reason.h"

namespace {

constexpr int kReadingShows = 300;  // ms

std::filesystem::path takeLast(std::vector<std::filesystem::path>& paths) {
  std::filesystem::path last = std::move(paths.back());
  paths.pop_back();
  return last;
}

}  // namespace

FolderWalk::FolderWalk(Rows rows, FolderLister::Look look)
    : _rows(rows),
      _lister([this](const FolderLister::Answer& answer) { show(answer); }, std::move(look)) {
  _slow.setSingleShot(true);
  connect(&_slow, &QTimer::timeout, this, &FolderWalk::stillReading);
}

void FolderWalk::open(const std::filesystem::path& folder) {
  std::filesystem::path whole = folder.lexically_normal();
  if (!whole.has_filename() && whole.has_relative_path()) whole = whole.parent_path();
  if (!_folder.empty() && whole != _folder) _before.push_back(_folder);
  _after.clear();
  moveTo(whole);
}

void FolderWalk::goUp() {
  const std::filesystem::path parent = _folder.parent_path();
  if (parent != _folder) open(parent);
}

void FolderWalk::back() {
  if (!canGoBack()) return;
  _after.push_back(_folder);
  moveTo(takeLast(_before));
}

void FolderWalk::forward() {
  if (!canGoForward()) return;
  _before.push_back(_folder);
  moveTo(takeLast(_after));
}

void FolderWalk::moveTo(const std::filesystem::path& folder) {
  _folder = folder;
  _failure.clear();
  _model.show({});
  _slow.start(kReadingShows);
  emit moved();
  _lister.list({_folder, {}, nullptr});
}

void FolderWalk::show(const FolderLister::Answer& answer) {
  _slow.stop();
  _failure = Reason::text(answer.listing->failure());
  std::vector<WavItem> items = answer.listing->files();
  if (_rows == Rows::Folders) std::erase_if(items, [](const WavItem& it) { return !it.isFolder; });
  _model.show(items);
  emit listed();
}
