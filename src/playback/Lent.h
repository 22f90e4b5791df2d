// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <thread>

/// Something of its owner's that one other thread uses, and that the owner exchanges or takes away
/// at any time.
///
/// `use` belongs to the other thread and never waits. `set` belongs to the owner's thread and waits
/// at most for one use under way. The two flags are read after the other side's has been written,
/// in one order for all threads: either `use` sees the new one, or `set` sees the use.
template <class T>
class Lent {
 public:
  /// Null: nothing. When it returns, what was lent before is no longer in use.
  void set(T* thing) {
    _thing.store(thing);
    while (_isInUse.load()) std::this_thread::yield();
  }

  /// Calls `work` with what is lent, if anything is.
  template <class Work>
  void use(Work work) {
    _isInUse.store(true);
    T* const thing = _thing.load();
    if (thing != nullptr) work(*thing);
    _isInUse.store(false);
  }

 private:
  std::atomic<T*> _thing{nullptr};
  std::atomic<bool> _isInUse{false};
};
