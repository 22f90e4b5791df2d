// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/LatestErrand.h"

#include <string>
#include <utility>

void LatestErrand::ask(Work work, Errand::Failed failed) {
  Wish wish{std::move(work), std::move(failed)};
  if (!_errand.isUnderWay()) return begin(wish);
  *_cancel = true;
  _next = std::move(wish);
}

void LatestErrand::cancel() {
  if (_cancel) *_cancel = true;
  _next = {};
}

void LatestErrand::drop() {
  cancel();
  _errand.giveUp();
}

// What comes of it is only heard while the errand is there, and so is what holds it.
void LatestErrand::begin(const Wish& wish) {
  _cancel = std::make_shared<std::atomic<bool>>(false);
  const Errand::Work work = [this, work = wish.work, cancel = _cancel]() -> Errand::Outcome {
    return [this, cancel, outcome = work(*cancel)] { end(*cancel, outcome); };
  };
  const Errand::Failed failed = [this, failed = wish.failed,
                                 cancel = _cancel](const std::string& why) {
    end(*cancel, [&] {
      if (failed) failed(why);
    });
  };
  if (!_errand.begin(work, failed) && wish.failed) wish.failed("no thread can be had");
}

void LatestErrand::end(bool isCancelled, const Errand::Outcome& tell) {
  if (_next.work) return begin(std::exchange(_next, {}));
  if (!isCancelled) tell();
}
