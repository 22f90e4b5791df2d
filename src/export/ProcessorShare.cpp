// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/ProcessorShare.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

std::atomic<unsigned> taken{0};  // more than there are, where there are many jobs

unsigned freeBeside(unsigned others) {
  return ProcessorShare::processors() - std::min(ProcessorShare::processors(), others);
}

}  // namespace

unsigned ProcessorShare::processors() {
  return std::max(1U, std::thread::hardware_concurrency());
}

ProcessorShare ProcessorShare::own() {
  ++taken;
  return ProcessorShare(1);
}

ProcessorShare ProcessorShare::spare() {
  unsigned others = taken;
  while (!taken.compare_exchange_weak(others, others + freeBeside(others))) continue;
  return ProcessorShare(freeBeside(others));
}

ProcessorShare::~ProcessorShare() {
  taken -= _count;
}
