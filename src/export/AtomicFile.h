// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <span>
#include <string>

/// A file that appears whole or not at all.
///
/// Bytes go to an unnamed temporary file in the target's folder (a hidden named one where the file
/// system knows no unnamed files, as FAT); `commit` gives it the target's name. A failure, a full
/// disk or a kill at any moment leaves the old file or the new file whole. Where a file is replaced
/// its data is flushed to disk first, and its permissions are kept, its owner and group where the
/// user may give files away; a symbolic link keeps pointing to its target, which is what gets
/// replaced. A kill while a file has a name of its own, on a file system without unnamed files or
/// between the two steps of a replacement, can leave a hidden ".mixdeck-*.part" behind; the next
/// replacement in that folder removes it, and the next save where files cannot be unnamed.
///
/// Nothing throws: operations return false, and `failure` tells why. One thread at a time.
class AtomicFile {
 public:
  enum class Existing { Replace, Refuse };

  /// What a save to `path` makes or replaces: follows symbolic links of the last component, to a
  /// name that may not exist yet.
  static std::filesystem::path resolveLinks(std::filesystem::path path);

  /// Why no file of so many bytes could be saved there, as far as that is known without making one;
  /// empty where nothing stands against it.
  static std::string whyNot(const std::filesystem::path& target, Existing existing,
                            std::uint64_t bytes);

  AtomicFile(const std::filesystem::path& target, Existing existing);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  /// Without a `commit` nothing remains.
  ~AtomicFile();

  /// False when the target's medium has less than `bytes` left.
  bool hasRoomFor(std::uint64_t bytes);
  /// Has the file system set room aside for so many bytes where that is quick: they are written
  /// more quickly then, and lie together. A hint: what does not fit is told by `write`.
  void expect(std::uint64_t bytes);
  /// Appends.
  bool write(std::span<const std::byte> bytes);
  /// Overwrites what has been written before, `offset` bytes from the start.
  bool writeAt(std::uint64_t offset, std::span<const std::byte> bytes);
  /// Has the disk begin with what was written by now: a later `sync` waits less. A hint, which
  /// promises nothing.
  void beginSync();
  /// Has all that was written by now on the disk.
  bool sync();
  /// What time of change the file tells; the time of the last write, unless this says otherwise,
  /// and where the file system lets nobody, or not us, set it.
  bool setModified(const timespec& time);
  /// Where the file can be read until it is committed, in this process alone.
  [[nodiscard]] std::filesystem::path readablePath() const;
  /// Publishes the file under the target's name. Nothing can be written after it. Where it replaced
  /// one and its disk then fails, it is there, but may be lost with the power: that is a failure.
  bool commit();

  /// Why an operation failed; empty as long as none did.
  [[nodiscard]] const std::string& failure() const { return _failure; }
  /// The system's number for it; 0 as long as none failed, or where it has none.
  [[nodiscard]] int error() const { return _error; }

 private:
  struct Place {
    std::filesystem::path target;
    bool mayReplace;
  };

  explicit AtomicFile(const Place& place);
  bool fail(int error);
  bool examineTarget();
  bool examineFolder();
  bool openUnnamed();
  bool openNamed();
  bool createNamed();
  bool takeOverAttributes();
  bool flush();
  bool publishUnnamed();
  bool publishNamed();
  bool replace();
  void removeLeftovers();
  void discard();

  std::filesystem::path _target;  ///< links resolved
  std::filesystem::path _folder;
  std::filesystem::path _temporary;  ///< empty while the file has no name
  int _file = -1;
  bool _mayReplace;
  bool _replaces = false;
  std::string _failure;
  int _error = 0;
};
