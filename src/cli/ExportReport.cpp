// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ExportReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/TimeText.h"

namespace {

constexpr std::size_t kMostPlaces = 3;

std::string placesText(const Clipping& clipping, double rate) {
  std::string text;
  const std::size_t shown = std::min(kMostPlaces, clipping.places().size());
  for (std::size_t i = 0; i < shown; ++i) {
    const double seconds = static_cast<double>(clipping.places()[i].first) / rate;
    text += fmt::format("{}{}", i == 0 ? "" : ", ", TimeText::of(seconds));
  }
  const std::uint64_t more = clipping.placeCount() - shown;
  if (more > 0) text += fmt::format(" and {} more place{}", more, more == 1 ? "" : "s");
  return text;
}

}  // namespace

std::string ExportReport::line(const Export& job) const {
  const std::string width =
      job.reader()->isBoMSFormat()
          ? fmt::format("width {}", WaveFileReader::wholeAngle(_settings.angle))
          : "not M/S, channels as they are";
  const std::string text = fmt::format(
      "{} -> {}: {}, {}, {}, {} bytes{}", job.getFilePath().native(), _target.native(),
      _settings.is24bit ? "24-bit" : "32-bit float", width, levelText(job),
      job.outputSize(_settings.is24bit), job.isRf64(_settings.is24bit) ? " as RF64" : "");
  return printable(text) + "\n";
}

std::string ExportReport::levelText(const Export& job) const {
  if (_settings.loudness) {
    if (job.loudnessGain()) return loudnessText(*job.loudnessGain());
    return fmt::format("{:g} LUFS, at most {:g} dBTP", _settings.loudness->lufs,
                       _settings.loudness->truePeakDbtp);
  }
  if (!_settings.isNormalized) return fmt::format("gain {:+g} dB", _settings.gain);
  if (!job.normalizeGain()) return "normalised";
  return fmt::format("normalised, gain {:+.2f} dB", *job.normalizeGain());
}

std::string ExportReport::loudnessText(const LoudnessGain& found) const {
  const auto [asked, limit] = *_settings.loudness;
  const std::string reached =
      found.lufs() ? fmt::format("{:.2f} LUFS", *found.lufs()) : "no loudness";
  std::string text = fmt::format("gain {:+.2f} dB, {}", found.gain().value_or(0), reached);
  if (found.loweredBy() <= 0) return text;
  const double less = asked - found.lufs().value_or(asked);
  const std::string why = less > 0 ? fmt::format("{:.2f} LU less than asked", less) : "kept down";
  return fmt::format("{}, {} for a true peak of {:g} dBTP", text, why, limit);
}

std::string ExportReport::longLine(const Export& job) const {
  if (!job.isRf64(_settings.is24bit)) return "";
  return printable(
      fmt::format("mixdeck-cli: {}: It passes 4 GiB, and is written as RF64", _target.native()));
}

std::string ExportReport::clippingLine(const Export& job) const {
  const Clipping& clipping = job.clipping();
  if (clipping.samples() == 0) return "";
  const std::string text =
      fmt::format("{} sample{} clipped, by up to {:.2f} dB, at {}; --format float32 keeps them",
                  clipping.samples(), clipping.samples() == 1 ? " is" : "s are",
                  20.0 * std::log10(static_cast<double>(clipping.peak())),
                  placesText(clipping, job.reader()->header().SampleRate));
  return problemLine(_target, kWarning, text);
}
