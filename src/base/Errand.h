// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

/// Something that may have to wait for a medium, done on a thread of its own, and what follows from
/// it, done where it was asked for. Nobody waits for the thread, which waits until its outcome was
/// heard or given up: what the outcome holds, a file say, goes on that thread in either case.
///
/// One thread, which has an event loop; the work alone is done on the other one.
class Errand {
 public:
  /// What is done with what the work has found, from the event loop. May delete the errand.
  using Outcome = std::function<void()>;
  /// Touches nothing of the thread that asks, but what it hands over in its outcome.
  using Work = std::function<Outcome()>;
  /// What is done, from the event loop, where the work threw an exception, as it does where memory
  /// runs out. `why` is for people.
  using Failed = std::function<void(const std::string& why)>;

  Errand() = default;
  Errand(const Errand&) = delete;
  Errand& operator=(const Errand&) = delete;
  /// Gives up.
  ~Errand() { giveUp(); }

  /// Begins, and gives up what was under way. False where no thread can be had; nothing is under
  /// way then.
  bool begin(const Work& work, const Failed& failed = {});
  void giveUp();
  [[nodiscard]] bool isUnderWay() const { return _desk != nullptr; }

 private:
  class Desk;

  void collect();

  std::shared_ptr<Desk> _desk;  ///< null while nothing is under way
};
