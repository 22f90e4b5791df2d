// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "playback/AudioFile.h"

/// A file that seems to end early. Owner's thread.
class LimitedAudioFile : public AudioFile {
 public:
  /// Ends after this many seconds of `file`, rounded to whole frames, if not earlier.
  LimitedAudioFile(std::unique_ptr<AudioFile> file, double seconds);

  bool open(const std::string& path) override { return _file->open(path); }
  [[nodiscard]] std::string failure() const override { return _file->failure(); }
  [[nodiscard]] AudioFormat format() const override { return _file->format(); }
  [[nodiscard]] std::uint64_t frameCount() const override;
  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override;
  void setLoop(const std::optional<FrameLoop>& loop) override { _file->setLoop(loop); }
  void setArrived(std::function<void()> arrived) override { _file->setArrived(std::move(arrived)); }

 private:
  std::unique_ptr<AudioFile> _file;
  double _seconds;
};
