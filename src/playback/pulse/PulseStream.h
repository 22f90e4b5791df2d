// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <cstdint>
#include <string>

#include "playback/VolumeRamp.h"
#include "playback/pulse/PulseControls.h"

/// The one stream of an output, on the output's thread. Every operation returns at once; answers
/// come through the main loop.
class PulseStream {
 public:
  using Clock = std::chrono::steady_clock;

  explicit PulseStream(PulseControls& controls);
  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;
  ~PulseStream() { disconnect(); }

  /// Whether any server would take the format, and why not.
  [[nodiscard]] bool isFormatTaken() const;
  [[nodiscard]] std::string whyNotTaken() const;
  /// Where the server has each channel played. Without speakers in the format, those that a WAVE
  /// file's channels are usually for.
  static pa_channel_map channelMap(const AudioOutput::Format& format);

  /// Asks a ready context for the stream, which stands still at first. False where that failed.
  bool connect(pa_context* context);
  void disconnect();
  [[nodiscard]] bool isConnected() const { return _stream != nullptr; }
  [[nodiscard]] bool isReady() const;
  [[nodiscard]] bool hasFailed() const;

  /// Brings the stream nearer to what the owner wishes. After every round of the main loop.
  void service();

  /// Asks the server for a sign of life.
  void ping();
  /// When the server was last heard of.
  [[nodiscard]] Clock::time_point lastLife() const { return _lastLife; }
  void noteLife() { _lastLife = Clock::now(); }
  /// Nothing that has been waited for is late by now.
  void forgiveSilence();
  /// Something should be happening at the server.
  [[nodiscard]] bool isBusy() const;
  /// For two seconds nothing has moved, or a flush has not been answered, although it should. What
  /// drains may stand still: a drain ends all the same.
  [[nodiscard]] bool isStuck() const;
  /// Nothing more will be heard.
  void stopClock();

 private:
  static void onFlushed(pa_stream* stream, int success, void* self);
  static void onFlushTiming(pa_stream* stream, int success, void* self);
  static void onDrained(pa_stream* stream, int success, void* self);
  static void onLatency(pa_stream* stream, void* self);
  static void onUnderflow(pa_stream* stream, void* self);
  static void onLife(pa_stream* stream, void* self);
  static void onDone(pa_stream* stream, int success, void* self);

  [[nodiscard]] pa_sample_spec sampleSpec() const;
  [[nodiscard]] pa_buffer_attr bufferAttributes() const;
  [[nodiscard]] std::uint32_t bytesOf(double seconds) const;
  void setCallbacks();
  [[nodiscard]] bool isFlushDue() const;
  void beginFlush();
  void endFlush();
  void abandonDrain();
  void fill();
  bool writeBlock(std::size_t bytes);
  void cork();
  void drain();
  [[nodiscard]] bool isDrainOverdue() const;
  void endDrain();
  void publishTime();
  void noteProgress(std::int64_t readIndex, bool shouldMove);
  [[nodiscard]] double framesAt(std::int64_t index) const;

  PulseControls& _controls;
  pa_stream* _stream = nullptr;
  pa_operation* _drainOperation = nullptr;
  VolumeRamp _ramp;
  std::size_t _frameBytes;
  std::int64_t _base = 0;  ///< index in the stream at which the clock reads 0
  bool _isFlushing = false;
  std::uint32_t _flushSerial = 0;  ///< of the flush under way
  bool _isCorked = true;
  bool _isDry = false;         ///< the source had nothing in the last round
  bool _isDrainAsked = false;  ///< of the server, and not over yet
  bool _isDrained = false;     ///< all that the source had has been heard
  Clock::time_point _lastLife = Clock::now();
  std::int64_t _lastReadIndex = 0;
  Clock::time_point _lastProgress = Clock::now();
  bool _shouldMove = false;
  Clock::time_point _lastToTake = Clock::now();  ///< the server took some and had yet to take more
  std::chrono::microseconds _delay{0};           ///< of the device, as the server last told
  Clock::time_point _flushBegan = Clock::now();
};
