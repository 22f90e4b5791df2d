// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/CardCopy.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <set>
#include <system_error>

#include "export/FolderSync.h"
#include "transfer/XmlReader.h"

namespace fs = std::filesystem;

namespace {

constexpr std::int64_t kTimeGrain = 2;         // seconds, of FAT
constexpr std::uint64_t kSaveEvery = 1 << 27;  // bytes of takes; each manifest waits for the disk
constexpr std::uint64_t kBesideManifest = 1 << 16;  // bytes: the chain, and ends of blocks
constexpr std::size_t kHashDigits = 32;
constexpr const char* kCancelled = "Cancelled";
constexpr const char* kHoldsFolder = "The card is never written to, but holds the folder";

std::string hostName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 && canBeXml(name.data()) ? name.data() : "";
}

std::string now() {
  return Manifest::timeText(std::time(nullptr));
}

// From the root on and without links; as it is, a path whose beginning is not there stays relative.
fs::path realPath(const fs::path& path, std::error_code& error) {
  const fs::path whole = fs::absolute(path, error);
  return error ? whole : fs::weakly_canonical(whole, error);
}

// Of real paths.
bool isInside(const fs::path& path, const fs::path& folder) {
  const fs::path way = path.lexically_relative(folder);
  return !way.empty() && *way.begin() != "..";
}

// None where it is not there.
std::optional<struct stat> statusOf(const fs::path& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0 ? std::optional(status) : std::nullopt;
}

Manifest::Entry entryOf(const CardTake& take, const std::string& hash, const std::string& action) {
  const std::string modified = Manifest::timeText(take.modified.tv_sec);
  return {take.path.native(), take.size, modified, hash, action, now()};
}

bool isSameFile(const fs::path& one, const fs::path& other) {
  const auto first = statusOf(one);
  const auto second = statusOf(other);
  return first && second && first->st_dev == second->st_dev && first->st_ino == second->st_ino;
}

}  // namespace

CardCopy::CardCopy(fs::path card, fs::path destination)
    : _card(std::move(card)), _destination(std::move(destination)) {}

std::string CardCopy::meet(Obstacle obstacle, std::string reason) {
  _obstacle = obstacle;
  return reason;
}

std::string CardCopy::prepare() {
  std::string whyNot = findCard();
  if (whyNot.empty()) whyNot = listCard();
  if (whyNot.empty()) whyNot = openFolder();
  if (whyNot.empty()) whyNot = whyNoRoom();
  if (!whyNot.empty()) return whyNot;
  _manifest.createdAt = now();
  _manifest.host = hostName();
  return "";
}

std::string CardCopy::unreadable(const std::string& reason) {
  return meet(Obstacle::CardUnreadable, fmt::format("The card cannot be read: {}", reason));
}

std::string CardCopy::findCard() {
  std::error_code error;
  const bool isFolder = fs::is_directory(_card, error);
  if (!error) _realCard = realPath(_card, error);
  if (error) return unreadable(error.message());
  if (!isFolder) return meet(Obstacle::CardUnreadable, "The card is no folder");
  for (const fs::path& folder : {_destination, _destination / ManifestFolder::kName}) {
    const bool isOnCard = isInside(realPath(folder, error), _realCard);
    if (error) return cannotMake(error);
    if (isOnCard) return meet(Obstacle::Inside, kHoldsFolder);
  }
  return "";
}

std::string CardCopy::listCard() {
  FolderFiles listed =
      FolderFiles::of(_card, FolderFiles::Which::Takes, [this] { return goesOn(); });
  if (listed.isCutShort) return kCancelled;
  _takes = std::move(listed.files);
  _gaps = std::move(listed.gaps);
  if (!_takes.empty()) return "";
  return _gaps.empty() ? meet(Obstacle::CardEmpty, "The card holds no takes")
                       : unreadable(_gaps.front().reason);
}

std::string CardCopy::cannotMake(const std::error_code& error) {
  return meet(Obstacle::FolderUnwritable,
              fmt::format("The folder cannot be made: {}", error.message()));
}

std::string CardCopy::openFolder() {
  const std::error_code error = FolderSync::make(_destination);
  if (error) return cannotMake(error);
  const std::string whoElse = lockFolder();
  if (!whoElse.empty()) return meet(Obstacle::FolderBusy, whoElse);
  _manifests = std::make_unique<ManifestFolder>(_destination);
  if (_manifests->whyNot().empty()) return "";
  return meet(Obstacle::ManifestUnreadable, "The manifest cannot be read: " + _manifests->whyNot());
}

std::string CardCopy::lockFolder() {
  _lock = std::make_unique<ManifestLock>(_destination, ManifestLock::Kind::Copy, _patience);
  switch (_lock->other()) {
    case ManifestLock::Other::Copy:
      return "Another copy is at work there";
    case ManifestLock::Other::Check:
      return "The folder is being verified";
    case ManifestLock::Other::Nobody:
      break;
  }
  return "";
}

// Where all takes are there already a folder will do that cannot be written to.
std::string CardCopy::whyNoRoom() {
  std::uint64_t wanted = 0;
  for (const CardTake& take : _takes) {
    if (!goesOn()) return kCancelled;
    if (!statusOf(targetOf(take))) wanted += take.size;
  }
  if (wanted > 0) wanted += manifestRoom();
  if (wanted > 0 && faccessat(AT_FDCWD, _destination.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
    const std::string reason = std::generic_category().message(errno);
    return meet(Obstacle::FolderUnwritable,
                fmt::format("The folder cannot be written to: {}", reason));
  }
  std::error_code error;
  const fs::space_info space = fs::space(_destination, error);
  // Some file systems do not tell.
  if (error || space.capacity == 0 || wanted <= space.available) return "";
  return meet(Obstacle::FolderFull,
              fmt::format("The takes and their manifest need {} bytes, and {} are free", wanted,
                          space.available));
}

// In bytes, with some to spare. A manifest that is written anew is there twice for a moment.
std::uint64_t CardCopy::manifestRoom() const {
  Manifest whole = _manifest;
  for (const CardTake& take : _takes) {
    whole.entries.push_back(entryOf(take, std::string(kHashDigits, '0'), "original"));
  }
  return 2 * whole.toXml().size() + kBesideManifest;
}

bool CardCopy::run() {
  _progress.takes = _takes.size();
  for (const CardTake& take : _takes) _progress.total += 2 * take.size;
  for (const CardTake& take : _takes) {
    if (!goesOn() || hasEnded()) break;
    _progress.take = take.path;
    handle(take);
    if (_unsavedBytes >= kSaveEvery) saveManifest();
  }
  if (_manifest.entries.size() > _savedEntries) saveManifest();
  fallShort(_manifests->finish());
  _lock.reset();
  return _isAllThere && _gaps.empty() && !hasEnded();
}

void CardCopy::handle(const CardTake& take) {
  const auto there = statusOf(targetOf(take));
  const std::string whyNot = whyNoPlace(take);
  if (!whyNot.empty()) {
    tell(take, Outcome::Failed, whyNot);
  } else if (!there) {
    copy(take);
  } else if (!S_ISREG(there->st_mode)) {
    tell(take, Outcome::Differs, "What is there is no file");
  } else if (static_cast<std::uint64_t>(there->st_size) != take.size) {
    tell(
        take, Outcome::Differs,
        fmt::format("The take has {} bytes, the file that is there {}", take.size, there->st_size));
  } else if (isKnown(take)) {
    tell(take, Outcome::Kept);
  } else {
    compare(take);
  }
  skip(take);
}

// A link there may lead back to the card: nothing is written then, and what is there is no copy.
std::string CardCopy::whyNoPlace(const CardTake& take) const {
  if (!canBeXml(take.path.native())) {
    return "Its name is not UTF-8, and cannot stand in a manifest";
  }
  std::error_code error;
  const bool isOnCard = isInside(realPath(targetOf(take).parent_path(), error), _realCard);
  if (error) return error.message();
  if (isOnCard) return kHoldsFolder;
  return isSameFile(_card / take.path, targetOf(take)) ? "The target is the source itself" : "";
}

// As a manifest has it, and untouched since.
bool CardCopy::isKnown(const CardTake& take) const {
  const auto known = _manifests->files().find(take.path.native());
  const auto there = statusOf(targetOf(take));
  if (known == _manifests->files().end() || !there) return false;
  const std::int64_t apart = std::abs(std::int64_t{there->st_mtim.tv_sec} - take.modified.tv_sec);
  const bool isTold = _manifests->isTrusted(known->first) && !known->second.hash.empty();
  return isTold && known->second.size == take.size && apart <= kTimeGrain &&
         known->second.modified == Manifest::timeText(take.modified.tv_sec);
}

void CardCopy::compare(const CardTake& take) {
  const MediumStep step = this->step();
  const MediumContent source = MediumContent::of(_card / take.path, MediumFile::Way::Plain, step);
  if (!source.failure.empty()) return failToRead(take, source.failure);
  if (_wasCancelled) return;
  const MediumContent there = MediumContent::of(targetOf(take), MediumFile::Way::PastCache, step);
  if (!there.failure.empty()) return tell(take, Outcome::Differs, there.failure);
  if (_wasCancelled) return;
  if (there.hash != source.hash) {
    return tell(take, Outcome::Differs, "The file that is there has another content");
  }
  record(take, source.hash);
  tell(take, Outcome::Kept);
}

void CardCopy::copy(const CardTake& take) {
  std::error_code error;
  fs::create_directories(targetOf(take).parent_path(), error);
  if (error) return tell(take, Outcome::Failed, error.message());
  TakeCopy job(_card, take, step());
  const TakeCopy::End end = job.to(targetOf(take));
  if (end == TakeCopy::End::Cancelled) return;
  if (end == TakeCopy::End::Copied) {
    _copiedBytes += take.size;
    record(take, job.hash());
    return tell(take, Outcome::Copied);
  }
  if (end == TakeCopy::End::NotRead) return failToRead(take, job.failure());
  tell(take, Outcome::Failed, job.failure());
  if (job.isDiskFull()) fail(Obstacle::FolderFull, job.failure());
}

void CardCopy::failToRead(const CardTake& take, const std::string& reason) {
  tell(take, Outcome::Failed, reason);
  if (!statusOf(_card / take.path)) fail(Obstacle::CardGone, "The card is gone");
}

void CardCopy::fail(Obstacle obstacle, const std::string& reason) {
  _failure = meet(obstacle, reason);
}

void CardCopy::skip(const CardTake& take) {
  _doneBefore += 2 * take.size;
  _progress.done = _doneBefore;
  if (!hasEnded()) ++_progress.takesDone;
  tellProgress();
}

void CardCopy::tellProgress() const {
  if (!_tellProgress) return;
  Progress told = _progress;
  for (std::uint64_t* const bytes : {&told.done, &told.total, &told.worked}) *bytes /= 2;
  _tellProgress(told);
}

void CardCopy::record(const CardTake& take, const std::string& hash) {
  const auto known = _manifests->files().find(take.path.native());
  const bool isAgain = known != _manifests->files().end() && known->second.hash == hash;
  _manifest.entries.push_back(entryOf(take, hash, isAgain ? "verified" : "original"));
  _unsavedBytes += take.size;
}

void CardCopy::tell(const CardTake& take, Outcome outcome, const std::string& reason) {
  if (outcome == Outcome::Differs || outcome == Outcome::Failed) _isAllThere = false;
  if (_tellResult) _tellResult({take.path, outcome, reason});
}

// What a manifest calls verified has to be there after a power cut, too: names first. What may be
// lost is not told: the system tells of a failed sync once, so that no second one would help.
void CardCopy::saveManifest() {
  const std::error_code error = syncNames();
  if (error) {
    _manifest.entries.resize(_savedEntries);
    return fallShort(error.message());
  }
  fallShort(_manifests->save(_manifest));
  _savedEntries = _manifest.entries.size();
  _unsavedBytes = 0;
}

// Those of the takes since the last manifest, and of the folders that they are in.
std::error_code CardCopy::syncNames() const {
  std::set<fs::path> folders;
  for (std::size_t i = _savedEntries; i < _manifest.entries.size(); ++i) {
    fs::path folder = _manifest.entries[i].path;
    do folder = folder.parent_path();
    while (folders.insert(folder).second && !folder.empty());
  }
  for (const fs::path& folder : folders) {
    const std::error_code error = FolderSync::of(_destination / folder);
    if (error) return error;
  }
  return {};
}

// Told once, and also where something else had ended the copy: what was copied is in no manifest.
void CardCopy::fallShort(const std::string& reason) {
  if (reason.empty() || _obstacle == Obstacle::ManifestUnwritable) return;
  const std::string told = fmt::format("The manifest cannot be written: {}", reason);
  if (_failure.empty()) return fail(Obstacle::ManifestUnwritable, told);
  if (_manifestFailure.empty()) _manifestFailure = told;
}

MediumStep CardCopy::step() {
  _progress.done = _doneBefore;
  return [this](std::uint64_t bytes) {
    _progress.done += bytes;
    _progress.worked += bytes;
    tellProgress();
    return goesOn();
  };
}

bool CardCopy::goesOn() {
  _wasCancelled = _cancel != nullptr && _cancel->load(std::memory_order_relaxed);
  return !_wasCancelled;
}
