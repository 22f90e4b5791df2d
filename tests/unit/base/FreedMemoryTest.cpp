// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/FreedMemory.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>

namespace {

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
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
#endif

}  // namespace
