// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/RefusedMemory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> refusedFrom{SIZE_MAX};
std::atomic<int> refusals{0};
thread_local bool isSpared = false;

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

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
void* operator new(std::size_t size) {
  if (size >= refusedFrom && !isSpared) {
    ++refusals;
    throw std::bad_alloc();
  }
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
#endif
