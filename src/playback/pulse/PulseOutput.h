// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <future>
#include <memory>
#include <string>
#include <thread>

#include "base/ThreadSignal.h"
#include "playback/AudioOutput.h"

struct PulseControls;
class PulseConnection;

/// A stream to the PulseAudio server of the user, which PipeWire is as well.
///
/// The connection is made at the first `start`, on a thread of its own that is the only one to talk
/// to the server; it is asked for as much as `Format::secondsAhead` says. Where that thread cannot
/// be started, the output is lost. The owner's thread has a Qt event loop, through which the
/// listener is told, and never waits: neither for a server that is not there nor for one that does
/// not answer.
///
/// Its end waits for the thread's, and so for the sound's, but 200 ms at most, less where
/// `EndPatience` allows less: the library reads files of the user's, on a medium that may hang. A
/// thread that is left behind uses nothing of the owner's any more, and ends by itself when the
/// medium goes on.
class PulseOutput : public AudioOutput {
 public:
  /// The library that leads to the server, with its version. Any thread.
  static std::string library();

  explicit PulseOutput(const Format& format);
  ~PulseOutput() override;

  void attach(AudioSource* source, AudioOutputListener* listener) override;
  void start() override;
  void pause() override;
  void flush() override;
  void drain() override;
  void wake() override;
  [[nodiscard]] double framesPlayed() const override;
  void setVolume(float volume) override;
  [[nodiscard]] std::uint64_t underruns() const override;

 private:
  void deliver();
  void deliverEnd();
  void tellNothingPlayed();
  void startThread();
  void leaveThread();

  std::shared_ptr<PulseControls> _controls;
  std::shared_ptr<PulseConnection> _connection;  ///< shared with the thread, which may outlive this
  AudioOutputListener* _listener = nullptr;
  bool _isLossTold = false;
  std::shared_ptr<bool> _isAlive = std::make_shared<bool>(true);  ///< held weakly by `deliver`
  ThreadSignal _signal;
  std::thread _thread;
  std::future<void> _ended;  ///< of the thread
};
