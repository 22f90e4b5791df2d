// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "playback/AudioFile.h"
#include "playback/ReadAheadBlocks.h"

/// A file that is read on a worker, three seconds ahead of whoever plays it: reading never waits
/// for the medium, but may be late.
///
/// `open`, once, waits until the file is open and its first half second at hand. Everything else
/// returns at once, the destructor too: the worker closes the file.
class ReadAheadFile : public AudioFile {
 public:
  explicit ReadAheadFile(std::unique_ptr<AudioFile> file);
  ~ReadAheadFile() override;

  bool open(const std::string& path) override;
  [[nodiscard]] std::string failure() const override;
  [[nodiscard]] AudioFormat format() const override { return _format; }
  [[nodiscard]] std::uint64_t frameCount() const override { return _frameCount; }
  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override;
  void setLoop(const std::optional<FrameLoop>& loop) override;
  void setArrived(std::function<void()> arrived) override;

 private:
  void readAhead(std::unique_ptr<AudioFile> file);

  std::unique_ptr<AudioFile> _file;          ///< until `open`
  std::shared_ptr<ReadAheadBlocks> _blocks;  ///< null where there is nothing to read
  AudioFormat _format;
  std::uint64_t _frameCount = 0;
  bool _isOpen = false;
  std::string _failure;  ///< of `open`
};
