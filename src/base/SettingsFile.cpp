// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "base/DamagedFile.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kPrivate = 0600;
constexpr std::size_t kMostBytes = 1 << 20;  // far above what two keys can need
constexpr int kMostLinks = 40;
constexpr auto kLockPoll = std::chrono::milliseconds(1);

constexpr std::string_view kPartEnding = ".part-";
constexpr std::string_view kAnyPart = ".part-XXXXXX";

/// Tells one state of a file from the next: each save makes a new file.
ino_t stateOf(const fs::path& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

/// Holds the lock beside a settings file, or goes on without where the patience is at its end.
class FileLock {
 public:
  FileLock(const fs::path& settings, const SettingsFile::Patience& patience)
      : _file(open((settings.native() + ".lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, kPrivate)) {
    const auto start = Clock::now();
    auto end = start + patience.unsaved;
    for (ino_t seen = stateOf(settings); _file >= 0 && flock(_file, LOCK_EX | LOCK_NB) != 0;) {
      const ino_t now = stateOf(settings);
      if (std::exchange(seen, now) != now) end = Clock::now() + patience.unsaved;
      if (Clock::now() > std::min(end, start + patience.most)) return;
      std::this_thread::sleep_for(kLockPoll);
    }
    _isHeld = _file >= 0;
  }
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock() {
    if (_file >= 0) close(_file);
  }

  [[nodiscard]] bool isHeld() const { return _isHeld; }

 private:
  using Clock = std::chrono::steady_clock;

  int _file;
  bool _isHeld = false;
};

fs::path with(const fs::path& path, std::string_view ending) {
  fs::path result = path;
  return result += ending;
}

/// Takes away what killed programs left. Whoever writes has its file locked.
void removeLeftovers(const fs::path& settings) {
  const std::string begin = with(settings.filename(), kPartEnding).native();
  std::error_code error;
  for (fs::directory_iterator entry(settings.parent_path(), error), end; !error && entry != end;
       entry.increment(error)) {
    if (!entry->path().filename().native().starts_with(begin)) continue;
    const int file = open(entry->path().c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0) continue;
    if (flock(file, LOCK_EX | LOCK_NB) == 0) unlink(entry->path().c_str());
    close(file);
  }
}

bool readAll(int file, std::string& text) {
  struct stat status {};
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return false;
  std::array<char, 4096> block{};
  for (;;) {
    const ssize_t got = read(file, block.data(), block.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got == 0;
    text.append(block.data(), static_cast<std::size_t>(got));
    if (text.size() > kMostBytes) return false;
  }
}

bool writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t done = write(file, text.data(), text.size());
    if (done < 0 && errno == EINTR) continue;
    if (done < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(done));
  }
  return fsync(file) == 0;
}

// A link, as people use to share their settings between machines, stays one.
fs::path withoutLinks(fs::path path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
    const fs::path to = fs::read_symlink(path, error);
    path = to.is_absolute() ? to : path.parent_path() / to;
  }
  return path;
}

}  // namespace

SettingsFile::SettingsFile(fs::path path, Patience patience)
    : _path(withoutLinks(std::move(path))), _patience(patience) {}

fs::path SettingsFile::defaultPath() {
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  const bool isUsable = config != nullptr && *config == '/';  // relative ones are to be ignored
  const char* const home = std::getenv("HOME");
  const fs::path folder = isUsable ? fs::path(config) : fs::path(home ? home : "/") / ".config";
  return folder / "mixdeck" / "settings";
}

std::optional<SettingsText::Values> SettingsFile::load() const {
  const int file = open(_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return std::nullopt;
  std::string text;
  bool isRead = false;
  try {
    isRead = readAll(file, text);
  } catch (...) {  // no memory
    close(file);
    throw;
  }
  close(file);
  return isRead ? SettingsText::read(text) : std::nullopt;
}

SettingsText::Values SettingsFile::loadOrSetAside() const {
  if (auto values = load()) return *std::move(values);
  DamagedFile::setAside(_path);
  return {};
}

std::optional<std::string> SettingsFile::get(const std::string& key) const {
  const auto values = load();
  if (!values) return std::nullopt;
  const auto found = values->find(key);
  return found == values->end() ? std::nullopt : std::optional(found->second);
}

bool SettingsFile::set(const std::string& key, const std::string& value) const {
  std::error_code error;
  fs::create_directories(_path.parent_path(), error);
  const FileLock lock(_path, _patience);
  if (lock.isHeld()) removeLeftovers(_path);
  SettingsText::Values values = loadOrSetAside();
  values[key] = value;
  return save(values);
}

bool SettingsFile::save(const SettingsText::Values& values) const {
  const std::string text = SettingsText::write(values);
  std::string name = with(_path, kAnyPart).native();
  const int file = mkostemp(name.data(), O_CLOEXEC);
  if (file < 0) return false;
  flock(file, LOCK_EX | LOCK_NB);
  const bool isWritten = writeAll(file, text);
  close(file);
  if (isWritten && std::rename(name.c_str(), _path.c_str()) == 0) return true;
  unlink(name.c_str());
  return false;
}
