// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "PlainMeter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "dsp/KWeighting.h"
#include "dsp/Oversampling.h"

namespace {

using Powers = std::vector<double>;

// One channel through one section, by the difference equation.
std::vector<double> filtered(const std::vector<double>& in, const Biquad& f) {
  std::vector<double> out(in.size());
  const auto before = [](const std::vector<double>& x, std::size_t i, std::size_t by) {
    return i < by ? 0.0 : x[i - by];
  };
  for (std::size_t i = 0; i < in.size(); ++i) {
    out[i] = f.b0 * in[i] + f.b1 * before(in, i, 1) + f.b2 * before(in, i, 2) -
             f.a1 * before(out, i, 1) - f.a2 * before(out, i, 2);
  }
  return out;
}

std::vector<double> channel(const Frames& frames, std::size_t index, double factor) {
  std::vector<double> samples;
  for (std::size_t i = index; i < frames.size(); i += 2) {
    samples.push_back(factor * static_cast<double>(frames[i]));
  }
  return samples;
}

// Running sum of squares of both channels: the sum of a stretch is a difference.
std::vector<long double> weightedSums(const Frames& frames, std::uint32_t rate, double factor) {
  const KWeighting weighting = KWeighting::forRate(rate);
  std::vector<long double> sums(frames.size() / 2 + 1);
  for (const std::size_t index : {0U, 1U}) {
    const auto out =
        filtered(filtered(channel(frames, index, factor), weighting.shelf), weighting.highPass);
    long double sum = 0;
    for (std::size_t i = 0; i < out.size(); ++i) {
      sum += static_cast<long double>(out[i]) * static_cast<long double>(out[i]);
      sums[i + 1] += sum;
    }
  }
  return sums;
}

// Mean squares of windows of whole blocks; `starts` tells where within a block they begin.
Powers windows(const std::vector<long double>& sums, std::size_t block, std::size_t blocks,
               const std::vector<std::size_t>& starts) {
  Powers powers;
  const std::size_t whole = (sums.size() - 1) / block * block;
  for (std::size_t first = 0; first < whole; first += block) {
    for (const std::size_t start : starts) {
      const std::size_t begin = first + start;
      const std::size_t end = first + blocks * block + start;
      if (end > whole) continue;
      powers.push_back(static_cast<double>(sums[end] - sums[begin]) /
                       static_cast<double>(blocks * block));
    }
  }
  return powers;
}

double lufs(double power) {
  return -0.691 + 10.0 * std::log10(power);
}

Powers over(const Powers& powers, double gate) {
  Powers kept;
  std::ranges::copy_if(powers, std::back_inserter(kept),
                       [gate](double power) { return power > 0 && lufs(power) >= gate; });
  return kept;
}

double mean(const Powers& powers) {
  double sum = 0;
  for (const double power : powers) sum += power;
  return sum / static_cast<double>(powers.size());
}

std::optional<double> greatest(const Powers& powers) {
  const auto found = std::ranges::max_element(powers);
  if (found == powers.end() || *found <= 0) return std::nullopt;
  return lufs(*found);
}

std::optional<double> integrated(const Powers& powers) {
  const Powers loud = over(powers, -70);
  if (loud.empty()) return std::nullopt;
  return lufs(mean(over(loud, lufs(mean(loud)) - 10)));
}

std::optional<double> range(const Powers& shortTerm) {
  Powers everySecond;
  for (std::size_t i = 0; i < shortTerm.size(); i += 10) everySecond.push_back(shortTerm[i]);
  const Powers loud = over(everySecond, -70);
  if (loud.empty()) return std::nullopt;
  Powers kept = over(loud, lufs(mean(loud)) - 20);
  std::ranges::sort(kept);
  const auto at = [&](double share) {
    return lufs(kept[static_cast<std::size_t>(
        std::floor(static_cast<double>(kept.size() - 1) * share + 0.5))]);
  };
  return at(0.95) - at(0.1);
}

std::optional<double> decibels(double peak) {
  if (peak <= 0) return std::nullopt;
  return 20.0 * std::log10(peak);
}

void addLoudness(TakeFigures& figures, const Frames& frames, std::uint32_t rate, double factor) {
  const std::size_t block = (rate + 5) / 10;
  const auto sums = weightedSums(frames, rate, factor);
  const Powers shortTerm = windows(sums, block, 30, {0});
  figures.integratedLufs = integrated(windows(sums, block, 4, {0}));
  figures.momentaryMaxLufs = greatest(windows(sums, block, 4, {0, block / 2}));
  figures.shortTermMaxLufs = greatest(shortTerm);
  figures.rangeLu = range(shortTerm);
}

void addCorrelation(TakeFigures& figures, const Frames& frames) {
  double left = 0;
  double right = 0;
  double both = 0;
  for (std::size_t i = 0; i < frames.size(); i += 2) {
    const auto l = static_cast<double>(frames[i]);
    const auto r = static_cast<double>(frames[i + 1]);
    left += l * l;
    right += r * r;
    both += l * r;
  }
  if (left <= 0 || right <= 0) return;
  figures.correlation = both / std::sqrt(left * right);
  figures.balanceDb = 10.0 * std::log10(left / right);
}

}  // namespace

TakeFigures PlainMeter::measure(const Frames& leftRight, std::uint32_t rate, double gain) {
  TakeFigures figures;
  const double factor = std::pow(10.0, gain / 20.0);
  addLoudness(figures, leftRight, rate, factor);
  addCorrelation(figures, leftRight);
  for (std::size_t i = 0; i < leftRight.size(); ++i) {
    double& peak = i % 2 == 0 ? figures.peakLeft : figures.peakRight;
    peak = std::max(peak, std::fabs(static_cast<double>(leftRight[i])));
  }
  figures.samplePeakDbfs = decibels(factor * std::max(figures.peakLeft, figures.peakRight));
  figures.truePeakDbtp = decibels(factor * truePeak(leftRight, rate));
  return figures;
}

double PlainMeter::truePeak(const Frames& leftRight, std::uint32_t rate) {
  double peak = 0;
  for (const float sample : leftRight) {
    peak = std::max(peak, static_cast<double>(std::fabs(sample)));
  }
  Frames padded(2 * Oversampling::kBefore);
  padded.insert(padded.end(), leftRight.begin(), leftRight.end());
  padded.resize(padded.size() + 2 * Oversampling::kAfter);
  for (const auto& taps : Oversampling::phases(Oversampling::factor(rate))) {
    for (std::size_t i = 0; i < leftRight.size(); ++i) {
      double sum = 0;
      for (std::size_t j = 0; j < taps.size(); ++j) {
        sum += static_cast<double>(taps[j]) * static_cast<double>(padded[i + 2 * j]);
      }
      peak = std::max(peak, std::fabs(sum));
    }
  }
  return peak;
}
