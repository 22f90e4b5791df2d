// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/StretchOption.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "cli/TimeText.h"

namespace {

constexpr double kShown = 0.001;  // seconds: whoever copies a length that is shown is not refused

std::uint64_t frameAt(double seconds, const WaveFileReader& reader) {
  const double frame = std::round(seconds * reader.header().SampleRate);
  return std::min(static_cast<std::uint64_t>(frame), reader.frameCount());
}

}  // namespace

void StretchOption::add(CLI::App& command, Needs needs) {
  auto* from = command.add_option("--from", _from, "Start in seconds or H:MM:SS");
  auto* to = command.add_option("--to", _to, "End in seconds or H:MM:SS");
  for (CLI::Option* option : {from, to}) {
    option->type_name("TIME")->transform(TimeText::check())->required(needs == Needs::BothEnds);
  }
}

void StretchOption::check() const {
  if (_to && *_to < _from) throw CLI::ValidationError("--to", "is before --from");
}

std::string StretchOption::whyNot(const WaveFileReader& reader) const {
  const double end = reader.durationSeconds();
  const bool isFromBeyond = _from > end + kShown;
  if (!isFromBeyond && _to.value_or(0) <= end + kShown) return "";
  return fmt::format("{} {} lies beyond its end at {}", isFromBeyond ? "--from" : "--to",
                     TimeText::of(isFromBeyond ? _from : *_to), TimeText::of(end));
}

std::uint64_t StretchOption::firstFrame(const WaveFileReader& reader) const {
  return frameAt(_from, reader);
}

std::uint64_t StretchOption::endFrame(const WaveFileReader& reader) const {
  return _to ? frameAt(*_to, reader) : reader.frameCount();
}
