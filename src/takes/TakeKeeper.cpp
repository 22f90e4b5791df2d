// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/TakeKeeper.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace {

bool isAt(const std::filesystem::path& place, const std::filesystem::path& take) {
  return take == place || take.native().starts_with((place / "").native());
}

bool isAmong(const std::vector<ExportNote>& notes, const ExportNote& note) {
  return std::ranges::find(notes, note.target, &ExportNote::target) != notes.end();
}

}  // namespace

class TakeKeeper::Desk {
 public:
  explicit Desk(const std::filesystem::path& file) : _memory(file) {}

  /// What is to be written: what a take was heard with, or an export.
  struct Entry {
    std::string take;  ///< empty of an export
    RememberedSound sound;
    ExportNote note;
  };

  void put(const Entry& entry, const std::shared_ptr<Desk>& self);
  void close();
  std::optional<RememberedSound> find(const std::string& take);
  std::vector<ExportNote> exportsOf(const std::filesystem::path& place);
  bool flush(std::chrono::milliseconds most, const std::shared_ptr<Desk>& self);
  TakeMemory::Trouble takeTrouble() { return _trouble.exchange(TakeMemory::Trouble::None); }

 private:
  using Given = std::shared_ptr<const Entry>;

  /// The memory, which nobody else uses meanwhile. What went wrong is kept, whatever ends it.
  class Use {
   public:
    explicit Use(Desk& desk) : _desk(desk), _lock(desk._using) {}
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use() { _desk.keep(_desk._memory.takeTrouble()); }
    TakeMemory* operator->() { return &_desk._memory; }

   private:
    Desk& _desk;
    std::lock_guard<std::mutex> _lock;
  };

  void start(const std::shared_ptr<Desk>& self);
  void work();
  Given next();
  void write(const Entry& entry);
  void keep(TakeMemory::Trouble trouble);
  std::optional<RememberedSound> pending(const std::string& take);
  std::vector<ExportNote> pendingExports();

  std::mutex _using;   ///< held while the memory is used
  TakeMemory _memory;  ///< of whoever holds that
  std::atomic<TakeMemory::Trouble> _trouble{TakeMemory::Trouble::None};
  std::mutex _mutex;  ///< guards all that follows; never held while the medium is waited for
  std::condition_variable _wanted;
  std::condition_variable _written;
  std::vector<Given> _waiting;  ///< oldest first
  Given _underWay;              ///< being written; null for none
  bool _isStarted = false;
  bool _isClosed = false;
};

void TakeKeeper::Desk::put(const Entry& entry, const std::shared_ptr<Desk>& self) {
  auto given = std::make_shared<const Entry>(entry);
  const std::lock_guard lock(_mutex);
  std::erase_if(_waiting, [&](const Given& other) {
    return other->take == entry.take && other->note.target == entry.note.target;
  });
  _waiting.push_back(std::move(given));
  if (!_isStarted) start(self);
  _wanted.notify_one();
}

// Without a thread it waits until another is given or all is waited for.
void TakeKeeper::Desk::start(const std::shared_ptr<Desk>& self) {
  try {
    std::thread([self] { self->work(); }).detach();
    _isStarted = true;
  } catch (const std::exception&) {
    _isStarted = false;
  }
}

void TakeKeeper::Desk::work() {
  while (const Given entry = next()) write(*entry);
}

// What there is no memory for is not remembered.
void TakeKeeper::Desk::write(const Entry& entry) {
  try {
    Use memory(*this);
    if (entry.take.empty()) {
      memory->noteExport(entry.note);
    } else {
      memory->remember(entry.take, entry.sound);
    }
  } catch (const std::exception&) {
    keep(TakeMemory::Trouble::OutOfReach);
  }
}

// That a file was set aside happens once, and goes before what would be told the next time too.
void TakeKeeper::Desk::keep(TakeMemory::Trouble trouble) {
  using Trouble = TakeMemory::Trouble;
  if (trouble == Trouble::SetAside) {
    _trouble = trouble;
  } else {
    auto none = Trouble::None;
    _trouble.compare_exchange_strong(none, trouble);
  }
}

// Tells that the one before is written, too.
TakeKeeper::Desk::Given TakeKeeper::Desk::next() {
  std::unique_lock lock(_mutex);
  _underWay.reset();
  _written.notify_all();
  _wanted.wait(lock, [this] { return !_waiting.empty() || _isClosed; });
  if (_waiting.empty()) return nullptr;
  _underWay = std::move(_waiting.front());
  _waiting.erase(_waiting.begin());
  return _underWay;
}

void TakeKeeper::Desk::close() {
  const std::lock_guard lock(_mutex);
  _isClosed = true;
  _wanted.notify_one();
}

std::optional<RememberedSound> TakeKeeper::Desk::pending(const std::string& take) {
  const std::lock_guard lock(_mutex);
  const auto isIt = [&](const Given& entry) { return entry->take == take; };
  const auto found = std::ranges::find_if(_waiting, isIt);
  if (found != _waiting.end()) return (*found)->sound;
  if (_underWay && isIt(_underWay)) return _underWay->sound;
  return std::nullopt;
}

std::optional<RememberedSound> TakeKeeper::Desk::find(const std::string& take) {
  auto sound = pending(take);
  if (sound) return sound;
  return Use(*this)->find(take);
}

std::vector<ExportNote> TakeKeeper::Desk::pendingExports() {
  const std::lock_guard lock(_mutex);
  std::vector<ExportNote> notes;
  for (const Given& entry : _waiting) {
    if (entry->take.empty()) notes.push_back(entry->note);
  }
  if (_underWay && _underWay->take.empty() && !isAmong(notes, _underWay->note)) {
    notes.push_back(_underWay->note);
  }
  return notes;
}

// What is pending first: it may be written by the time that the memory is asked.
std::vector<ExportNote> TakeKeeper::Desk::exportsOf(const std::filesystem::path& place) {
  std::vector<ExportNote> found = pendingExports();
  const auto written = Use(*this)->exportsOf(place);
  for (const ExportNote& note : written) {
    if (!isAmong(found, note)) found.push_back(note);
  }
  std::erase_if(found, [&](const ExportNote& note) { return !isAt(place, note.source); });
  return found;
}

bool TakeKeeper::Desk::flush(std::chrono::milliseconds most, const std::shared_ptr<Desk>& self) {
  std::unique_lock lock(_mutex);
  if (!_isStarted && !_waiting.empty()) start(self);
  return _written.wait_for(lock, most, [this] { return _waiting.empty() && !_underWay; });
}

TakeKeeper::TakeKeeper(const std::filesystem::path& file) : _desk(std::make_shared<Desk>(file)) {}

TakeKeeper::~TakeKeeper() {
  _desk->close();
}

void TakeKeeper::remember(const std::string& take, const RememberedSound& sound) {
  _desk->put({take, sound, {}}, _desk);
}

void TakeKeeper::noteExport(const ExportNote& note) {
  _desk->put({{}, {}, note}, _desk);
}

std::vector<ExportNote> TakeKeeper::exportsOf(const std::filesystem::path& place) {
  return _desk->exportsOf(place);
}

std::optional<RememberedSound> TakeKeeper::find(const std::string& take) {
  return _desk->find(take);
}

bool TakeKeeper::flush(std::chrono::milliseconds most) {
  return _desk->flush(most, _desk);
}

TakeMemory::Trouble TakeKeeper::takeTrouble() {
  return _desk->takeTrouble();
}
