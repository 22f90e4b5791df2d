// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/ClosingElsewhere.h"

#include <unistd.h>

#include <exception>
#include <thread>

namespace {

thread_local bool isElsewhere = false;

}  // namespace

ClosingElsewhere::ClosingElsewhere() {
  isElsewhere = true;
}

ClosingElsewhere::~ClosingElsewhere() {
  isElsewhere = false;
}

void ClosingElsewhere::close(int file) {
  if (!isElsewhere) {
    ::close(file);
    return;
  }
  try {
    std::thread([file] { ::close(file); }).detach();
  } catch (const std::exception&) {
    ::close(file);
  }
}
