// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AQPlayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "playback/PlayingFile.h"

AQPlayer::AQPlayer(std::string filePath, std::unique_ptr<AudioFile> opened)
    : _filePath(std::move(filePath)), _playing(PlayingFile::get()), _number(_playing.takeOver()) {
  _playing.AQOpenFile(_filePath, std::move(opened));
  _playing.AQSetUpQueue();
}

AQPlayer::~AQPlayer() {
  cleanUp();
}

AQPlayerState& AQPlayer::state() const {
  return _playing.state();
}

// Whatever primes calls the data callback, which may delete the player: no member is touched then.
void AQPlayer::play(bool resume) {
  PlayingFile& playing = _playing;
  const std::uint64_t number = _number;
  AQPlayerState& s = playing.state();
  if (_filePath.empty() || !s.queue) return;
  s.isDone = false;
  if (s.queue->isLost()) recover(resume);
  if (!resume && playing.isReadyFor(number)) {
    s.currentPacket = 0;
    s.queue->rewind();
    s.turns.clear();
    playing.prime();
  }
  if (playing.isReadyFor(number)) s.queue->start();
}

// What a vanished sound system still held is read again: it was not heard.
void AQPlayer::recover(bool resume) {
  const double heard = std::floor(heardPackets());
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

// The stop tells listeners, who may clean up, or delete this player and make another.
void AQPlayer::setPosition(double position, bool play) {
  PlayingFile& playing = _playing;
  const std::uint64_t number = _number;
  AQPlayerState& s = playing.state();
  if (s.queue) s.queue->stop(AudioQueue::Stop::Immediately);
  if (!playing.isReadyFor(number)) return;
  const double fraction = position > 0.0 ? std::min(position, kEnd) : 0.0;
  seekTo(static_cast<std::int64_t>(static_cast<double>(s.packetCount) * fraction));
  // A queue without a buffer is started too, for its end to be told. At the very end it has been.
  if (play && position != kEnd && playing.isReadyFor(number)) s.queue->start();
}

double AQPlayer::timeFromPosition(double position) const {
  return _playing.milliseconds(position * static_cast<double>(state().packetCount));
}

double AQPlayer::duration() const {
  return state().durationSeconds;
}

double AQPlayer::currentTime() const {
  return _playing.milliseconds(heardPackets()) + _seek_time;
}

// From where the queue began; less what the turns of a loop went back.
double AQPlayer::heardPackets() const {
  const AQPlayerState& s = state();
  const double heard = s.queue ? s.queue->sampleTime() : 0.0;
  return heard - static_cast<double>(s.turns.backAt(heard));
}

// What is queued already may lie beyond the end of the new loop, or have turned in the old one.
void AQPlayer::setLoop(const std::optional<FrameLoop>& loop) {
  AQPlayerState& s = state();
  if (loop == s.loop) return;
  const double start = std::round(_seek_time * s.dataFormat.sampleRate / kMsPerSecond);
  const double heard = std::max(0.0, start + std::floor(heardPackets()));
  s.loop = loop;
  if (s.audioFile) s.audioFile->setLoop(loop);
  const auto packet = static_cast<std::uint64_t>(heard);
  if (_playing.isReadyFor(_number) && !isQueuedInOrder(packet)) requeue(packet);
}

bool AQPlayer::isQueuedInOrder(std::uint64_t heard) const {
  const AQPlayerState& s = state();
  if (s.turns.isAhead(s.queue->sampleTime())) return false;
  const bool isInFront = s.loop && heard < s.loop->end;
  return !isInFront || static_cast<std::uint64_t>(s.currentPacket) < s.loop->end;
}

// Not a seek: the queue runs on, so nothing stops and nobody is told. The data callback may delete
// the player.
void AQPlayer::requeue(std::uint64_t packet) {
  PlayingFile& playing = _playing;
  AQPlayerState& s = playing.state();
  s.queue->rewind();
  s.turns.clear();
  s.isDone = false;
  s.currentPacket = static_cast<std::int64_t>(packet);
  _seek_time = playing.milliseconds(static_cast<double>(packet));
  playing.prime();
}

bool AQPlayer::getIsDone() const {
  return state().isDone;
}

void AQPlayer::setVolume(double volume) {
  _playing.setVolume(static_cast<float>(volume));
}

void AQPlayer::setDataCB(AQDataCallback callback) {
  state().dataCallback =
      callback ? std::make_shared<const AQDataCallback>(std::move(callback)) : nullptr;
}

void AQPlayer::setLostCB(std::function<void(const std::string& why)> callback) {
  state().lostCallback = std::move(callback);
}

void AQPlayer::cleanUp() {
  if (_playing.belongsTo(_number)) _playing.cleanUp();
}

std::uint64_t AQPlayer::underruns() const {
  return _playing.underruns();
}

const std::string& AQPlayer::readFailure() const {
  return state().readFailure;
}
