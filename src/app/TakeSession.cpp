// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeSession.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/MainThreadQueue.h"
#include "playback/AudioBackends.h"

namespace {

constexpr int kReadingRefresh = 200;  // ms
constexpr int kOpeningShows = 300;    // ms

QString text(const std::string& from) {
  return QString::fromStdString(from).simplified();
}

}  // namespace

/// What opening a take asks the medium for.
struct TakeSession::Found {
  std::shared_ptr<Export> job;  ///< null where the file is not the recorder's
  std::string whyNot;
  std::unique_ptr<AudioFile> audio;  ///< null where nothing can play

  /// Waits for the medium. What is followed is closed by the one who follows.
  void find(const std::filesystem::path& file) {
    auto opened = std::make_shared<Export>(file);
    whyNot = opened->failure();
    if (!opened->IsFileValid()) return;
    job = std::move(opened);
    job->reader()->follow(0.0, 0.0);
    if (audio) audio->open(file.string());
  }
};

TakeSession::TakeSession(QObject* parent)
    : QObject(parent), _self(static_cast<WavePlayerDelegate*>(this), [](WavePlayerDelegate*) {}) {
  connect(&_timerReading, &QTimer::timeout, this, &TakeSession::checkReading);
  _timerOpening.setSingleShot(true);
  connect(&_timerOpening, &QTimer::timeout, this, &TakeSession::stillOpening);
}

TakeSession::~TakeSession() {
  blockSignals(true);
  _self.reset();
  release();
}

void TakeSession::open(const QString& name, const std::filesystem::path& file) {
  release();
  ++_opened;
  _name = name;
  _file = file;
  _toldFailure.clear();
  const auto found = std::make_shared<Found>();
  found->audio = AudioBackends::makeFile();
  const auto work = [this, found, file] {
    found->find(file);
    return [this, found] { takeOver(*found); };
  };
  const bool hasBegun = _errand.begin(work, [this](const std::string& why) { refuse(why); });
  _timerOpening.start(kOpeningShows);
  emit opening();
  if (!hasBegun) refuse("no thread can be had");
}

void TakeSession::takeOver(Found& found) {
  _timerOpening.stop();
  if (!found.job) return refuse(found.whyNot);
  _job = std::move(found.job);
  makePlayer(std::move(found.audio));
  emit opened();
  if (!_player) return;
  rememberSound();
  _player->setDelegate(_self);
  _player->play();
}

void TakeSession::refuse(const std::string& why) {
  emit failed(Failure::Unsupported, text(why));
  close();
}

void TakeSession::makePlayer(std::unique_ptr<AudioFile> audio) {
  _player = std::make_unique<WavePlayer>(_file.string(), std::move(audio));
  _player->setVolume(_volume);
  _player->setGain(_gain);
  _player->setAngle(static_cast<std::int64_t>(_angle));
  _player->setReader(std::make_shared<const WaveFileReader>(*_job->reader()));
}

void TakeSession::release() {
  if (_player) emit closing();
  _timerReading.stop();
  if (_player) _player->cleanUp();
  _player.reset();
  setLoop(std::nullopt);
  if (_job) _job->cleanUp();
  _job.reset();
  setSolo(Solo::None);
  _errand.giveUp();
  _timerOpening.stop();
}

void TakeSession::close() {
  release();
  _name.clear();
  _file.clear();
  emit closed();
}

void TakeSession::play() {
  if (_player) _player->play();
}

void TakeSession::seek(double position) {
  if (!_player) return;
  _player->setPosition(position);
  emit jumped();
}

// The middle of the frame: the player cuts down to the one that it is in.
void TakeSession::seekToFrame(std::uint64_t frame) {
  if (!_job || _job->reader()->frameCount() == 0) return;
  constexpr double kMiddle = 0.5;
  const auto frames = static_cast<double>(_job->reader()->frameCount());
  seek(std::min(1.0, (static_cast<double>(frame) + kMiddle) / frames));
}

void TakeSession::setLoop(const std::optional<FrameLoop>& loop) {
  const auto wanted = loop && _player ? fitted(*loop) : std::nullopt;
  if (std::exchange(_loop, wanted) == wanted) return;
  if (_player) _player->setLoop(wanted);
  emit loopChanged();
}

void TakeSession::setSolo(Solo solo) {
  const Solo wanted = isRawMidSide() ? solo : Solo::None;
  const bool isOther = std::exchange(_solo, wanted) != wanted;
  if (_player) _player->setSolo(wanted);
  if (isOther) emit soundChanged();
}

HeardSound TakeSession::heardSound() const {
  return {WaveFileReader::wholeAngle(_angle), static_cast<double>(_gain), _solo, _loop,
          _player ? _player->played() : PlayedSettings()};
}

std::optional<FrameLoop> TakeSession::fitted(const FrameLoop& loop) const {
  const std::uint64_t frames = _job->reader()->frameCount();
  const double rate = _job->reader()->header().SampleRate;
  const auto least = static_cast<std::uint64_t>(std::ceil(rate * kLeastLoop));
  if (frames < least || least == 0) return std::nullopt;
  const std::uint64_t first = std::min(loop.first, frames - least);
  return FrameLoop{first, std::clamp(loop.end, first + least, frames)};
}

void TakeSession::setVolume(double volume) {
  const bool isOther = std::exchange(_volume, volume) != volume;
  if (_player) _player->setVolume(volume);
  if (isOther) emit volumeChanged();
}

void TakeSession::setGain(std::int64_t dB) {
  const bool isOther = std::exchange(_gain, dB) != dB;
  if (_player) _player->setGain(dB);
  if (isOther) emit soundChanged();
}

void TakeSession::setAngle(double degrees) {
  if (std::isnan(degrees)) return;
  const bool isOther = std::exchange(_angle, degrees) != degrees;
  if (_player) _player->setAngle(static_cast<std::int64_t>(degrees));
  if (isOther) emit soundChanged();
}

void TakeSession::playFinish() {
  if (!_player) return;
  _player->playFinish();
  if (!_player) return;
  // A finished file stays loaded, to be played again; only one that the player could not even open
  // is let go. Not from in here: the event comes from inside the player.
  const bool isThere = _player->readFailure().empty() || _player->timeFromPosition(1.0) > 0;
  if (!_player->getIsDone() || isThere) return;
  QTimer::singleShot(0, this, [this, opened = _opened] {
    if (opened == _opened) close();
  });
}

TakeSession::State TakeSession::state() const {
  if (!_player) return _errand.isUnderWay() ? State::Opening : State::Closed;
  switch (_player->play_state()) {
    case PLAY_STATE_PLAY:
      return State::Playing;
    case PLAY_STATE_PAUSE:
      return State::Paused;
    case PLAY_STATE_FINISH:
      return State::Finished;
    default:
      return State::Opened;
  }
}

std::unique_ptr<WaveFileReader> TakeSession::reader() const {
  return _job ? std::make_unique<WaveFileReader>(*_job->reader()) : nullptr;
}

bool TakeSession::isRawMidSide() const {
  return _job && _job->reader()->isBoMSFormat();
}

double TakeSession::duration() const {
  return _player ? _player->duration() : 0.0;
}

double TakeSession::playedTime() const {
  return _player ? _player->curremtTime() : 0.0;
}

double TakeSession::time() const {
  return std::min(std::max(playedTime(), 0.0), duration());
}

QString TakeSession::timeText() const {
  return _player ? text(_player->currentTimeString()) : QString();
}

QString TakeSession::durationText() const {
  return _player ? text(_player->durationString()) : QString();
}

QString TakeSession::textAt(double position) const {
  return _player ? text(_player->getTimeFromPosition(position)) : QString();
}

QString TakeSession::zeroText() const {
  return _player ? text(_player->getZeroTimeString()) : QString();
}

bool TakeSession::hasSoundChanged() const {
  return _gain != _gain_before_pause || _angle != _stereo_before_pause || _solo != _soloBeforePause;
}

void TakeSession::rememberSound() {
  _gain_before_pause = _gain;
  _stereo_before_pause = _angle;
  _soloBeforePause = _solo;
}

std::shared_ptr<Export> TakeSession::jobToExport() const {
  if (!_job) return nullptr;
  _job->setGain(static_cast<double>(_gain));
  _job->setAngle(_angle);
  return _job;
}

void TakeSession::WavePlayerStateChanged() {
  MainThreadQueue::run([this] { showState(); });
}

void TakeSession::WavePlayerLevelChanged(double left, double right) {
  MainThreadQueue::run([this, left, right] { emit levelsSent(left, right); });
}

void TakeSession::WavePlayerOutputLost(const std::string& message) {
  emit failed(Failure::Output, text(message));
}

void TakeSession::showState() {
  const State now = state();
  if (!_player || now == State::Opened) return;
  if (now == State::Playing) {
    _timerReading.start(kReadingRefresh);
  } else {
    _timerReading.stop();
    rememberSound();
  }
  checkReading();
  emit stateChanged();
}

void TakeSession::checkReading() {
  if (!_player) return;
  const std::string& reading = _player->readFailure();
  const QString why = text(reading.empty() ? _job->reader()->image()->followFailure() : reading);
  if (why == _toldFailure) return;
  _toldFailure = why;
  if (why.isEmpty()) return void(emit readAgain());
  emit failed(Failure::Reading, why);
}
