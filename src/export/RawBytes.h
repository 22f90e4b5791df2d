// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

/// Memory whose new elements hold anything: who grows a vector only to write over it need not wait
/// for zeros.
template <class T>
struct RawMemory : std::allocator<T> {
  template <class Other>
  struct rebind {  // NOLINT(readability-identifier-naming): the name that containers ask for
    using other = RawMemory<Other>;  // NOLINT(readability-identifier-naming)
  };

  template <class Made>
  void construct(Made* place) noexcept {
    ::new (static_cast<void*>(place)) Made;
  }
  template <class Made, class... Arguments>
  void construct(Made* place, Arguments&&... arguments) {
    std::construct_at(place, std::forward<Arguments>(arguments)...);
  }
};

/// Bytes of which those that a `resize` adds are not set.
using RawBytes = std::vector<std::byte, RawMemory<std::byte>>;
