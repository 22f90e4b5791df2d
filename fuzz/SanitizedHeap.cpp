// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The counts of a program whose heap belongs to a sanitizer, through the sanitizer's own hooks. The
// thread sanitizer tells of aligned blocks only when they are freed, so under it too little is
// counted; the other builds hold the bound.

#include <cstddef>

#include "AllocationMeter.h"

extern "C" {
int __sanitizer_install_malloc_and_free_hooks(  // NOLINT
    void (*allocated)(const volatile void* block, std::size_t size),
    void (*freed)(const volatile void* block));
std::size_t __sanitizer_get_allocated_size(const volatile void* block);  // NOLINT
}

namespace {

void onAllocated(const volatile void* /*block*/, std::size_t size) {
  AllocationMeter::allocated(size);
}

void onFreed(const volatile void* block) {
  if (block != nullptr) AllocationMeter::freed(__sanitizer_get_allocated_size(block));
}

const int kInstalled = __sanitizer_install_malloc_and_free_hooks(onAllocated, onFreed);

}  // namespace
