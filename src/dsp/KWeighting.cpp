// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/KWeighting.h"

#include <cmath>
#include <numbers>

namespace {

// The analogue filters behind the published coefficients.
constexpr double kShelfHz = 1681.974450955533;
constexpr double kShelfDecibels = 3.999843853973347;
constexpr double kShelfQ = 0.7071752369554196;
constexpr double kShelfMiddle = 0.4996667741545416;  // exponent of the gain half way up
constexpr double kHighPassHz = 38.13547087602444;
constexpr double kHighPassQ = 0.5003270373238773;
constexpr std::uint32_t kPublishedRate = 48000;

double warped(double frequency, std::uint32_t rate) {
  return std::tan(std::numbers::pi * frequency / rate);
}

double highPassScale(std::uint32_t rate) {
  const double k = warped(kHighPassHz, rate);
  return 1.0 + k / kHighPassQ + k * k;
}

Biquad shelfAt(std::uint32_t rate) {
  const double k = warped(kShelfHz, rate);
  const double high = std::pow(10.0, kShelfDecibels / 20.0);
  const double middle = std::pow(high, kShelfMiddle);
  const double scale = 1.0 + k / kShelfQ + k * k;
  return {(high + middle * k / kShelfQ + k * k) / scale, 2.0 * (k * k - high) / scale,
          (high - middle * k / kShelfQ + k * k) / scale, 2.0 * (k * k - 1.0) / scale,
          (1.0 - k / kShelfQ + k * k) / scale};
}

// The published numerator is 1, -2, 1, not divided by the scale: a gain of 0.04 dB at 48 kHz, which
// every other rate is given too.
Biquad highPassAt(std::uint32_t rate) {
  const double k = warped(kHighPassHz, rate);
  const double scale = highPassScale(rate);
  const double gain = highPassScale(kPublishedRate) / scale;
  return {gain, -2.0 * gain, gain, 2.0 * (k * k - 1.0) / scale,
          (1.0 - k / kHighPassQ + k * k) / scale};
}

}  // namespace

KWeighting KWeighting::forRate(std::uint32_t rate) {
  return {shelfAt(rate), highPassAt(rate)};
}
