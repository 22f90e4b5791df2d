// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdlib>
#include <utility>

/// A block of the C heap with its length. The array never allocates by itself: its owner puts a
/// block from the malloc family into `bytes` and its element count into `length`. `dispose` frees
/// the block and sets `length` to 0 but keeps the pointer, so a disposed array is not used again;
/// the destructor disposes what its owner did not.
template <class Element>
class HeapArray {
 public:
  HeapArray() = default;
  HeapArray(const HeapArray&) = delete;
  HeapArray& operator=(const HeapArray&) = delete;
  HeapArray(HeapArray&& other) noexcept { swap(other); }
  HeapArray& operator=(HeapArray&& other) noexcept {
    swap(other);
    return *this;
  }
  ~HeapArray() { dispose(); }

  void dispose() {
    if (bytes != nullptr && !_disposed) std::free(bytes);  // NOLINT(cppcoreguidelines-no-malloc)
    _disposed = true;
    length = 0;
  }

  Element* bytes = nullptr;
  std::uint64_t length = 0;  ///< in elements

 private:
  void swap(HeapArray& other) noexcept {
    std::swap(bytes, other.bytes);
    std::swap(length, other.length);
    std::swap(_disposed, other._disposed);
  }

  bool _disposed = false;
};

using WavArray = HeapArray<std::uint8_t>;
using WavArrayFloat = HeapArray<double>;
using WavArrayFloat32 = HeapArray<float>;
