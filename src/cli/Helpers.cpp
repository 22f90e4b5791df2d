// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Helpers.h"

#include <exception>
#include <thread>
#include <vector>

void Helpers::run(std::size_t threads, const std::function<void()>& work) {
  std::vector<std::jthread> helpers;
  try {
    while (helpers.size() + 1 < threads) helpers.emplace_back(work);
  } catch (const std::exception&) {  // what they would have done, the others do
  }
  work();
}
