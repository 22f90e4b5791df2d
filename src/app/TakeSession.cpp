// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeSession.h"

#include <algorithm>
#include <utility>

#include "base/MainThreadQueue.h"

namespace {

constexpr int kReadingRefresh = 200;  // ms

QString text(const std::string& from) {
  return QString::fromStdString(from).simplified();
}

}  // namespace

TakeSession::TakeSession(QObject* parent)
    : QObject(parent), _self(static_cast<WavePlayerDelegate*>(this), [](WavePlayerDelegate*) {}) {
  connect(&_timerReading, &QTimer::timeout, this, &TakeSession::checkReading);
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
  _isOpening = true;
  emit opening();
  takeOver(recognise(file));
}

// All that opening asks the medium for; touches no member, so that it may go elsewhere.
std::shared_ptr<Export> TakeSession::recognise(const std::filesystem::path& file) {
  return std::make_shared<Export>(file);
}

void TakeSession::takeOver(std::shared_ptr<Export> job) {
  _isOpening = false;
  if (!job->IsFileValid()) return refuse(*job);
  _job = std::move(job);
  makePlayer();
  emit opened();
  if (!_player) return;
  rememberSound();
  _player->setDelegate(_self);
  _player->play();
}

void TakeSession::refuse(const Export& job) {
  const QString why = text(job.failure());
  emit failed(Failure::Unsupported, why);
  close();
}

void TakeSession::makePlayer() {
  _player = std::make_unique<WavePlayer>(_file.string());
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
  if (_job) _job->cleanUp();
  _job.reset();
  _isOpening = false;
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
  if (_player) _player->setPosition(position);
}

void TakeSession::setVolume(double volume) {
  _volume = volume;
  if (_player) _player->setVolume(volume);
}

void TakeSession::setGain(std::int64_t dB) {
  _gain = dB;
  if (_player) _player->setGain(dB);
}

void TakeSession::setAngle(double degrees) {
  _angle = degrees;
  if (_player) _player->setAngle(static_cast<std::int64_t>(degrees));
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
  if (!_player) return _isOpening ? State::Opening : State::Closed;
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
  return _gain != _gain_before_pause || _angle != _stereo_before_pause;
}

void TakeSession::rememberSound() {
  _gain_before_pause = _gain;
  _stereo_before_pause = _angle;
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
  const QString why = text(reading.empty() ? _job->reader()->image()->failure() : reading);
  if (why.isEmpty() || why == _toldFailure) return;
  _toldFailure = why;
  emit failed(Failure::Reading, why);
}
