// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "takes/TakeKeeper.h"
#include "wav/WaveFileReader.h"

/// What a take is decoded with.
struct TakeLevel {
  double width = 0;  ///< degrees
  double gain = 0;   ///< dB
};

/// `--remembered`: each take at the width and the gain that the window remembers of it.
class RememberedOption {
 public:
  CLI::Option* add(CLI::App& command);

  /// Sets the level, where the option was given and something is remembered of the take. What there
  /// is to warn of, else empty. Any thread; waits for the medium.
  std::string apply(const WaveFileReader& reader, TakeLevel& level) const;

 private:
  [[nodiscard]] static std::string textOf(TakeMemory::Trouble trouble);

  bool _isOn = false;
  std::unique_ptr<TakeKeeper> _keeper;  ///< null unless it was given
};
