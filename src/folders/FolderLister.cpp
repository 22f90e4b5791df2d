// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderLister.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "base/ErrorReason.h"
#include "base/ThreadSignal.h"

namespace {

constexpr const char* kNoThread = "no thread can be had";

// What cannot be told is there: listing it says why.
bool isThere(const std::filesystem::path& folder) {
  std::error_code error;
  return std::filesystem::exists(folder, error) || error;
}

const std::filesystem::path& folderToList(const FolderLister::Question& question) {
  if (question.fallbacks.empty() || isThere(question.folder)) return question.folder;
  const auto found = std::ranges::find_if(question.fallbacks, isThere);
  return found == question.fallbacks.end() ? question.fallbacks.back() : *found;
}

// Where memory runs out, the folder cannot be read.
FolderLister::Answer guarded(const FolderLister::Look& look,
                             const FolderLister::Question& question) {
  try {
    return look(question);
  } catch (const std::exception& error) {
    return {std::make_shared<const FolderHelper>(question.folder, reasonOf(error)), false};
  }
}

}  // namespace

/// Where a thread leaves its answer, whether or not someone still waits for it.
class FolderLister::Desk {
 public:
  explicit Desk(std::function<void()> arrived)
      : _signal(std::make_unique<ThreadSignal>(std::move(arrived))) {}

  /// Any thread.
  void put(Answer answer) {
    const std::lock_guard lock(_mutex);
    _answer = std::move(answer);
    if (_signal) _signal->raise();
  }
  Answer take() {
    const std::lock_guard lock(_mutex);
    return std::move(_answer);
  }
  /// Nobody waits any more. The signal goes here and not with the desk: it belongs to this thread.
  void leave() {
    const std::lock_guard lock(_mutex);
    _signal.reset();
  }

 private:
  std::mutex _mutex;
  Answer _answer;
  std::unique_ptr<ThreadSignal> _signal;
};

FolderLister::FolderLister(Done done, Look look) : _done(std::move(done)), _look(std::move(look)) {}

FolderLister::~FolderLister() {
  if (_desk) _desk->leave();
}

void FolderLister::list(Question question) {
  const bool isUnderWay = _desk && question.folder == _question.folder;
  _question = std::move(question);
  _isDueAgain = isUnderWay;
  if (!isUnderWay) start();
}

void FolderLister::start() {
  if (_desk) _desk->leave();
  _desk = std::make_shared<Desk>([this] { collect(); });
  try {
    std::thread([desk = _desk, look = _look, question = _question] {
      desk->put(guarded(look, question));
    }).detach();
  } catch (const std::exception&) {  // no thread, or no memory for one
    _desk->put(withoutLooking(_question));
  }
}

void FolderLister::collect() {
  const Answer answer = _desk->take();
  _desk->leave();
  _desk.reset();
  if (_isDueAgain) {
    _isDueAgain = false;
    _question.known = answer.listing;
    start();
  }
  _done(answer);
}

FolderLister::Answer FolderLister::withoutLooking(const Question& question) {
  const auto& known = question.known;
  if (known && known->folderPath() == question.folder) return {known, true};
  return {std::make_shared<const FolderHelper>(question.folder, kNoThread), false};
}

FolderLister::Answer FolderLister::answerTo(const Question& question) {
  const std::filesystem::path& folder = folderToList(question);
  const auto& known = question.known;
  const bool isKnown = known && known->folderPath() == folder;
  if (isKnown && known->isCurrent()) return {known, true};
  auto listing = std::make_shared<const FolderHelper>(folder);
  const bool isSame =
      isKnown && known->files() == listing->files() && known->failure() == listing->failure();
  return {std::move(listing), isSame};
}
