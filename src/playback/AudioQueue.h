// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "playback/AudioFormat.h"
#include "playback/AudioOutput.h"
#include "playback/SpscRing.h"

/// Three buffers that rotate between a player and an output.
///
/// The owner fills a buffer and enqueues it; the output's thread takes the samples out, converts
/// them to floats and hands the empty buffer back through a ring without locks; the owner's event
/// loop then calls `refill` with it. Nothing in here allocates or locks for a buffer; what the
/// event loop and the sound system's library do on their way is theirs.
///
/// Threads: `pull` on the output's, everything else and all callbacks on the owner's. Every
/// callback may delete the queue.
class AudioQueue : private AudioSource, private AudioOutputListener {
 public:
  static constexpr std::size_t kBuffers = 3;

  struct Callbacks {
    std::function<void(AudioQueueBuffer&)> refill;           ///< a buffer has been played
    std::function<void()> runningChanged;                    ///< `isRunning` has
    std::function<void(const std::string& why)> outputLost;  ///< see `isLost`
  };
  enum class Stop {
    Immediately,   ///< what is queued is thrown away; `runningChanged` before `stop` returns
    AfterDraining  ///< what is queued is played first; also on a queue that has yet to start
  };

  /// `output` outlives the queue, which is its only user from here on.
  AudioQueue(AudioOutput& output, const AudioFormat& format, Callbacks callbacks);
  AudioQueue(const AudioQueue&) = delete;
  AudioQueue& operator=(const AudioQueue&) = delete;
  /// Ends at once and reports nothing.
  ~AudioQueue() override;

  /// Gives every buffer this many bytes; before anything else.
  void allocateBuffers(std::uint32_t byteSize);
  std::array<AudioQueueBuffer, kBuffers>& buffers() { return _buffers; }

  /// Has the buffer, with one frame at least, played after those already queued. It is the output's
  /// until `refill` is called with it.
  void enqueue(AudioQueueBuffer& buffer);
  /// Takes back every buffer, unheard, and sets the clock to 0. Not a stop: nothing is reported.
  void rewind();

  /// Begins or goes on at once.
  void start();
  /// Halts and keeps what is queued; the queue counts as running.
  void pause();
  void stop(Stop how);

  [[nodiscard]] bool isRunning() const { return _isRunning; }
  /// The output has gone; nothing plays any more.
  [[nodiscard]] bool isLost() const { return _isLost; }
  /// Frames heard since the queue was started.
  [[nodiscard]] double sampleTime() const { return _output.framesPlayed(); }

 private:
  Pulled pull(std::span<float> to) override;
  std::size_t copyFrames(const AudioQueueBuffer& buffer, std::span<float> to);
  void outputProgressed() override;
  void outputDrained() override;
  void outputLost(const std::string& why) override;
  void setRunning(bool isRunning);

  AudioOutput& _output;
  AudioFormat _format;
  Callbacks _callbacks;
  std::array<std::vector<std::byte>, kBuffers> _storage;
  std::array<AudioQueueBuffer, kBuffers> _buffers;
  SpscRing<AudioQueueBuffer*, kBuffers> _queued;  ///< owner to output
  SpscRing<AudioQueueBuffer*, kBuffers> _played;  ///< output to owner
  std::size_t _frameInFront = 0;  ///< the output's: frames taken of the first buffer
  std::shared_ptr<bool> _isAlive = std::make_shared<bool>(true);  ///< held weakly by its operations
  bool _isRunning = false;
  bool _isStopping = false;
  bool _isLost = false;
};
