// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <optional>

/// A queue of small values from one thread to one other, without locks or allocation.
///
/// The producer calls `push`, the consumer `front` and `pop`; each index is written by one side
/// only, and its release store makes the value before it visible to the other side. `clear` only
/// while neither runs.
template <class Value, std::size_t Capacity>
class SpscRing {
 public:
  /// False when full.
  bool push(Value value) {
    const std::size_t end = _end.load(std::memory_order_relaxed);
    if (end - _begin.load(std::memory_order_acquire) == Capacity) return false;
    _values[end % Capacity] = value;
    _end.store(end + 1, std::memory_order_release);
    return true;
  }

  [[nodiscard]] std::optional<Value> front() const {
    const std::size_t begin = _begin.load(std::memory_order_relaxed);
    if (begin == _end.load(std::memory_order_acquire)) return std::nullopt;
    return _values[begin % Capacity];
  }

  std::optional<Value> pop() {
    const std::optional<Value> value = front();
    if (value) _begin.store(_begin.load(std::memory_order_relaxed) + 1, std::memory_order_release);
    return value;
  }

  void clear() {
    _begin.store(0, std::memory_order_relaxed);
    _end.store(0, std::memory_order_relaxed);
  }

 private:
  std::array<Value, Capacity> _values{};
  std::atomic<std::size_t> _begin{0};
  std::atomic<std::size_t> _end{0};
};
