// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/WavePlayer.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

namespace {

constexpr double kNoPosition = -1.0;

std::int32_t wholeSeconds(double seconds) {
  const double whole = std::floor(seconds);
  if (!(whole < double{INT32_MAX})) return INT32_MAX;
  return whole > double{INT32_MIN} ? static_cast<std::int32_t>(whole) : INT32_MIN;
}

}  // namespace

WavePlayer::WavePlayer(const std::string& filePath, std::unique_ptr<AudioFile> opened)
    : _fileUrl(filePath), _self(std::make_shared<WavePlayer*>(this)) {
  floatScratch();
  _player = std::make_unique<AQPlayer>(filePath, std::move(opened));
  _player->setVolume(_volume);
  const std::weak_ptr<WavePlayer*> weak = _self;
  _player->setDataCB(
      [weak](AudioQueueBuffer& buffer, const AudioFormat& info, std::int64_t packet) {
        if (const auto self = weak.lock()) (*self)->processSampleBuffer(buffer, info, packet);
      });
  _player->setLostCB([weak](const std::string& why) {
    if (const auto self = weak.lock()) (*self)->outputLost(why);
  });
}

void WavePlayer::changeState(PlayState state) {
  if (_play_state != state) _play_state = state;
}

void WavePlayer::notifyStateChanged() {
  if (const auto delegate = _delegate.lock()) delegate->WavePlayerStateChanged();
}

// The delegate may delete the player: nothing is touched after it was told, but where `_self` says
// that it is still there. The same goes for a seek, which fires the event of the end.
void WavePlayer::setState(PlayState state) {
  changeState(state);
  notifyStateChanged();
}

std::string WavePlayer::state2Str(PlayState state) {
  switch (state) {
    case PLAY_STATE_INIT:
      return "PLAY_STATE_INIT";
    case PLAY_STATE_PLAY:
      return "PLAY_STATE_PLAY";
    case PLAY_STATE_PAUSE:
      return "PLAY_STATE_PAUSE";
    case PLAY_STATE_FINISH:
      return "PLAY_STATE_FINISH";
    default:
      return "STATE NOT FOUND";
  }
}

void WavePlayer::play() {
  if (_play_state == PLAY_STATE_PLAY) return pause();
  if (_play_state != PLAY_STATE_FINISH) {
    _player->play(_play_state == PLAY_STATE_PAUSE);
    return setState(PLAY_STATE_PLAY);
  }
  const std::weak_ptr<WavePlayer*> alive = _self;
  setState(PLAY_STATE_PLAY);
  if (!alive.expired()) startOver();
  if (!alive.expired()) _player->setVolume(_volume);
}

void WavePlayer::startOver() {
  if (_setPositionOldVal != kNoPosition && _setPositionOldVal != AQPlayer::kEnd) {
    return _player->play(false);
  }
  setPosition(0.0);
}

void WavePlayer::pause() {
  if (_play_state != PLAY_STATE_PLAY) return;
  _player->pause();
  setState(PLAY_STATE_PAUSE);
}

void WavePlayer::playFinish() {
  if (_isSeeking) return;
  _setPositionOldVal = kNoPosition;
  setState(PLAY_STATE_FINISH);
}

void WavePlayer::setPosition(double position) {
  _isSeeking = position != AQPlayer::kEnd;  // a seek to the very end is a real finish
  _setPositionOldVal = position;
  const bool wasPlaying = _play_state == PLAY_STATE_PLAY;
  const std::weak_ptr<WavePlayer*> alive = _self;
  _player->setPosition(position, wasPlaying);
  if (alive.expired()) return;
  _isSeeking = false;
  _player->setVolume(_volume);
  if (position == AQPlayer::kEnd) return setState(PLAY_STATE_FINISH);
  if (_play_state == PLAY_STATE_FINISH) return setState(PLAY_STATE_PAUSE);
  if (wasPlaying) setState(PLAY_STATE_PLAY);
}

// Those that wait for their turn are filled anew by it where they are no longer in order.
void WavePlayer::setLoop(const std::optional<FrameLoop>& loop) {
  _loop = loop;
  _player->setLoop(loop);
}

void WavePlayer::setVolume(double volume) {
  if (!(volume >= 0.0 && volume <= 1.0)) return;
  _volume = volume;
  _player->setVolume(volume);
}

void WavePlayer::outputLost(const std::string& why) {
  if (_play_state != PLAY_STATE_PLAY) return;
  const auto delegate = _delegate.lock();
  setState(PLAY_STATE_PAUSE);
  if (delegate) delegate->WavePlayerOutputLost(why);
}

void WavePlayer::cleanUp() {
  if (_player) _player->cleanUp();
}

double WavePlayer::duration() const {
  return std::floor(_player->duration());
}

double WavePlayer::curremtTime() const {
  return _player->currentTime() / kMsPerSecond;
}

std::string WavePlayer::durationString() const {
  return second2String(wholeSeconds(_player->duration()));
}

std::string WavePlayer::currentTimeString() const {
  if (_play_state == PLAY_STATE_INIT) return getZeroTimeString();
  const std::int32_t seconds = wholeSeconds(curremtTime());
  return seconds < 0 ? std::string() : second2String(seconds);
}

std::string WavePlayer::getTimeFromPosition(double position) const {
  return second2String(wholeSeconds(timeFromPosition(position) / kMsPerSecond));
}

std::string WavePlayer::second2String(std::int32_t seconds) {
  return fmt::format("{:02d}:{:02d}:{:02d}", seconds / 3600, seconds % 3600 / 60, seconds % 60);
}
