// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The C library's heap with a count: its functions replaced by ones that call its own inner ones.
// The operators new and delete come through here too.

#include <malloc.h>

#include <cerrno>
#include <cstdlib>

#include "AllocationMeter.h"

extern "C" {
void* __libc_malloc(std::size_t size) noexcept;                           // NOLINT
void* __libc_calloc(std::size_t count, std::size_t size) noexcept;        // NOLINT
void* __libc_realloc(void* block, std::size_t size) noexcept;             // NOLINT
void* __libc_memalign(std::size_t alignment, std::size_t size) noexcept;  // NOLINT
void __libc_free(void* block) noexcept;                                   // NOLINT
}

namespace {

std::size_t sizeOf(void* block) {
  return block == nullptr ? 0 : malloc_usable_size(block);
}

void* counted(void* block) {
  AllocationMeter::allocated(sizeOf(block));
  return block;
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) noexcept {
  return counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return counted(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
  const std::size_t before = sizeOf(block);
  void* const moved = __libc_realloc(block, size);
  if (moved != nullptr || size == 0) AllocationMeter::freed(before);
  return counted(moved);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
  return counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  *block = memalign(alignment, size);
  return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) noexcept {
  AllocationMeter::freed(sizeOf(block));
  __libc_free(block);
}
}
