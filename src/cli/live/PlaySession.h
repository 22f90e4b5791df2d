// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "base/NotificationCenter.h"
#include "cli/live/KeyReader.h"
#include "playback/WavePlayer.h"

class RawTerminal;

/// One recording being played from the command line: keys, time line, and the end. Main thread,
/// with a `QCoreApplication`.
class PlaySession {
 public:
  PlaySession(const std::filesystem::path& file, std::shared_ptr<const WaveFileReader> reader);
  PlaySession(const PlaySession&) = delete;
  PlaySession& operator=(const PlaySession&) = delete;
  ~PlaySession();

  /// Width in whole degrees, gain in whole dB, volume 0 to 1.
  void set(int angle, int gain, double volume);
  /// Begins to play at this time, exactly at the frame.
  void start(double seconds);
  /// Until the end, a key, a signal, or the loss of the output where there is no terminal or the
  /// file cannot be read on. False where something went wrong, which has been told.
  bool run();
  /// The last frame has been heard.
  [[nodiscard]] bool hasReachedEnd() const;
  /// Why the file could not be opened or read to its end; empty when it could.
  [[nodiscard]] const std::string& readFailure() const { return _player.readFailure(); }

 private:
  class Delegate;

  void onPlayFinish(const Notification& event);
  void onLost(const std::string& message);
  void onTick();
  void onInput();
  void onKey(Key key);
  void changeGain(int by);
  void changeAngle(int by);
  void seekBy(double seconds);
  void seekTo(double seconds);
  void show() const;
  void tell(const std::string& message) const;
  void end(bool isFine);

  std::string _name;
  WavePlayer _player;
  std::shared_ptr<Delegate> _delegate;
  std::unique_ptr<RawTerminal> _terminal;
  KeyReader _keys;
  bool _showsTime;
  bool _hasEnded = false;
  bool _isFine = true;
};
