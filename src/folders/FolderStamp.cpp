// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderStamp.h"

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <ctime>

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kCoarsest = 3 * kSecond;

std::int64_t nanoseconds(const timespec& time) {
  return time.tv_sec * kSecond + time.tv_nsec;
}

// The headers of the system have no name for it.
constexpr std::uint64_t kNtfs = 0x7366746E;

bool isOnFileSystemWithTimes(const std::filesystem::path& folder) {
  struct statfs system {};
  return statfs(folder.c_str(), &system) == 0 &&
         FolderStamp::keepsFolderTimes(static_cast<std::uint32_t>(system.f_type));
}

}  // namespace

bool FolderStamp::keepsFolderTimes(std::uint64_t magic) {
  static constexpr std::array<std::uint64_t, 11> kKnown = {
      EXT4_SUPER_MAGIC,  XFS_SUPER_MAGIC, BTRFS_SUPER_MAGIC,     F2FS_SUPER_MAGIC,
      TMPFS_MAGIC,       RAMFS_MAGIC,     OVERLAYFS_SUPER_MAGIC, MSDOS_SUPER_MAGIC,
      EXFAT_SUPER_MAGIC, kNtfs,           UDF_SUPER_MAGIC};
  return std::ranges::find(kKnown, magic) != kKnown.end();
}

FolderStamp::FolderStamp(const std::filesystem::path& folder) {
  struct stat status {};
  timespec now{};
  if (stat(folder.c_str(), &status) != 0 || clock_gettime(CLOCK_REALTIME, &now) != 0) return;
  // FAT keeps no times of its topmost folder: they are 0 for ever.
  _isTelling = status.st_mtim.tv_sec != 0 && isOnFileSystemWithTimes(folder);
  _device = status.st_dev;
  _inode = status.st_ino;
  _changed = nanoseconds(status.st_mtim);
  _rightsChanged = nanoseconds(status.st_ctim);
  _taken = nanoseconds(now);
}

bool FolderStamp::provesUnchangedSince(const FolderStamp& before) const {
  if (!_isTelling || !before._isTelling) return false;
  if (_device != before._device || _inode != before._inode) return false;
  if (_rightsChanged != before._rightsChanged) return false;
  return _changed == before._changed && before._taken - before._changed > kCoarsest;
}
