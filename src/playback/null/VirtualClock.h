// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// Time that passes only when told to, for outputs without a sound system. One thread.
class VirtualClock {
 public:
  /// Who lives by the clock. Between its adding and its removal it stays where it is.
  class Dial {
   public:
    Dial() = default;
    Dial(const Dial&) = delete;
    Dial& operator=(const Dial&) = delete;
    virtual ~Dial() = default;

    /// Does what it does in a millisecond.
    virtual void passMillisecond() = 0;
    /// Tells its owner what has happened; may end in its own removal or deletion, and in others'
    /// being added.
    virtual void deliver() = 0;
  };

  void add(Dial& dial) { _dials.push_back(&dial); }
  void remove(Dial& dial) { std::erase(_dials, &dial); }

  /// Lets time pass, millisecond by millisecond.
  void advance(int milliseconds);
  /// While the owner stalls, what happened is kept and told later.
  void setOwnerStalled(bool isStalled) { _isOwnerStalled = isStalled; }

 private:
  std::vector<Dial*> _dials;
  bool _isOwnerStalled = false;
};
