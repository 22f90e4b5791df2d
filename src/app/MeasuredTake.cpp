// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MeasuredTake.h"

#include <algorithm>
#include <utility>

MeasuredTake::MeasuredTake(TakeSession& take, QObject* parent,
                           std::shared_ptr<const AnalysisCache> cache)
    : QObject(parent), _take(take), _cache(std::move(cache)) {
  connect(&_decoded, &RunningAnalysis::measured, this, &MeasuredTake::measured);
  connect(&_recorded, &RunningAnalysis::measured, this, &MeasuredTake::measured);
  connect(&_take, &TakeSession::opened, this, &MeasuredTake::begin);
  connect(&_take, &TakeSession::soundChanged, this, &MeasuredTake::beginSide);
  connect(&_take, &TakeSession::closing, this, &MeasuredTake::drop);
  connect(&_take, &TakeSession::closed, this, &MeasuredTake::drop);
}

int MeasuredTake::width() const {
  return WaveFileReader::wholeAngle(_take.angle());
}

double MeasuredTake::gain() const {
  return static_cast<double>(_take.gain());
}

// At width 0 both sides are Mid.
int MeasuredTake::shownWidth() const {
  return _take.solo() == Solo::Mid ? 0 : width();
}

Waveform MeasuredTake::waveform(std::uint64_t from, std::uint64_t to, std::size_t columns) const {
  if (_take.solo() == Solo::Side) return sideWaveform(from, to, columns);
  return analysis() ? analysis()->waveform(shownWidth(), gain(), from, to, columns) : Waveform();
}

bool MeasuredTake::isWaveformComplete() const {
  const auto& shown = _take.solo() == Solo::Side ? _recorded.analysis() : _decoded.analysis();
  return shown && shown->isComplete();
}

// Mid, which is not heard, may clip.
void MeasuredTake::showRightOnBoth(Waveform& waveform) {
  for (Waveform::Column& column : waveform.columns) {
    column.leastLeft = column.leastRight;
    column.greatestLeft = column.greatestRight;
    column.mayClip = std::max(column.greatestRight, -column.leastRight) > 1;
  }
}

// Which is the right one of the channels.
Waveform MeasuredTake::sideWaveform(std::uint64_t from, std::uint64_t to,
                                    std::size_t columns) const {
  const auto& known = _recorded.analysis();
  if (!known) return {};
  Waveform wave = known->waveform(shownWidth(), gain(), from, to, columns);
  showRightOnBoth(wave);
  return wave;
}

void MeasuredTake::begin() {
  const std::unique_ptr<WaveFileReader> reader = _take.reader();
  if (!reader) return;
  _decoded.begin(reader->apart(), _cache);
  emit measured();
}

void MeasuredTake::beginSide() {
  const bool isBegun = _recorded.isRunning() || _recorded.analysis();
  if (_take.solo() != Solo::Side || isBegun) return;
  WaveFileReader channels = _take.reader()->apart();
  channels.setIsBoMSFormat(false);
  _recorded.begin(channels, _cache);
}

void MeasuredTake::drop() {
  _decoded.drop();
  _recorded.drop();
  emit measured();
}

void MeasuredTake::lookAt(double seconds) {
  const auto reader = _take.reader();
  if (!reader || !(seconds > 0)) return;
  const auto frame = static_cast<std::uint64_t>(seconds * reader->header().SampleRate);
  _decoded.lookAt(frame);
  _recorded.lookAt(frame);
}

void MeasuredTake::collect() {
  _decoded.collect();
  _recorded.collect();
}
