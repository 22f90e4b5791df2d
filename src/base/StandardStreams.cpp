// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

// What is opened gets the least number that is free. Nothing can be read from the one, nor written
// to the others.
void StandardStreams::reserve() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) >= 0) continue;
    open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}
