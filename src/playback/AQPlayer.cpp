// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AQPlayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "playback/PlayingFile.h"

namespace {

constexpr double kMsPerSecond = 1000.0;

}  // namespace

AQPlayer::AQPlayer(std::string filePath, std::unique_ptr<AudioFile> opened)
    : _filePath(std::move(filePath)), _playing(PlayingFile::get()) {
  _playing.takeOver(this);
  _playing.AQOpenFile(_filePath, std::move(opened));
  _playing.AQSetUpQueue();
}

AQPlayer::~AQPlayer() {
  cleanUp();
}

AQPlayerState& AQPlayer::state() const {
  return _playing.state();
}

void AQPlayer::play(bool resume) {
  AQPlayerState& s = state();
  if (_filePath.empty() || !s.queue) return;
  if (s.queue->isLost()) recover(resume);
  s.isDone = false;
  if (!resume) {
    s.currentPacket = 0;
    if (s.queue) s.queue->rewind();
    _playing.prime();
  }
  if (s.queue) s.queue->start();
}

// What a vanished sound system still held is read again: it was not heard.
void AQPlayer::recover(bool resume) {
  const double heard = std::floor(state().queue->sampleTime());
  const double start = std::round(_seek_time * state().dataFormat.sampleRate / kMsPerSecond);
  if (resume) {
    seekTo(static_cast<std::int64_t>(start + heard));
  } else {
    _playing.AQSetUpQueue();
  }
}

void AQPlayer::pause() {
  if (state().queue) state().queue->pause();
}

void AQPlayer::seekTo(std::int64_t packet) {
  state().currentPacket = packet;
  _seek_time = _playing.milliseconds(static_cast<double>(packet));
  _playing.AQSetUpQueue();
  state().isDone = false;
  _playing.prime();
}

void AQPlayer::setPosition(double position, bool play) {
  AQPlayerState& s = state();
  if (s.queue) s.queue->stop(AudioQueue::Stop::Immediately);
  if (!s.isInitialized) return;  // the listener has cleaned up
  const double fraction = position > 0.0 ? std::min(position, 1.0) : 0.0;
  seekTo(static_cast<std::int64_t>(static_cast<double>(s.packetCount) * fraction));
  // At the very end there is nothing to start, and the stop above has told so already.
  if (play && _playing.hasMore()) s.queue->start();
}

double AQPlayer::timeFromPosition(double position) const {
  return _playing.milliseconds(position * static_cast<double>(state().packetCount));
}

double AQPlayer::duration() const {
  return state().durationSeconds;
}

double AQPlayer::currentTime() const {
  const AQPlayerState& s = state();
  return (s.queue ? _playing.milliseconds(s.queue->sampleTime()) : 0.0) + _seek_time;
}

bool AQPlayer::getIsDone() const {
  return state().isDone;
}

void AQPlayer::setVolume(double volume) {
  _playing.setVolume(static_cast<float>(volume));
}

void AQPlayer::setDataCB(AQDataCallback callback) {
  state().dataCallback = std::move(callback);
}

void AQPlayer::setLostCB(std::function<void(const std::string& why)> callback) {
  state().lostCallback = std::move(callback);
}

void AQPlayer::cleanUp() {
  if (_playing.belongsTo(this)) _playing.cleanUp();
}

std::uint64_t AQPlayer::underruns() const {
  return _playing.underruns();
}

const std::string& AQPlayer::readFailure() const {
  return state().readFailure;
}
