// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/Clipping.h"

#include <algorithm>
#include <cmath>

void Clipping::look(std::span<const float> frames, float peak) {
  for (std::size_t i = 0; isOver(peak) && i < frames.size(); ++i) {
    if (isOver(std::fabs(frames[i]))) add(_position + i / 2);
  }
  if (isOver(peak)) _peak = std::max(_peak, peak);
  _position += frames.size() / 2;
}

void Clipping::add(std::uint64_t frame) {
  const bool isNew = _samples == 0 || frame - _last > _gap;
  if (isNew) ++_placeCount;
  if (isNew && _places.size() < kMostPlaces) _places.push_back({frame, frame});
  if (_places.size() == _placeCount) _places.back().last = frame;
  ++_samples;
  _last = frame;
}
