// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "playback/AudioFile.h"

/// A medium that hangs when a test says so. Any thread. Outlives the files on it.
class HeldMedium {
 public:
  /// Reads that touch frames from this one on wait.
  void holdFrom(std::uint64_t frame) {
    const std::lock_guard lock(_mutex);
    _end = frame;
    _changed.notify_all();
  }
  void release() { holdFrom(UINT64_MAX); }
  /// A read gives no more than this at once.
  void giveAtMost(std::uint32_t frames) {
    const std::lock_guard lock(_mutex);
    _most = frames;
  }
  /// Until a read waits.
  void waitUntilHeld() {
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [this] { return _held > 0; });
  }
  /// Until no file is open on it.
  void waitUntilClosed() {
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [this] { return _files == 0; });
  }
  [[nodiscard]] std::uint64_t framesRead() const {
    const std::lock_guard lock(_mutex);
    return _read;
  }

  // For the file.
  void add(int files) {
    const std::lock_guard lock(_mutex);
    _files += files;
    _changed.notify_all();
  }
  std::uint32_t pass(std::uint64_t first, std::uint32_t frames) {
    std::unique_lock lock(_mutex);
    frames = std::min(frames, _most);
    while (first + frames > _end) {
      ++_held;
      _changed.notify_all();
      _changed.wait(lock);
      --_held;
    }
    _read += frames;
    return frames;
  }

 private:
  mutable std::mutex _mutex;
  std::condition_variable _changed;
  std::uint64_t _end = UINT64_MAX;
  std::uint64_t _read = 0;
  std::uint32_t _most = UINT32_MAX;
  int _held = 0;
  int _files = 0;
};

/// A file on a held medium.
class HeldFile : public AudioFile {
 public:
  HeldFile(HeldMedium& medium, std::unique_ptr<AudioFile> file)
      : _medium(medium), _file(std::move(file)) {
    _medium.add(1);
  }
  ~HeldFile() override { _medium.add(-1); }

  bool open(const std::string& path) override { return _file->open(path); }
  [[nodiscard]] std::string failure() const override { return _file->failure(); }
  [[nodiscard]] AudioFormat format() const override { return _file->format(); }
  [[nodiscard]] std::uint64_t frameCount() const override { return _file->frameCount(); }
  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override {
    const std::uint64_t left = frameCount() - std::min(first, frameCount());
    const auto wanted = static_cast<std::uint32_t>(std::min<std::uint64_t>(frames, left));
    const std::uint32_t given = _medium.pass(first, wanted);
    return _file->readFrames(first, wanted > 0 ? given : frames, to);
  }

 private:
  HeldMedium& _medium;
  std::unique_ptr<AudioFile> _file;
};
