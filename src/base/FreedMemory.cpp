// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/FreedMemory.h"

#include <malloc.h>

void FreedMemory::goesBack() {
  constexpr int kLarge = 128 << 10;
  mallopt(M_MMAP_THRESHOLD, kLarge);
  mallopt(M_ARENA_MAX, 1);
}
