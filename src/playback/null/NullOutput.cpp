// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/null/NullOutput.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kMilliseconds = 1000.0;
constexpr double kShareHeld = 0.8;  // of what is asked for: 40 ms of 50
constexpr std::uint32_t kMostChannels = 32;
constexpr double kMostRate = 384'000;

}  // namespace

NullOutput::NullOutput(VirtualClock& clock, const Format& format)
    : _clock(clock), _format(format), _ramp(format.sampleRate, format.channels) {
  const double frames = format.sampleRate * format.secondsAhead() * kShareHeld;
  _device.reserve(static_cast<std::size_t>(std::round(frames)) * format.channels);
  _clock.add(*this);
}

NullOutput::~NullOutput() {
  _clock.remove(*this);
}

void NullOutput::attach(AudioSource* source, AudioOutputListener* listener) {
  _source.set(source);
  _listener = listener;
}

void NullOutput::start() {
  _isRunning = true;
  const bool isTaken = _format.channels <= kMostChannels && _format.sampleRate <= kMostRate;
  if (!isTaken) lose("There are too many channels, or too many frames a second.");
}

void NullOutput::flush() {
  _device.clear();
  _ramp.restart();
  _played = 0;
  _framesDue = 0;
  _isDry = true;
  _isDraining = _hasDrained = false;
}

void NullOutput::lose(const std::string& why) {
  _why = why;
  _isLost = true;
  _isRunning = false;
}

void NullOutput::takeFrames() {
  const std::size_t before = _device.size();
  _device.resize(_device.capacity());
  const AudioSource::Pulled pulled =
      _source.pull(std::span(_device).subspan(before), [] { return true; });
  const std::size_t after = before + pulled.frames * _format.channels;
  _device.resize(after);
  _ramp.apply(std::span(_device).subspan(before), _volume);
  _hasProgressed = _hasProgressed || pulled.isBufferFree;
}

void NullOutput::playFrames(std::size_t frames) {
  const std::size_t here = std::min(frames, _device.size() / std::max(1U, _format.channels));
  const auto samples = static_cast<std::ptrdiff_t>(here * _format.channels);
  heard(std::span(_device).first(static_cast<std::size_t>(samples)));
  _device.erase(_device.begin(), _device.begin() + samples);
  _played += here;
  const bool isDry = here < frames;
  if (isDry && !_isDry && !_isDraining) ++_underruns;
  _isDry = isDry;
  _hasDrained = _hasDrained || (_isDraining && _device.empty());
}

void NullOutput::passMillisecond() {
  if (!_isRunning) return;
  takeFrames();
  _framesDue += _format.sampleRate / kMilliseconds;
  const auto frames = static_cast<std::size_t>(_framesDue);
  _framesDue -= static_cast<double>(frames);
  playFrames(frames);
}

// Each call may delete this output.
void NullOutput::deliver() {
  const std::weak_ptr<bool> alive = _isAlive;
  if (_hasProgressed && _listener != nullptr) {
    _hasProgressed = false;
    _listener->outputProgressed();
  }
  if (!alive.expired()) deliverEnd();
}

void NullOutput::deliverEnd() {
  if (_listener == nullptr) return;
  if (_isLost && !_why.empty()) {
    const std::string why = std::exchange(_why, {});
    return _listener->outputLost(why);
  }
  if (_hasDrained && _isDraining) {
    _isDraining = _hasDrained = false;
    _listener->outputDrained();
  }
}
