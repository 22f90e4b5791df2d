// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/SessionRemote.h"

#include <QFile>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kMicroseconds = 1e6;

std::int64_t microseconds(double seconds) {
  return std::llround(seconds * kMicroseconds);
}

RemotePlayer::Opened openedAs(FolderBrowser::Named what) {
  switch (what) {
    case FolderBrowser::Named::Chosen:
      return RemotePlayer::Opened::Begun;
    case FolderBrowser::Named::NoFile:
      return RemotePlayer::Opened::NoFile;
    default:
      return RemotePlayer::Opened::GivenUp;
  }
}

}  // namespace

SessionRemote::SessionRemote(TakeSession& take, FolderBrowser& browser, QObject* parent)
    : RemotePlayer(parent), _take(take), _browser(browser) {
  _timerLook.setInterval(kLook);
  connect(&_timerLook, &QTimer::timeout, this, &SessionRemote::look);
  connect(&take, &TakeSession::opening, this, [this] { _asked = _take.file(); });
  connect(&take, &TakeSession::opened, this, &SessionRemote::load);
  connect(&take, &TakeSession::closing, this, &SessionRemote::unload);
  connect(&take, &TakeSession::closed, this, &SessionRemote::unload);
  connect(&take, &TakeSession::stateChanged, this, &SessionRemote::showState);
  connect(&take, &TakeSession::volumeChanged, this, &RemotePlayer::changed);
  connect(&take, &TakeSession::jumped, this, [this] {
    _heard = _take.playedTime();
    emit jumped();
  });
  connect(&browser, &FolderBrowser::rowsChanged, this, &RemotePlayer::changed);
}

void SessionRemote::load() {
  const auto reader = _take.reader();
  _rate = reader->header().SampleRate;
  _loaded =
      Take{++_number, _take.name(), QUrl::fromLocalFile(QFile::decodeName(_take.file().c_str())),
           microseconds(reader->durationSeconds())};
  _isStopped = false;
  emit changed();
}

void SessionRemote::unload() {
  _timerLook.stop();
  _loaded.reset();
  emit changed();
}

RemotePlayer::Status SessionRemote::status() const {
  const TakeSession::State state = _take.state();
  if (state == TakeSession::State::Playing) return Status::Playing;
  return state == TakeSession::State::Paused && !_isStopped ? Status::Paused : Status::Stopped;
}

std::int64_t SessionRemote::position() const {
  if (!_loaded || _take.state() == TakeSession::State::Finished) return 0;
  return std::clamp<std::int64_t>(microseconds(_take.playedTime()), 0, _loaded->length);
}

void SessionRemote::showState() {
  const TakeSession::State state = _take.state();
  if (state == TakeSession::State::Playing) {
    _isStopped = false;
    _heard = _take.playedTime();
    _timerLook.start();
  } else {
    _timerLook.stop();
  }
  emit changed();
  // The end leads back to the beginning.
  if (state == TakeSession::State::Finished) emit jumped();
}

// By itself the time only grows; the player tells nobody of the turn of a loop.
void SessionRemote::look() {
  const double now = _take.playedTime();
  const bool hasTurned = now < _heard;
  _heard = now;
  if (hasTurned) emit jumped();
}

// What is buffered of a pause has the sound of before.
void SessionRemote::play() {
  const TakeSession::State state = _take.state();
  if (!_loaded || state == TakeSession::State::Playing) return;
  if (state == TakeSession::State::Paused && _take.hasSoundChanged()) _take.seek(_take.position());
  _take.play();
}

void SessionRemote::pause() {
  if (_take.state() == TakeSession::State::Playing) _take.play();
}

void SessionRemote::stop() {
  const TakeSession::State state = _take.state();
  if (state != TakeSession::State::Playing && state != TakeSession::State::Paused) return;
  pause();
  _take.seekToFrame(0);
  _isStopped = true;
  emit changed();
}

void SessionRemote::goTo(std::int64_t position) {
  if (!_loaded) return;
  const double seconds = static_cast<double>(position) / kMicroseconds;
  _take.seekToFrame(static_cast<std::uint64_t>(std::max(0.0, std::floor(seconds * _rate))));
}

void SessionRemote::setVolume(double volume) {
  if (!std::isnan(volume)) _take.setVolume(std::clamp(volume, 0.0, 1.0));
}

std::optional<int> SessionRemote::neighbour(int step) const {
  const std::vector<WavItem>& files = _browser.model().files();
  const auto count = static_cast<int>(files.size());
  const auto open = std::ranges::find(files, _asked.native(), &WavItem::fullPath);
  if (open == files.end() && !_take.file().empty()) return std::nullopt;
  const bool isFound = open != files.end();
  if (!isFound && step < 0) return std::nullopt;
  int row = isFound ? static_cast<int>(open - files.begin()) + step : 0;
  while (row >= 0 && row < count && files[static_cast<std::size_t>(row)].isFolder) row += step;
  return row >= 0 && row < count ? std::optional(row) : std::nullopt;
}

void SessionRemote::choose(std::optional<int> row) {
  if (row) _browser.choose(*row);
}

void SessionRemote::open(const std::filesystem::path& file, const Told& told) {
  _browser.beginWithFile(file, [told](FolderBrowser::Named what) { told(openedAs(what)); });
}
