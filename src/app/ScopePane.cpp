// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ScopePane.h"

#include <QScreen>

#include "app/WindowSight.h"
#include "base/SteadyTime.h"
#include "controls/NumberText.h"

namespace {

constexpr double kMostLate = 6;  // intervals; after more the picture begins anew
constexpr int kHundredths = 100;

QString captionOf(std::optional<double> correlation) {
  return NumberText::printed(CorrelationBar::text(correlation));
}

// Made once: with music each picture has another one.
std::vector<QString> captions() {
  std::vector<QString> made;
  for (int i = -kHundredths; i <= kHundredths; ++i) {
    made.push_back(captionOf(static_cast<double>(i) / kHundredths));
  }
  return made;
}

}  // namespace

ScopePane::ScopePane(StageView& view, TakeSession& take, QObject* parent)
    : QObject(parent), _view(view), _take(take), _captions(captions()) {
  _timerScope.setObjectName(QStringLiteral("timerScope"));
  connect(&_timerScope, &PictureTimer::timeout, this, &ScopePane::tick);
  connect(&_take, &TakeSession::opened, this, &ScopePane::begin);
  connect(&_take, &TakeSession::closing, this, &ScopePane::drop);
  connect(&_take, &TakeSession::stateChanged, this, &ScopePane::showState);
  // Who asks is told the figure by the bar; the label would tell it thirty times a second.
  _view.lblImageValue->setAccessibleName(_view.field->correlation->accessibleName());
  rest();
}

void ScopePane::begin() {
  _heard = std::make_unique<HeardFrames>(_take.reader());
}

void ScopePane::drop() {
  rest();
  _heard.reset();
}

// Nothing is heard, so nothing is shown.
void ScopePane::rest() {
  _timerScope.stop();
  darken();
}

void ScopePane::darken() {
  _correlation.clear();
  _view.field->scope->clear();
  showCorrelation(std::nullopt);
}

void ScopePane::showState() {
  if (_take.state() != TakeSession::State::Playing) return rest();
  advance();
  _pace.begin(SteadyTime::now());
  wait();
}

void ScopePane::wait() {
  _timerScope.start(_pace.next(SteadyTime::now(), interval()));
}

// Asked anew for each picture: the window may have come to another screen.
double ScopePane::interval() const {
  if (_isCalm) return kCalmInterval;
  const QScreen* const screen = _view.screen();
  return PicturePace::interval(screen == nullptr ? 0 : screen->refreshRate());
}

void ScopePane::reduceMotion(bool isReduced) {
  _isCalm = isReduced;
  if (_timerScope.isActive()) showState();
}

void ScopePane::tick() {
  WindowSight::isSeen(_view) ? advance() : darken();
  wait();
}

void ScopePane::advance() {
  if (!_heard) return;
  const double step = interval();
  const double to = _take.playedTime() + step / 2;
  const double since = to - _shownTo;
  const double least = _isCalm ? step : 0;  // a picture by itself is not cut short by a pause
  const bool goesOn = since > least && since < kMostLate * step;
  const double from = goesOn ? _shownTo : to - step;
  const HeardSound sound = _take.heardSound();
  const auto frames = _heard->read(from, to, sound).value_or(std::span<const float>());
  _shownTo = _heard->heardAt(from, to, sound);
  if (_isCalm) _view.field->scope->clear();
  _view.field->scope->advance(frames, to - from);
  _correlation.add(frames, to - from);
  showCorrelation(_correlation.value());
}

void ScopePane::showCorrelation(std::optional<double> value) {
  _view.field->correlation->setValue(value);
  const std::optional<int> hundredths = CorrelationBar::hundredths(value);
  const bool isShown = hundredths == _hundredths && !_view.lblImageValue->text().isEmpty();
  if (isShown) return;
  _hundredths = hundredths;
  const auto place = static_cast<std::size_t>(hundredths.value_or(0) + kHundredths);
  _view.lblImageValue->setText(hundredths ? _captions[place] : captionOf(std::nullopt));
}
