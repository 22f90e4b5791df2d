// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "base/Errand.h"

/// An errand of which only the latest that was asked for matters: a new one cancels what is under
/// way and begins once that has ended, so that there is never more than one thread, even where a
/// medium hangs. One thread, which has an event loop.
class LatestErrand {
 public:
  /// As the work of an errand; ends early, with any outcome, when `cancel` becomes true.
  using Work = std::function<Errand::Outcome(const std::atomic<bool>& cancel)>;

  LatestErrand() = default;
  LatestErrand(const LatestErrand&) = delete;
  LatestErrand& operator=(const LatestErrand&) = delete;
  ~LatestErrand() { drop(); }

  /// `failed` is told where the work threw, and where no thread can be had: then it may be from
  /// inside of this.
  void ask(Work work, Errand::Failed failed = {});
  /// Nothing comes of what was asked for; what is asked next waits for its end all the same.
  void cancel();
  /// As `cancel`, but a hanging thread is left to itself: what is asked next has one of its own.
  void drop();
  [[nodiscard]] bool isUnderWay() const { return _errand.isUnderWay(); }

 private:
  struct Wish {
    Work work;
    Errand::Failed failed;
  };

  void begin(const Wish& wish);
  void end(bool isCancelled, const Errand::Outcome& tell);

  std::shared_ptr<std::atomic<bool>> _cancel;  ///< of what is under way
  Wish _next;                                  ///< without work for none
  Errand _errand;
};
