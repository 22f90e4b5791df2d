// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "WindowPictures.h"

#include <QTimer>
#include <algorithm>
#include <ctime>
#include <limits>

#include "app/MeasuredTake.h"
#include "app/PictureTimer.h"

namespace {

constexpr auto kWait = QEventLoop::WaitForMoreEvents;

void pass(double milliseconds) {
  bool isOver = false;
  QTimer::singleShot(static_cast<int>(milliseconds), Qt::PreciseTimer, [&] { isOver = true; });
  while (!isOver) QApplication::processEvents(kWait);
}

double processMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

}  // namespace

WindowPictures::WindowPictures(ShownWindow& window) : _window(window) {
  _window.player().waveform->installEventFilter(this);
  _window.player().stage->field->scope->installEventFilter(this);
}

bool WindowPictures::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint) return false;
  if (watched != _window.player().waveform) {
    ++_scopes;
    return false;
  }
  ++_waveforms;
  const auto& columns = _window.player().waveform->columns().columns;
  const auto shown = std::ranges::count_if(columns, &WaveformColumns::Column::isKnown);
  if (shown > _columns) ++_grown;
  _columns = shown;
  _painted = std::max(_painted, known());
  return false;
}

WindowPictures::Known WindowPictures::known() {
  const auto& columns = _window.player().waveform->columns().columns;
  const auto isKnown = [](const WaveformColumns::Column& column) { return column.isKnown; };
  if (std::ranges::none_of(columns, isKnown)) return Known::Nothing;
  const auto* const measured = _window.controller().findChild<MeasuredTake*>();
  if (!std::ranges::all_of(columns, isKnown)) return Known::Part;
  return measured->isComplete() ? Known::Whole : Known::Drawn;
}

void WindowPictures::waitForPart() {
  while (_painted == Known::Nothing) QApplication::processEvents(kWait);
}

void WindowPictures::waitForDrawn() {
  while (_painted < Known::Drawn) QApplication::processEvents(kWait);
}

double WindowPictures::growing(double seconds) {
  waitForPart();
  const int before = _grown;
  pass(1000 * seconds);
  return (_grown - before) / seconds;
}

void WindowPictures::waitForWhole() {
  while (_painted != Known::Whole) QApplication::processEvents(kWait);
}

std::vector<double> WindowPictures::turn() {
  constexpr double kQuiet = 500;
  AngleViewer& dial = *_window.player().stage->sliderStereo;
  if (_window.controller().take().state() == TakeSession::State::Playing) {
    _window.controller().btnPlay_Click();
  }
  dial.setNewAngle(0);
  pass(kQuiet);
  std::vector<double> times;
  for (int degree = 1; degree <= static_cast<int>(AngleViewer::kMaxAngle); ++degree) {
    QElapsedTimer watch;
    watch.start();
    const int before = _waveforms;
    dial.setNewAngle(degree);
    while (_waveforms == before) QApplication::processEvents();
    times.push_back(ShownWindow::milliseconds(watch));
  }
  return times;
}

double WindowPictures::percentOfACore(double seconds) {
  QElapsedTimer watch;
  watch.start();
  const double before = processMilliseconds();
  pass(1000 * seconds);
  return 100 * (processMilliseconds() - before) / ShownWindow::milliseconds(watch);
}

void WindowPictures::rest(std::initializer_list<const char*> timers, bool areResting) {
  for (const char* const name : timers) {
    const QObject& owner = _window.controller();
    if (auto* const timer = owner.findChild<QTimer*>(QString::fromLatin1(name))) {
      areResting ? timer->stop() : timer->start();
      continue;
    }
    auto& timer = *owner.findChild<PictureTimer*>(QString::fromLatin1(name));
    areResting ? timer.stop() : timer.start(timer.interval());
  }
}

void WindowPictures::minimise(bool isMinimised) {
  constexpr double kSettled = 1000;
  MainView& view = _window.window().window();
  isMinimised ? view.showMinimized() : view.showNormal();
  pass(kSettled);
}

WindowPictures::Playing WindowPictures::play(double seconds) {
  Playing playing;
  const int before = _scopes;
  playing.all = percentOfACore(seconds);
  playing.pictures = (_scopes - before) / seconds;
  rest({"timerScope", "timerLevel"}, true);
  playing.without = percentOfACore(seconds);
  rest({"timerScope", "timerLevel"}, false);
  minimise(true);
  const int seen = _scopes;
  playing.minimised = percentOfACore(seconds);
  if (_scopes != seen) playing.minimised = std::numeric_limits<double>::quiet_NaN();
  // The meters go on, for the peaks.
  rest({"timerScope", "timerWaveform", "timerLoudness"}, true);
  playing.blind = percentOfACore(seconds);
  rest({"timerScope", "timerWaveform", "timerLoudness"}, false);
  minimise(false);
  return playing;
}
