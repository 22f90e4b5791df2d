// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// usage: TARGET_replay FOLDER...
// Runs the target over every file in the folders; exit status 0 when all is well.

#include <iostream>
#include <vector>

#include "FuzzInput.h"
#include "Replay.h"

int main(int count, char** arguments) {
  const std::vector<std::filesystem::path> folders(arguments + 1, arguments + count);
  Replay replay([](auto... input) { LLVMFuzzerTestOneInput(input...); }, std::cout);
  const bool isGood = replay.run(folders);
  std::cout << replay.inputs() << " inputs, at most " << replay.mostHeap()
            << " bytes of the heap for one\n";
  return isGood ? 0 : 1;
}
