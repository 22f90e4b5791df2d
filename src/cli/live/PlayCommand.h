// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

#include "cli/Command.h"
#include "cli/StretchOption.h"
#include "wav/WaveFileReader.h"

/// `play`: lets a recording be heard as it would be exported. On a terminal it shows a time line
/// and takes keys; otherwise it plays to the end.
class PlayCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  [[nodiscard]] int play(std::shared_ptr<const WaveFileReader> reader) const;
  void warn(const WaveFileReader& reader) const;
  [[nodiscard]] int fail(std::string_view text, std::string_view reason) const;

  std::filesystem::path _file;
  StretchOption _stretch;
  std::optional<double> _angle;
  double _gain = 0;
  double _volume = 1;
};
