// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WaveformReading.h"

#include <algorithm>
#include <utility>

#include "analysis/WaveformTruth.h"
#include "app/MeasuredTake.h"

WaveformReading::WaveformReading(TakeSession& take, QObject* parent)
    : QObject(parent), _take(take) {
  connect(&_take, &TakeSession::opening, this, &WaveformReading::drop);
  connect(&_take, &TakeSession::closed, this, &WaveformReading::drop);
}

void WaveformReading::drop() {
  _closeUpErrand.drop();
  _truthErrand.drop();
  _closeUp.reset();
}

std::shared_ptr<const CloseUp> WaveformReading::closeUp(std::uint64_t from, std::uint64_t to,
                                                        std::size_t columns) {
  const Stretch stretch{from, to, columns, _take.solo() == Solo::Side};
  const bool isThat = _closeUp && _isOfSide == stretch.isSide;
  if (isThat && _closeUp->isOf(from, to, columns)) return _closeUp;
  if (_closeUpErrand.isUnderWay() && _asked == stretch) return nullptr;
  _asked = stretch;
  const auto source = reader(stretch.isSide);
  _closeUpErrand.ask([=, this](const std::atomic<bool>& cancel) -> Errand::Outcome {
    return [this, stretch, read = CloseUp::read(*source, from, to, columns, &cancel)] {
      if (!read) return;
      _closeUp = read;
      _isOfSide = stretch.isSide;
      emit closeUpRead();
    };
  });
  return nullptr;
}

// Side alone is the right one of the channels, which nobody decodes.
std::shared_ptr<const WaveFileReader> WaveformReading::reader(bool isSide) const {
  auto apart = std::make_shared<WaveFileReader>(_take.reader()->apart());
  if (isSide) apart->setIsBoMSFormat(false);
  return apart;
}

void WaveformReading::settle(const Waveform& waveform, int width, double gain) {
  const auto seemsToClip = [](const Waveform::Column& column) { return column.mayClip; };
  if (std::ranges::none_of(waveform.columns, seemsToClip)) return _truthErrand.cancel();
  const bool isSide = _take.solo() == Solo::Side;
  const auto source = reader(isSide);
  _truthErrand.ask([=, this](const std::atomic<bool>& cancel) -> Errand::Outcome {
    Waveform truth = waveform;
    if (!WaveformTruth(*source, 0, width, gain).settle(truth, &cancel)) return [] {};
    if (isSide) MeasuredTake::showRightOnBoth(truth);
    return [this, settledNow = std::move(truth)] { emit settled(settledNow); };
  });
}
