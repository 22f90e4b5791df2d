// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/LatestErrand.h"

#include <string>
#include <utility>

void LatestErrand::ask(Work work) {
  if (!_errand.isUnderWay()) return begin(work);
  *_cancel = true;
  _next = std::move(work);
}

void LatestErrand::cancel() {
  if (_cancel) *_cancel = true;
  _next = nullptr;
}

void LatestErrand::drop() {
  cancel();
  _errand.giveUp();
}

// The outcome is only run while the errand is there, and so is what holds it.
void LatestErrand::begin(const Work& work) {
  _cancel = std::make_shared<std::atomic<bool>>(false);
  const Errand::Work guided = [this, work, cancel = _cancel]() -> Errand::Outcome {
    return [this, cancel, outcome = work(*cancel)] {
      if (_next) return begin(std::exchange(_next, nullptr));
      if (!*cancel) outcome();
    };
  };
  _errand.begin(guided, [this](const std::string& /*why*/) {
    if (_next) begin(std::exchange(_next, nullptr));
  });
}
