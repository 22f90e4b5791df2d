// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "playback/AudioOutput.h"
#include "playback/SourceSlot.h"
#include "playback/VolumeRamp.h"
#include "playback/null/VirtualClock.h"

/// Plays to nowhere on a virtual clock, with a delay like a sound system's: it takes frames from
/// its source some time before they are "heard", four fifths of what the format asks for. It takes
/// no more channels and no higher rate than a sound server does. One thread.
class NullOutput : public AudioOutput, private VirtualClock::Dial {
 public:
  /// `clock` outlives the output.
  NullOutput(VirtualClock& clock, const Format& format);
  ~NullOutput() override;

  void attach(AudioSource* source, AudioOutputListener* listener) override;
  void start() override;
  void pause() override { _isRunning = false; }
  void flush() override;
  void drain() override { _isDraining = true; }
  void wake() override {}
  [[nodiscard]] double framesPlayed() const override { return static_cast<double>(_played); }
  void setVolume(float volume) override { _volume = volume; }
  [[nodiscard]] std::uint64_t underruns() const override { return _underruns; }

  [[nodiscard]] float volume() const { return _volume; }
  [[nodiscard]] bool isRunning() const { return _isRunning; }
  /// Acts as a sound system that goes away.
  void lose(const std::string& why);

 protected:
  /// Told what is heard, frame by frame. Silence of an underrun is not.
  virtual void heard(std::span<const float> /*frames*/) {}

 private:
  void passMillisecond() override;
  void deliver() override;
  void deliverEnd();
  void takeFrames();
  void playFrames(std::size_t frames);

  VirtualClock& _clock;
  Format _format;
  SourceSlot _source;
  AudioOutputListener* _listener = nullptr;
  VolumeRamp _ramp;
  std::vector<float> _device;  ///< taken and not yet heard; its capacity never changes
  double _framesDue = 0;
  std::uint64_t _played = 0;
  std::uint64_t _underruns = 0;
  float _volume = 1.0F;
  bool _isRunning = false;
  bool _isDraining = false;
  bool _isDry = true;
  bool _hasProgressed = false;
  bool _hasDrained = false;
  bool _isLost = false;
  std::string _why;
  std::shared_ptr<bool> _isAlive = std::make_shared<bool>(true);  ///< held weakly by `deliver`
};
