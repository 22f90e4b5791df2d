// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>

#include "wav/WaveFileReader.h"

/// `--from` and `--to`: a stretch of a recording, in seconds or H:MM:SS.
class StretchOption {
 public:
  enum class Needs { Nothing, BothEnds };

  void add(CLI::App& command, Needs needs);
  /// Throws where the end is before the beginning. After the options have been parsed.
  void check() const;

  /// Why the recording has no such stretch, with where it ends; empty where it has.
  [[nodiscard]] std::string whyNot(const WaveFileReader& reader) const;

  /// In seconds.
  [[nodiscard]] double from() const { return _from; }
  [[nodiscard]] const std::optional<double>& to() const { return _to; }
  /// The frames from the nearest to `from` up to the nearest to `to`, that one not included.
  [[nodiscard]] std::uint64_t firstFrame(const WaveFileReader& reader) const;
  [[nodiscard]] std::uint64_t endFrame(const WaveFileReader& reader) const;

 private:
  double _from = 0;
  std::optional<double> _to;
};
