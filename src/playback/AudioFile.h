// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "playback/AudioFormat.h"
#include "playback/FrameLoop.h"

/// The seam to what reads sound files.
///
/// Lifetime: one file, opened once; the destructor closes it. Thread: any, one at a time. Whatever
/// touches the file waits for the medium, and for nothing else, unless it says otherwise. Failures
/// are told, not thrown.
class AudioFile {
 public:
  /// What a read brought: frames, 0 at the end, and an error number, 0 when all went well. Or
  /// nothing yet: it is late, and is to be asked for again, see `setArrived`.
  struct Read {
    std::uint32_t frames = 0;
    int error = 0;
    bool isLate = false;
  };

  AudioFile() = default;
  AudioFile(const AudioFile&) = delete;
  AudioFile& operator=(const AudioFile&) = delete;
  virtual ~AudioFile() = default;

  /// Opens a WAVE file (path in the file system's own bytes). False with a reason in `failure`.
  virtual bool open(const std::string& path) = 0;
  /// Why `open` or the last read failed; empty when it did not.
  [[nodiscard]] virtual std::string failure() const = 0;
  /// All zero without an open file.
  [[nodiscard]] virtual AudioFormat format() const = 0;
  [[nodiscard]] virtual std::uint64_t frameCount() const = 0;
  /// Reads up to `frames` whole frames from frame `first` on into `to`, which holds them. No
  /// allocation but for the words of a failure.
  virtual Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) = 0;
  /// Which frames are going to be read over and over; none: in order. A hint for a file that reads
  /// ahead: `readFrames` is asked for each frame as it comes all the same.
  virtual void setLoop(const std::optional<FrameLoop>& /*loop*/) {}
  /// Whom to tell, from the event loop of the thread that calls this, that what was late has come.
  /// A file that waits for the medium is never late.
  virtual void setArrived(std::function<void()> /*arrived*/) {}
};
