// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/RawTerminal.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "cli/Interrupt.h"

namespace {

termios before{};
termios keys{};
constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};
std::array<struct sigaction, kSignals.size()> formerActions{};
struct sigaction formerContinue {};

const struct sigaction& formerOf(int number) {
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    if (kSignals[i] == number) return formerActions[i];
  }
  return formerContinue;
}

// Only what may be called in a signal handler. After the settings are back the signal does what it
// did before; this handler returns in its place once the program goes on.
extern "C" void onEndingSignal(int number) {
  const int error = errno;
  tcsetattr(STDIN_FILENO, TCSANOW, &before);
  struct sigaction mine {};
  sigset_t only;
  sigemptyset(&only);
  sigaddset(&only, number);
  sigaction(number, &formerOf(number), &mine);
  raise(number);
  sigprocmask(SIG_UNBLOCK, &only, nullptr);
  sigaction(number, &mine, nullptr);
  errno = error;
}

extern "C" void onContinue(int /*number*/) {
  const int error = errno;
  if (tcgetpgrp(STDIN_FILENO) == getpgrp()) tcsetattr(STDIN_FILENO, TCSANOW, &keys);
  errno = error;
}

struct sigaction handledBy(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  return action;
}

}  // namespace

RawTerminal::RawTerminal() {
  const bool isTerminal = isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
  if (!isTerminal || tcgetpgrp(STDIN_FILENO) != getpgrp()) return;
  if (tcgetattr(STDIN_FILENO, &before) != 0) return;
  keys = before;
  keys.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
  keys.c_cc[VMIN] = 0;
  keys.c_cc[VTIME] = 0;
  const struct sigaction ending = handledBy(onEndingSignal);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], &ending, &formerActions[i]);
  }
  const struct sigaction continuing = handledBy(onContinue);
  sigaction(SIGCONT, &continuing, &formerContinue);
  tcsetattr(STDIN_FILENO, TCSANOW, &keys);
  _isActive = true;
}

RawTerminal::~RawTerminal() {
  if (!_isActive) return;
  tcsetattr(STDIN_FILENO, TCSANOW, &before);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    sigaction(kSignals[i], &formerActions[i], nullptr);
  }
  sigaction(SIGCONT, &formerContinue, nullptr);
}
