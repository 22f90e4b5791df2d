// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <thread>
#include <vector>

#include "HeldFile.h"
#include "PlaybackFixture.h"
#include "playback/ReadAheadFile.h"
#include "support/CoreApplication.h"

inline constexpr std::uint32_t kBuffer = 4800;
inline constexpr std::uint32_t kBlock = 6000;  ///< an eighth of a second

/// A file that is read ahead on a medium that hangs on demand.
class ReadAheadFixture : public PlaybackFixture {
 protected:
  void TearDown() override {
    medium.release();
    medium.waitUntilClosed();
    PlaybackFixture::TearDown();
  }

  std::unique_ptr<ReadAheadFile> make() {
    auto file = std::make_unique<MemoryAudioFile>(format, packets);
    file->failAt(badFrame, 7);
    return std::make_unique<ReadAheadFile>(std::make_unique<HeldFile>(medium, std::move(file)));
  }
  std::unique_ptr<ReadAheadFile> opened() {
    auto file = make();
    EXPECT_TRUE(file->open("x"));
    return file;
  }
  void usePlayers() {
    AudioBackends::addFile("ahead", [this] { return make(); });
    AudioBackends::chooseFile("ahead");
  }
  /// Reads one buffer, asking for it again as long as it is late.
  AudioFile::Read read(AudioFile& file, std::uint64_t first, std::uint32_t frames = kBuffer) {
    buffer.assign(std::size_t{frames} * format.bytesPerPacket, std::byte{0});
    AudioFile::Read got = file.readFrames(first, frames, buffer);
    while (got.isLate) {
      std::this_thread::yield();
      got = file.readFrames(first, frames, buffer);
    }
    buffer.resize(std::size_t{got.frames} * format.bytesPerPacket);
    return got;
  }
  [[nodiscard]] std::vector<std::byte> frames(std::uint64_t first, std::uint64_t end) const {
    const auto at = [this](std::uint64_t frame) {
      return packets.begin() + static_cast<std::ptrdiff_t>(frame * format.bytesPerPacket);
    };
    return {at(first), at(end)};
  }
  void waitUntilRead(std::uint64_t count) const {
    while (medium.framesRead() < count) std::this_thread::yield();
  }

  CoreApplication application;
  HeldMedium medium;
  std::vector<std::byte> buffer;
};
