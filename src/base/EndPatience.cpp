// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/EndPatience.h"

#include <algorithm>
#include <utility>

namespace {

using namespace std::chrono_literals;

const EndPatience* current = nullptr;

}  // namespace

EndPatience::EndPatience(SteadyTime::Clock clock)
    : _clock(std::move(clock)), _end(_clock() + kWhole) {
  current = this;
}

EndPatience::~EndPatience() {
  current = nullptr;
}

std::chrono::milliseconds EndPatience::atMost(std::chrono::milliseconds own) {
  return current == nullptr ? own : std::min(own, current->left());
}

std::chrono::milliseconds EndPatience::left() const {
  return std::max(0ms, _end - _clock());
}
