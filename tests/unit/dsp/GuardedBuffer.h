// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>
#include <span>
#include <vector>

/// Elements at a chosen distance in bytes from a 64-byte boundary, between two runs of guard bytes
/// that show whether anyone wrote outside. The distance suits the alignment of `Element`.
template <class Element>
class GuardedBuffer {
 public:
  GuardedBuffer(std::size_t count, std::size_t offset)
      : _storage(kGuard + offset + count * sizeof(Element) + kGuard + kBoundary, kGuardByte),
        _count(count) {
    const auto address = reinterpret_cast<std::uintptr_t>(_storage.data()) + kGuard;
    _start = kGuard + (kBoundary - address % kBoundary) % kBoundary + offset;
  }

  GuardedBuffer(std::span<const Element> content, std::size_t offset)
      : GuardedBuffer(content.size(), offset) {
    std::copy(content.begin(), content.end(), span().begin());
  }

  std::span<Element> span() {
    return {reinterpret_cast<Element*>(_storage.data() + _start), _count};
  }

  [[nodiscard]] bool guardsUntouched() const {
    const auto isGuard = [](std::byte value) { return value == kGuardByte; };
    const auto start = _storage.begin() + static_cast<std::ptrdiff_t>(_start);
    const auto end = start + static_cast<std::ptrdiff_t>(_count * sizeof(Element));
    return std::all_of(_storage.begin(), start, isGuard) &&
           std::all_of(end, _storage.end(), isGuard);
  }

 private:
  static constexpr std::size_t kBoundary = 64;
  static constexpr std::size_t kGuard = 64;
  static constexpr std::byte kGuardByte{0xA5};

  std::vector<std::byte> _storage;
  std::size_t _count;
  std::size_t _start = 0;
};

/// Elements that touch a page nobody may access: reading or writing one byte too far, to the side
/// that touches, ends the program.
template <class Element>
class PageEdgeBuffer {
 public:
  enum class Side { Before, After };

  /// `count` elements, at most a page of them, with the forbidden page on this side.
  PageEdgeBuffer(std::size_t count, Side forbidden) : _count(count) {
    _pages = mmap(nullptr, 3 * kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (_pages == MAP_FAILED) throw std::bad_alloc();
    auto* const middle = static_cast<std::byte*>(_pages) + kPage;
    if (mprotect(middle, kPage, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
    const std::size_t size = count * sizeof(Element);
    _start = forbidden == Side::Before ? middle : middle + kPage - size;
  }
  ~PageEdgeBuffer() { munmap(_pages, 3 * kPage); }
  PageEdgeBuffer(const PageEdgeBuffer&) = delete;
  PageEdgeBuffer& operator=(const PageEdgeBuffer&) = delete;

  std::span<Element> span() { return {reinterpret_cast<Element*>(_start), _count}; }

 private:
  static constexpr std::size_t kPage = 4096;

  void* _pages = nullptr;
  std::byte* _start = nullptr;
  std::size_t _count;
};
