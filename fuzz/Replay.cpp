// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "Replay.h"

#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "AllocationMeter.h"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> filesOf(const fs::path& folder) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->is_regular_file()) files.push_back(entry->path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool readFile(const fs::path& path, std::string& bytes) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error) return false;
  bytes.resize(size);
  std::ifstream in(path, std::ios::binary);
  return static_cast<bool>(in.read(bytes.data(), static_cast<std::streamsize>(size)));
}

}  // namespace

Replay::Replay(Target target, std::ostream& report) : _target(std::move(target)), _report(report) {}

bool Replay::run(std::span<const fs::path> folders) {
  bool isGood = !folders.empty();
  for (const fs::path& folder : folders) isGood = runFolder(folder) && isGood;
  return isGood;
}

bool Replay::runFolder(const fs::path& folder) {
  const auto files = filesOf(folder);
  if (files.empty()) _report << "No inputs in " << folder << std::endl;
  bool isGood = !files.empty();
  for (const fs::path& file : files) isGood = runInput(file) && isGood;
  return isGood;
}

bool Replay::runInput(const fs::path& path) {
  _report << path << std::endl;  // out before a crash
  std::string input;
  if (!readFile(path, input)) {
    _report << "Cannot be read" << std::endl;
    return false;
  }
  AllocationMeter::start();
  alarm(kSecondsPerInput);
  _target(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  alarm(0);
  const std::uint64_t heap = AllocationMeter::peak();
  ++_inputs;
  _mostHeap = std::max(_mostHeap, heap);
  if (heap <= kHeapPerByte * input.size() + kHeapFixed) return true;
  _report << "Takes " << heap << " bytes of the heap for " << input.size() << std::endl;
  return false;
}
