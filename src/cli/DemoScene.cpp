// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/DemoScene.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;
constexpr double kBellEvery = 1.25;  // seconds
constexpr double kStepEvery = 0.55;

double since(double time, double period) {
  return time - std::floor(time / period) * period;
}

}  // namespace

// A 64-bit xorshift generator: -1 to 1, repeatable.
double DemoScene::noise() {
  _random ^= _random << 13;
  _random ^= _random >> 7;
  _random ^= _random << 17;
  return static_cast<double>(static_cast<std::int64_t>(_random)) / 9223372036854775808.0;
}

double DemoScene::bell(double time) const {
  const double age = since(time, kBellEvery);
  const double strike = std::exp(-3.0 * age) * std::sin(kTwoPi * 880.0 * age);
  const double overtone = std::exp(-6.0 * age) * std::sin(kTwoPi * 2393.0 * age);
  return 0.22 * strike + 0.11 * overtone;
}

double DemoScene::step(double time) {
  const double age = since(time, kStepEvery);
  return 0.12 * std::exp(-60.0 * age) * noise();
}

void DemoScene::fill(std::span<float> frames) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2, ++_frame) {
    const double time = static_cast<double>(_frame) / kRate;
    const double way = static_cast<double>(_frame) / static_cast<double>(kFrames);
    const double pan = 0.9 * (1.0 - 2.0 * way);  // positive is left
    const double source = bell(time) + step(time);
    _ambienceMid += 0.05 * (noise() - _ambienceMid);
    _ambienceSide += 0.05 * (noise() - _ambienceSide);
    frames[i] = static_cast<float>(source + 0.1 * _ambienceMid);
    frames[i + 1] = static_cast<float>(pan * source + 0.15 * _ambienceSide);
  }
}
