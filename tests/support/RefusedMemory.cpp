// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/RefusedMemory.h"

#include <malloc.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> refusedFrom{SIZE_MAX};
std::atomic<int> refusals{0};
thread_local bool isSpared = false;
std::atomic<std::int64_t> held{0};
std::atomic<std::int64_t> mostHeld{0};

void count(std::int64_t bytes) {
  const std::int64_t now = held += bytes;
  std::int64_t most = mostHeld;
  while (now > most && !mostHeld.compare_exchange_weak(most, now)) {
  }
}

std::int64_t sizeOf(void* memory) {
  return static_cast<std::int64_t>(malloc_usable_size(memory));
}

}  // namespace

RefusedMemory::RefusedMemory(std::size_t atLeast) {
  isSpared = true;
  refusals = 0;
  refusedFrom = atLeast;
}

RefusedMemory::~RefusedMemory() {
  refusedFrom = SIZE_MAX;
  isSpared = false;
}

int RefusedMemory::count() {
  return refusals;
}

void HeldMemory::watch() {
  held = mostHeld = 0;
}

std::size_t HeldMemory::most() {
  return static_cast<std::size_t>(mostHeld);
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
void* operator new(std::size_t size) {
  if (size >= refusedFrom && !isSpared) {
    ++refusals;
    throw std::bad_alloc();
  }
  void* const memory = std::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) throw std::bad_alloc();
  count(sizeOf(memory));
  return memory;
}

void operator delete(void* memory) noexcept {
  count(-sizeOf(memory));
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  operator delete(memory);
}
#endif
