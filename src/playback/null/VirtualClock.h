// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class NullOutput;

/// Time that passes only when told to, for outputs without a sound system. One thread.
class VirtualClock {
 public:
  /// Lets time pass, millisecond by millisecond; every output plays its share and tells its
  /// listener what happened.
  void advance(int milliseconds);
  /// While the owner stalls, what happened is kept and told later.
  void setOwnerStalled(bool isStalled) { _isOwnerStalled = isStalled; }

 private:
  friend class NullOutput;

  std::vector<NullOutput*> _outputs;
  bool _isOwnerStalled = false;
};
