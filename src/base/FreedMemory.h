// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

/// What becomes of memory that is not needed any more.
class FreedMemory {
 public:
  /// From now on blocks of 128 KiB and more go back to the system as soon as they are freed, and
  /// what is freed on one thread is used by any other. By itself the C library keeps blocks of any
  /// size that was freed once, and keeps them for each of many threads, so that a program that
  /// works on one take after the other holds more and more. At the start, before there are threads.
  static void goesBack();
};
