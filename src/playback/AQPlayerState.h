// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "playback/AudioFile.h"
#include "playback/AudioFormat.h"
#include "playback/AudioOutput.h"
#include "playback/AudioQueue.h"
#include "playback/FrameLoop.h"
#include "playback/LoopTurns.h"

/// The player counts positions and times in milliseconds.
constexpr double kMsPerSecond = 1000.0;

/// Called with each freshly filled buffer, the file's format, and the packet at which the buffer
/// starts. May change the samples in place.
using AQDataCallback =
    std::function<void(AudioQueueBuffer& buffer, const AudioFormat& format, std::int64_t packet)>;

/// What there is to know of a playing file; see `PlayingFile`. Owner's thread only.
struct AQPlayerState {
  AudioFormat dataFormat;
  std::unique_ptr<AudioOutput> output;   ///< kept from queue to queue, so that a seek is quick
  std::unique_ptr<AudioQueue> queue;     ///< null when there is none
  std::unique_ptr<AudioFile> audioFile;  ///< null when closed
  std::uint32_t bufferByteSize = 0;
  std::int64_t currentPacket = 0;   ///< next one to read
  std::optional<FrameLoop> loop;    ///< packets that are played over and over
  LoopTurns turns;                  ///< of what is queued
  std::int64_t packetOfBuffer = 0;  ///< at which the buffer starts that is being filled
  std::uint32_t numPacketsToRead = 0;
  std::uint64_t packetCount = 0;
  bool isRunning = false;  ///< nothing reads it; the queue knows whether it runs
  bool isDone = false;     ///< read to the end, or a read failed
  /// Buffers of the queue, for frames that are late; the first one may have some already.
  std::vector<AudioQueueBuffer*> waiting;
  bool isInitialized = false;
  std::string openedPath;
  double durationSeconds = 0;
  std::shared_ptr<const AQDataCallback> dataCallback;  ///< shared with a call under way

  std::function<void(const std::string& why)> lostCallback;
  float volume = 1.0F;          ///< for an output made anew
  std::uint64_t underruns = 0;  ///< of outputs that are gone
  std::string readFailure;      ///< see `AQPlayer`
};
