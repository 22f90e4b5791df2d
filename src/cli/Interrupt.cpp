// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Interrupt.h"

#include <unistd.h>

#include <csignal>

namespace {

std::atomic<bool> isRequested{false};
std::atomic<int> endStatus{0};
static_assert(std::atomic<bool>::is_always_lock_free, "set in a signal handler");
static_assert(std::atomic<int>::is_always_lock_free, "set in a signal handler");

extern "C" void onSignal(int number) {
  constexpr int kKilledBy = 128;
  if (isRequested.exchange(true)) _exit(kKilledBy + number);
  endStatus = kKilledBy + number;
}

void handle(int number, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  sigaction(number, &action, nullptr);
}

}  // namespace

void Interrupt::install() {
  handle(SIGINT, onSignal);
  handle(SIGTERM, onSignal);
  handle(SIGHUP, onSignal);
  handle(SIGXFSZ, SIG_IGN);
  handle(SIGPIPE, SIG_IGN);
}

const std::atomic<bool>& Interrupt::requested() {
  return isRequested;
}

int Interrupt::status() {
  return endStatus;
}
