// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "playback/AudioFile.h"
#include "wav/WaveImage.h"
#include "wav/WaveIndex.h"

/// A WAVE file by the rules of `WaveIndex`, which every other part of the program reads by, so that
/// the player finds the same frames in it. The samples come as they are stored: 8-, 16-, 24- and
/// 32-bit integers and 32-bit floats, also in a file that gives its format in the extensible way.
/// Anything else, compressed sound and 64-bit floats, is not opened.
///
/// It has a descriptor of its own and reads each buffer from the file: nothing is held that grows
/// with the file. The end of a file that was deleted meanwhile is told as a failure, although all
/// of it was read.
class WaveAudioFile : public AudioFile {
 public:
  bool open(const std::string& path) override;
  [[nodiscard]] std::string failure() const override { return _failure; }
  [[nodiscard]] AudioFormat format() const override { return _format; }
  [[nodiscard]] std::uint64_t frameCount() const override { return _frameCount; }
  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override;

 private:
  bool examine(const WaveIndex& index);
  void examineExtension(const WaveIndex& index);
  Read end();
  bool fail(const std::string& why);

  std::shared_ptr<const WaveImage> _image;  ///< never followed: a descriptor and a size
  AudioFormat _format;
  std::uint64_t _encoding = 0;  ///< format tag of the samples
  std::uint64_t _dataStart = 0;
  std::uint64_t _frameCount = 0;
  std::string _failure;
};
