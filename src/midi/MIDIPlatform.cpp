// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIPlatform.h"

#include <utility>

#include "midi/AbsentMIDISystem.h"
#include "midi/QtMIDIClock.h"

namespace {

struct Installed {
  std::shared_ptr<MIDISystem> system = std::make_shared<AbsentMIDISystem>();
  std::shared_ptr<MIDIClock> clock = std::make_shared<QtMIDIClock>();
};

Installed& installed() {
  static Installed platform;
  return platform;
}

}  // namespace

void MIDIPlatform::install(std::shared_ptr<MIDISystem> system, std::shared_ptr<MIDIClock> clock) {
  installed() = {std::move(system), std::move(clock)};
}

std::shared_ptr<MIDISystem> MIDIPlatform::system() {
  return installed().system;
}

MIDIClock& MIDIPlatform::clock() {
  return *installed().clock;
}

std::shared_ptr<MIDIClock> MIDIPlatform::sharedClock() {
  return installed().clock;
}
