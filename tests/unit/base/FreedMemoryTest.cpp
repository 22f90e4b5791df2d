// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/FreedMemory.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
// As the C library tells of them.
std::size_t heaps() {
  char* text = nullptr;
  std::size_t size = 0;
  FILE* const stream = open_memstream(&text, &size);
  malloc_info(0, stream);
  std::fclose(stream);
  const std::string told(text, size);
  std::free(text);
  std::size_t count = 0;
  for (std::size_t at = 0; (at = told.find("<heap ", at)) != std::string::npos; ++at) ++count;
  return count;
}

// Once a larger one was freed, the C library would keep it in its heap.
TEST(FreedMemoryTest, ALargeBlockIsTheSystemsAgainWhateverWasFreedBefore) {
  FreedMemory::goesBack();
  void* volatile larger = std::malloc(16 << 20);
  std::free(larger);
  const std::size_t before = mallinfo2().hblkhd;
  void* volatile large = std::malloc(1 << 20);
  EXPECT_GE(mallinfo2().hblkhd, before + (1 << 20));
  std::free(large);
  EXPECT_EQ(mallinfo2().hblkhd, before);
}

// Each thread would have a heap of its own, and keep what was freed there.
TEST(FreedMemoryTest, WhatIsFreedOnOneThreadIsForTheOthersToo) {
  FreedMemory::goesBack();
  const auto useAndFree = [] { const std::vector<std::byte> block(64 << 10); };
  for (int i = 0; i < 3; ++i) std::thread(useAndFree).join();
  EXPECT_EQ(heaps(), 1U);
}
#endif

}  // namespace
