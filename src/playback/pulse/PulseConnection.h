// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <pulse/pulseaudio.h>

#include <chrono>
#include <memory>
#include <string>

#include "playback/pulse/PulseControls.h"
#include "playback/pulse/PulseStream.h"

/// The thread of a `PulseOutput`: a main loop with one connection to the server and one stream.
///
/// Everything happens on the thread that calls `run`; `wake` on any. A server that is not there,
/// has gone, or gives no sign of life for a second, ten while it is still starting, is reported as
/// lost; the thread then only waits for its end.
class PulseConnection {
 public:
  explicit PulseConnection(std::shared_ptr<PulseControls> controls);
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;
  ~PulseConnection();

  /// Until `isEnding`.
  void run();
  /// Has the owner's wishes looked at. Takes no lock.
  void wake() const;

 private:
  using Clock = PulseStream::Clock;

  bool connect();
  void round();
  void advance();
  void watch();
  [[nodiscard]] int timeoutMicroseconds() const;
  void lose(const std::string& why);
  void loseWithoutALoop();
  [[nodiscard]] std::string because(const char* what) const;

  std::shared_ptr<PulseControls> _controls;  ///< outlives the stream
  int _wakeUp;
  pa_mainloop* _loop = nullptr;
  pa_context* _context = nullptr;
  PulseStream _stream;
  Clock::time_point _lastRound = Clock::now();
  bool _isUp = false;    ///< the context has been ready
  bool _isGone = false;  ///< lost
};
