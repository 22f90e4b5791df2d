// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Streams.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "cli/Interrupt.h"

namespace {

std::atomic<int> firstError{0};

void remember(bool isDone) {
  int none = 0;
  if (!isDone) firstError.compare_exchange_strong(none, errno == 0 ? EIO : errno);
}

}  // namespace

void Streams::out(std::string_view text) {
  if (firstError != 0) return;
  errno = 0;
  remember(std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
           std::fflush(stdout) == 0);
}

void Streams::err(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

bool Streams::isReaderGone() {
  return firstError == EPIPE;
}

// Others may have printed as well. Whoever interrupts what is printed need not be told.
std::string Streams::failure() {
  errno = 0;
  remember(std::fflush(stdout) == 0);
  const bool isInterrupted = firstError == EINTR && Interrupt::requested();
  if (firstError == 0 || isReaderGone() || isInterrupted) return {};
  return std::generic_category().message(firstError);
}
