// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/RememberedOption.h"

#include <fmt/format.h>

#include <optional>

#include "takes/TakeIdentity.h"

CLI::Option* RememberedOption::add(CLI::App& command) {
  auto* const option = command.add_flag(
      "--remembered", _isOn, "Each at the width and gain that the window remembers of it");
  command.parse_complete_callback([this] {
    if (_isOn) _keeper = std::make_unique<TakeKeeper>();
  });
  return option;
}

std::string RememberedOption::textOf(TakeMemory::Trouble trouble) {
  using Trouble = TakeMemory::Trouble;
  switch (trouble) {
    case Trouble::SetAside:
      return fmt::format("What was remembered was damaged, and is set aside as {}; ",
                         TakeMemory().damagedPath().native());
    case Trouble::Newer:
      return "What is remembered is of a newer version; ";
    case Trouble::OutOfReach:
      return "What is remembered cannot be read; ";
    case Trouble::None:
      break;
  }
  return "Nothing is remembered of it; ";
}

std::string RememberedOption::apply(const WaveFileReader& reader, TakeLevel& level) const {
  if (!_keeper) return "";
  const std::string take = TakeIdentity::of(reader);
  const auto sound = take.empty() ? std::nullopt : _keeper->find(take);
  if (!sound) {
    return textOf(_keeper->takeTrouble()) +
           fmt::format("it is exported at {} degrees and {} dB", level.width, level.gain);
  }
  level.width = sound->width.value_or(level.width);
  level.gain = static_cast<double>(sound->gain);
  return "";
}
