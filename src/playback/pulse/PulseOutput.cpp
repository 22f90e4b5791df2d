// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/pulse/PulseOutput.h"

#include <fmt/format.h>
#include <pulse/version.h>

#include <chrono>
#include <exception>
#include <string>
#include <utility>

#include "base/EndPatience.h"
#include "base/ErrorReason.h"
#include "playback/pulse/PulseConnection.h"
#include "playback/pulse/PulseControls.h"

namespace {

constexpr std::chrono::milliseconds kEndPatience{200};

}  // namespace

std::string PulseOutput::library() {
  return fmt::format("libpulse {}", pa_get_library_version());
}

PulseOutput::PulseOutput(const Format& format)
    : _controls(std::make_shared<PulseControls>(format)),
      _connection(std::make_shared<PulseConnection>(_controls)),
      _signal([this] { deliver(); }) {
  _controls->owner.set(&_signal);
}

PulseOutput::~PulseOutput() {
  _controls->source.set(nullptr);
  _controls->owner.set(nullptr);
  _controls->isEnding.store(true);
  _connection->wake();
  if (_thread.joinable()) leaveThread();
}

// The stream of the next output begins after this one's has ended, unless the library is waiting
// for a file of the user's that hangs.
void PulseOutput::leaveThread() {
  if (_ended.wait_for(EndPatience::atMost(kEndPatience)) == std::future_status::ready) {
    _thread.join();
  } else {
    _thread.detach();
  }
}

void PulseOutput::attach(AudioSource* source, AudioOutputListener* listener) {
  _listener = listener;
  _controls->source.set(source);
}

void PulseOutput::start() {
  _controls->isRunning.store(true);
  if (_controls->format.isNothing()) return tellNothingPlayed();
  if (_thread.joinable() || _controls->isLost.load()) return wake();
  try {
    startThread();
  } catch (const std::exception& error) {  // no thread, or no memory for one
    _controls->lose(fmt::format("The sound output could not be started ({}).", reasonOf(error)));
  }
}

void PulseOutput::startThread() {
  std::promise<void> ended;
  _ended = ended.get_future();
  _thread = std::thread([connection = _connection, ended = std::move(ended)]() mutable {
    connection->run();
    ended.set_value();
  });
}

void PulseOutput::pause() {
  _controls->isRunning.store(false);
  wake();
}

void PulseOutput::flush() {
  _controls->isDraining.store(false);
  _controls->drained.store(PulseControls::kNoDrain);
  ++_controls->flushes;
  _controls->clock.rewind();
  wake();
}

void PulseOutput::drain() {
  _controls->isDraining.store(true);
  if (_controls->format.isNothing()) return tellNothingPlayed();
  wake();
}

void PulseOutput::tellNothingPlayed() {
  if (!_controls->isRunning.load() || !_controls->isDraining.load()) return;
  _controls->drained.store(_controls->flushes.load());
  _signal.raise();
}

void PulseOutput::wake() {
  _connection->wake();
}

double PulseOutput::framesPlayed() const {
  if (_controls->flushed.load() != _controls->flushes.load()) return 0.0;
  return _controls->clock.heard();
}

void PulseOutput::setVolume(float volume) {
  _controls->volume.store(volume);
}

std::uint64_t PulseOutput::underruns() const {
  return _controls->underruns.load();
}

void PulseOutput::deliver() {
  const std::weak_ptr<bool> alive = _isAlive;
  if (_controls->hasProgressed.exchange(false) && _listener != nullptr) {
    _listener->outputProgressed();
  }
  if (!alive.expired()) deliverEnd();
}

// Each call to the listener is the last thing done: it may delete this output.
void PulseOutput::deliverEnd() {
  if (_listener == nullptr) return;
  if (_controls->isLost.load() && !_isLossTold) {
    _isLossTold = true;
    const std::string why = _controls->why;
    return _listener->outputLost(why);
  }
  const std::uint32_t drained = _controls->drained.exchange(PulseControls::kNoDrain);
  if (drained != _controls->flushes.load()) return;
  _controls->isDraining.store(false);
  _listener->outputDrained();
}
