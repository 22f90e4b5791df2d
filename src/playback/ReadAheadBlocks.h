// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "playback/AudioFile.h"

class ThreadSignal;

/// The frames of a file that come next, kept at hand for one who must not wait: a worker owns the
/// file and fills blocks that were made beforehand, three seconds of them (at most 32 MiB, which
/// is less than that in an extreme format).
///
/// Blocks belong to a seek: a frame that is not the next one begins another, and what the worker
/// was reading for the one before is thrown away when it arrives. The first frame of a loop is the
/// next one after its last, so the turn is at hand like everything else, and
/// of a loop that is shorter than what is ahead all its turns are. Nobody waits for the
/// worker but who asks to (`waitForFirst`); it keeps the blocks alive by itself and closes the file
/// after `end`. Nothing throws.
///
/// Threads: the worker's is inside; `waitForFirst` is any one's, everything else the owner's.
class ReadAheadBlocks : public std::enable_shared_from_this<ReadAheadBlocks> {
 public:
  /// Of a file that is open and has frames. None where there is no memory or thread for it, with
  /// the reason in `whyNot`.
  static std::shared_ptr<ReadAheadBlocks> over(std::unique_ptr<AudioFile> file,
                                               std::string& whyNot);
  ReadAheadBlocks(const ReadAheadBlocks&) = delete;
  ReadAheadBlocks& operator=(const ReadAheadBlocks&) = delete;
  ~ReadAheadBlocks();

  /// Until half a second is at hand, or all there is.
  void waitForFirst();
  /// As `AudioFile::readFrames`, but late where fewer frames are at hand than asked for and more
  /// come before some of them are taken. After a failure that it has told, the file is read anew.
  AudioFile::Read take(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to);
  /// In which order frames are taken from here on. What is at hand and comes next all the same
  /// stays at hand.
  void setLoop(const std::optional<FrameLoop>& loop);
  /// Of the last failure that was told.
  [[nodiscard]] std::string failure() const;
  /// See `AudioFile`.
  void setArrived(std::function<void()> arrived);
  /// The worker ends as soon as it can, and nobody is told any more.
  void end();

 private:
  /// What a block holds, and which frame comes after it.
  struct Filled {
    std::uint32_t frames = 0;
    int error = 0;  ///< that came after them
    std::uint64_t next = 0;
  };

  ReadAheadBlocks(const AudioFormat& format, std::uint64_t frameCount);
  void work(AudioFile& file);
  void fillNext(AudioFile& file, std::unique_lock<std::mutex>& lock);
  [[nodiscard]] Filled readInOrder(AudioFile& file, std::uint64_t first,
                                   const std::optional<FrameLoop>& loop,
                                   std::span<std::byte> to) const;
  void keep(const Filled& filled);
  AudioFile::Read readEnd(std::uint64_t first);
  void announce();
  void seek(std::uint64_t first);
  void keepOnly(std::uint64_t frames);
  void copy(std::uint32_t frames, std::span<std::byte> to);
  [[nodiscard]] bool hasRoom() const { return !_isOver && _filled - _emptied < _frames.size(); }
  [[nodiscard]] std::span<std::byte> block(std::uint64_t number) const;
  [[nodiscard]] std::uint64_t atMost(std::uint64_t frames) const;

  const std::size_t _frameBytes;
  const std::uint64_t _frameCount;       ///< of the file
  const std::uint32_t _blockFrames;      ///< that a block holds
  const std::uint64_t _firstFrames;      ///< that are waited for
  std::unique_ptr<std::byte[]> _memory;  // NOLINT(*-avoid-c-arrays): not to be zeroed
  mutable std::mutex _mutex;             ///< guards all that follows, and blocks that are full
  std::condition_variable _room;
  std::condition_variable _progress;
  std::vector<std::uint32_t> _frames;  ///< in each block of the ring
  std::uint64_t _filled = 0;           ///< blocks, since the seek
  std::uint64_t _emptied = 0;
  std::uint32_t _takenOfFront = 0;  ///< frames
  std::uint64_t _held = 0;          ///< frames at hand
  std::uint64_t _position = 0;      ///< frame of the file that the first one at hand is
  std::uint64_t _next = 0;          ///< frame of the file that is read next
  std::optional<FrameLoop> _loop;
  std::uint64_t _seek = 0;     ///< how many there were
  std::uint64_t _awaited = 0;  ///< frames that a late read wants; 0: nobody waits
  bool _isOver = false;        ///< nothing more comes: `_error`, or the end
  bool _isToldOver = false;
  int _error = 0;
  std::string _failure;
  std::unique_ptr<ThreadSignal> _arrived;
  bool _hasEnded = false;
};
