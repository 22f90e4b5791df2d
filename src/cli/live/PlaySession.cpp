// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/PlaySession.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/EB.h"
#include "cli/Interrupt.h"
#include "cli/NumberCheck.h"
#include "cli/Printable.h"
#include "cli/ProgressLine.h"
#include "cli/Streams.h"
#include "cli/live/RawTerminal.h"
#include "cli/live/TimeLine.h"
#include "dsp/SideGain.h"

namespace {

constexpr int kTickMsPerSecond = 100;
constexpr double kSeekSeconds = 5.0;
constexpr int kAngleStep = 5;
constexpr std::size_t kUsualColumns = 80;

// Of the terminal, which may change at any time.
std::size_t columns() {
  winsize size{};
  const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? size.ws_col : kUsualColumns;
}

}  // namespace

class PlaySession::Delegate : public WavePlayerDelegate {
 public:
  explicit Delegate(PlaySession& session) : _session(session) {}

  void WavePlayerOutputLost(const std::string& message) override { _session.onLost(message); }

 private:
  PlaySession& _session;
};

PlaySession::PlaySession(const std::filesystem::path& file,
                         std::shared_ptr<const WaveFileReader> reader)
    : _name(printable(file.filename().native())),
      _player(file.native()),
      _delegate(std::make_shared<Delegate>(*this)),
      _showsTime(isatty(STDOUT_FILENO) == 1) {
  _player.setReader(std::move(reader));
  _player.setDelegate(_delegate);
  EB::SUBSCRIBE(this, &PlaySession::onPlayFinish, EB::kPlayFinish);
}

PlaySession::~PlaySession() {
  NotificationCenter::defaultCenter().removeObserver(this);
}

void PlaySession::set(int angle, int gain, double volume) {
  _player.setAngle(angle);
  _player.setGain(gain);
  _player.setVolume(volume);
}

// A player that has not begun starts at the beginning of the file wherever it was sent before; one
// that is paused starts where it is.
void PlaySession::start(double seconds) {
  if (seconds > 0) {
    seekTo(seconds);
    if (_player.play_state() == PLAY_STATE_FINISH) return end(true);
    _player.changeState(PLAY_STATE_PAUSE);
  }
  _player.play();
}

bool PlaySession::run() {
  if (_hasEnded) return _isFine;
  _terminal = std::make_unique<RawTerminal>();
  std::unique_ptr<QSocketNotifier> input;
  if (_terminal->isActive()) {
    input = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(input.get(), &QSocketNotifier::activated, [this] { onInput(); });
  }
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [this] { onTick(); });
  timer.start(kTickMsPerSecond);
  QCoreApplication::exec();
  _terminal.reset();
  if (_showsTime) Streams::out("\n");
  if (_player.underruns() > 0) {
    Streams::err(fmt::format("mixdeck-cli: the output ran dry, times: {}\n", _player.underruns()));
  }
  return _isFine;
}

void PlaySession::end(bool isFine) {
  _hasEnded = true;
  _isFine = isFine;
  QCoreApplication::quit();
}

void PlaySession::onPlayFinish(const Notification& /*event*/) {
  _player.playFinish();
  if (_player.play_state() != PLAY_STATE_FINISH) return;
  if (_showsTime) show();
  end(true);
}

// At a terminal someone can have it tried again, as long as there is more to read.
void PlaySession::onLost(const std::string& message) {
  if (!readFailure().empty()) {
    tell(message);
    return end(false);
  }
  if (_terminal && _terminal->isActive()) return tell(message);
  tell(message + " It plays over PipeWire or PulseAudio; export writes what would be heard.");
  end(false);
}

void PlaySession::onTick() {
  if (Interrupt::requested()) return end(false);
  if (_showsTime) show();
}

void PlaySession::onInput() {
  std::array<char, 64> bytes{};
  const ssize_t got = read(STDIN_FILENO, bytes.data(), bytes.size());
  if (got < 0) return;
  for (const Key key : _keys.read({bytes.data(), static_cast<std::size_t>(got)})) onKey(key);
  if (_showsTime && !_hasEnded) show();
}

void PlaySession::onKey(Key key) {
  switch (key) {
    case Key::Space:
      return _player.play();
    case Key::Left:
      return seekBy(-kSeekSeconds);
    case Key::Right:
      return seekBy(kSeekSeconds);
    case Key::Up:
      return changeGain(1);
    case Key::Down:
      return changeGain(-1);
    case Key::Narrower:
      return changeAngle(-kAngleStep);
    case Key::Wider:
      return changeAngle(kAngleStep);
    case Key::Quit:
      return end(true);
  }
}

void PlaySession::changeGain(int by) {
  constexpr auto kMost = static_cast<std::int64_t>(kMostGain);
  _player.setGain(std::clamp(_player.gain() + by, -kMost, kMost));
}

void PlaySession::changeAngle(int by) {
  constexpr std::int64_t kLeast = SideGain::kMinAngle;
  constexpr std::int64_t kMost = SideGain::kMaxAngle;
  _player.setAngle(std::clamp<std::int64_t>(_player.angle() + by, kLeast, kMost));
}

void PlaySession::seekBy(double seconds) {
  seekTo(std::max(0.0, _player.curremtTime() + seconds));
}

// The fraction aims at the middle of the frame, so that rounding does not miss it.
void PlaySession::seekTo(double seconds) {
  const double whole = _player.timeFromPosition(1.0) / kMsPerSecond;
  const double frames = static_cast<double>(_player.reader()->header().SampleRate) * whole;
  const double frame = std::round(seconds * _player.reader()->header().SampleRate);
  _player.setPosition(frame < std::round(frames) ? (frame + 0.5) / frames : 1.0);
  if (_player.play_state() == PLAY_STATE_FINISH) end(true);
}

bool PlaySession::hasReachedEnd() const {
  constexpr double kFrame = 1e-6;  // less than one, in seconds
  return _player.curremtTime() + kFrame > _player.timeFromPosition(1.0) / kMsPerSecond;
}

void PlaySession::show() const {
  const std::string time = _player.currentTimeString();
  const std::string duration = _player.durationString();
  const bool isPaused = _player.play_state() == PLAY_STATE_PAUSE;
  const TimeLine::State state{_name, time, duration, _player.angle(), _player.gain(), isPaused};
  Streams::out(ProgressLine::kEraseLine + TimeLine::of(state, columns()));
}

void PlaySession::tell(const std::string& message) const {
  if (_showsTime) Streams::out(ProgressLine::kEraseLine);
  Streams::err(fmt::format("mixdeck-cli: {}\n", message));
}
