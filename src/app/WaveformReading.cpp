// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WaveformReading.h"

#include <algorithm>
#include <utility>

#include "analysis/WaveformTruth.h"

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
  if (_closeUp && _closeUp->isOf(from, to, columns)) return _closeUp;
  const Stretch stretch{from, to, columns};
  if (_closeUpErrand.isUnderWay() && _asked == stretch) return nullptr;
  _asked = stretch;
  const auto reader = std::make_shared<const WaveFileReader>(_take.reader()->apart());
  _closeUpErrand.ask([=, this](const std::atomic<bool>& cancel) -> Errand::Outcome {
    return [this, read = CloseUp::read(*reader, from, to, columns, &cancel)] {
      if (!read) return;
      _closeUp = read;
      emit closeUpRead();
    };
  });
  return nullptr;
}

void WaveformReading::settle(const Waveform& waveform, int width, double gain) {
  const auto seemsToClip = [](const Waveform::Column& column) { return column.mayClip; };
  if (std::ranges::none_of(waveform.columns, seemsToClip)) return _truthErrand.cancel();
  const auto reader = std::make_shared<const WaveFileReader>(_take.reader()->apart());
  _truthErrand.ask([=, this](const std::atomic<bool>& cancel) -> Errand::Outcome {
    Waveform truth = waveform;
    if (!WaveformTruth(*reader, 0, width, gain).settle(truth, &cancel)) return [] {};
    return [this, settledNow = std::move(truth)] { emit settled(settledNow); };
  });
}
