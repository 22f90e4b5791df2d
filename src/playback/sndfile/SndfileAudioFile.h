// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "playback/AudioFile.h"

/// A WAVE file (RIFF, RIFX, RF64) through libsndfile. Integer and float samples come as they are
/// stored; everything else (compressed, 64-bit float) as decoded 32-bit floats.
class SndfileAudioFile : public AudioFile {
 public:
  SndfileAudioFile();
  ~SndfileAudioFile() override;

  bool open(const std::string& path) override;
  [[nodiscard]] std::string failure() const override { return _failure; }
  [[nodiscard]] AudioFormat format() const override { return _format; }
  [[nodiscard]] std::uint64_t frameCount() const override { return _frameCount; }
  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override;

 private:
  struct Handle;

  bool examine();
  bool fail(const std::string& why);
  std::int64_t readStored(std::span<std::byte> to);

  std::unique_ptr<Handle> _handle;  ///< keeps the library out of the header
  AudioFormat _format;
  std::uint64_t _frameCount = 0;
  std::uint64_t _position = 0;  ///< frame that the library reads next
  bool _isDecoded = false;      ///< the library turns the samples into floats
  std::string _failure;
};
