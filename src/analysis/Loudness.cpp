// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/Loudness.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kOffset = -0.691;      // of the standard: 997 Hz at 0 dBFS in one channel is -3.01
constexpr std::size_t kRangeStep = 10;  // blocks: a short-term value every second

double powerOf(double lufs) {
  return std::pow(10.0, (lufs - kOffset) / 10.0);
}

const double kAbsoluteGate = powerOf(-70.0);
constexpr double kIntegratedGate = 0.1;  // 10 LU
constexpr double kRangeGate = 0.01;      // 20 LU

std::optional<double> lufs(double power) {
  if (!(power > 0) || !std::isfinite(power)) return std::nullopt;
  return kOffset + 10.0 * std::log10(power);
}

// The value that the given share of all values lies under.
double percentile(std::vector<double>& values, double share) {
  const std::ptrdiff_t at = std::lround(static_cast<double>(values.size() - 1) * share);
  std::ranges::nth_element(values, values.begin() + at);
  return values[static_cast<std::size_t>(at)];
}

}  // namespace

Loudness::Loudness(const Halves& halves, std::size_t blockFrames) {
  _momentary =
      slide(halves, 2 * kMomentaryBlocks, 1, static_cast<double>(kMomentaryBlocks * blockFrames));
  _shortTerm =
      slide(halves, 2 * kShortTermBlocks, 2, static_cast<double>(kShortTermBlocks * blockFrames));
}

Loudness::Windows Loudness::slide(const Halves& halves, std::size_t length, std::size_t step,
                                  double frames) {
  Windows windows;
  if (halves.size() < length) return windows;
  windows.reserve((halves.size() - length) / step + 1);
  for (std::size_t i = 0; i + length <= halves.size(); i += step) {
    double first = 0;
    double second = 0;
    for (const auto& half : std::span(halves).subspan(i, length)) {
      first += static_cast<double>(half.first);
      second += static_cast<double>(half.second);
    }
    windows.push_back({static_cast<float>(first / frames), static_cast<float>(second / frames)});
  }
  return windows;
}

Loudness::View Loudness::within(const Windows& windows, std::size_t length, std::size_t first,
                                std::size_t end) {
  const std::size_t last = end < length ? 0 : std::min(end - length + 1, windows.size());
  if (first >= last) return {};
  return View(windows).subspan(first, last - first);
}

double Loudness::greatest(View windows, const Weights& weights) {
  double most = 0;
  for (const Window& window : windows) {
    const double power = window.power(weights);
    if (power > most) most = power;
  }
  return most;
}

// Of the windows that begin with a block.
double Loudness::gatedMean(View halfSteps, const Weights& weights, double gate) {
  double sum = 0;
  double count = 0;
  for (std::size_t i = 0; i < halfSteps.size(); i += 2) {
    const double power = halfSteps[i].power(weights);
    const bool isOver = power >= gate;
    sum += isOver ? power : 0.0;
    count += isOver ? 1.0 : 0.0;
  }
  return count > 0 ? sum / count : 0.0;
}

std::optional<double> Loudness::integrated(View windows, const Weights& weights, double powerGain) {
  const double absolute = kAbsoluteGate / powerGain;
  const double mean = gatedMean(windows, weights, absolute);
  const double gate = std::max(absolute, mean * kIntegratedGate);
  return lufs(powerGain * gatedMean(windows, weights, gate));
}

std::optional<double> Loudness::range(View windows, const Weights& weights, double powerGain) {
  std::vector<double> powers;
  double sum = 0;
  for (std::size_t i = 0; i < windows.size(); i += kRangeStep) {
    const double power = windows[i].power(weights);
    if (!(power * powerGain >= kAbsoluteGate)) continue;
    powers.push_back(power);
    sum += power;
  }
  if (powers.empty() || !std::isfinite(sum)) return std::nullopt;
  const double gate = sum / static_cast<double>(powers.size()) * kRangeGate;
  std::erase_if(powers, [gate](double power) { return power < gate; });
  const double low = percentile(powers, 0.1);
  return 10.0 * std::log10(percentile(powers, 0.95) / low);
}

Loudness::Figures Loudness::measure(const ChannelMix& mix, double powerGain, std::size_t first,
                                    std::size_t end) const {
  const View momentary = within(_momentary, 2 * kMomentaryBlocks, 2 * first, 2 * end);
  const View shortTerm = within(_shortTerm, kShortTermBlocks, first, end);
  const Weights weights = mix.power();
  return {integrated(momentary, weights, powerGain), range(shortTerm, weights, powerGain),
          lufs(powerGain * greatest(momentary, weights)),
          lufs(powerGain * greatest(shortTerm, weights))};
}

std::optional<double> Loudness::momentary(const ChannelMix& mix, double powerGain,
                                          std::size_t block) const {
  if (2 * block >= _momentary.size()) return std::nullopt;
  return lufs(powerGain * _momentary[2 * block].power(mix.power()));
}

std::optional<double> Loudness::shortTerm(const ChannelMix& mix, double powerGain,
                                          std::size_t block) const {
  if (block >= _shortTerm.size()) return std::nullopt;
  return lufs(powerGain * _shortTerm[block].power(mix.power()));
}

std::size_t Loudness::memory() const {
  return (_momentary.capacity() + _shortTerm.capacity()) * sizeof(Window);
}
