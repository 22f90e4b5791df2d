// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// An evening's work in one window, timed from inside, for compare-session.
//   session_benchmark FOLDER SECONDS TARGET RUNS
//     lists the folder, opens each take and plays it for so long, and closes the last one; then, so
//     many times, exports all together into a folder of its own in the target, which is made anew
//     each time. What is exported has been read once before, so that it is in the cache.
// Prints lines of words and numbers: "listed MS"; for each take "heard MS KIB", KIB being what the
// process holds then; "together N", how many are exported at a time; and for each run "exported MS
// KIB", the most that it held meanwhile.

#include <fmt/format.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include "QueuedExports.h"
#include "ShownWindow.h"
#include "queue/MediumPace.h"

namespace {

namespace fs = std::filesystem;

std::uint64_t heldKiB() {
  std::ifstream statistics("/proc/self/statm");
  std::uint64_t whole = 0;
  std::uint64_t resident = 0;
  statistics >> whole >> resident;
  return resident * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE)) / 1024;
}

void forgetMostHeld() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

/// Since it was forgotten.
std::uint64_t mostHeldKiB() {
  std::ifstream status("/proc/self/status");
  std::string word;
  std::uint64_t most = 0;
  while (status >> word && word != "VmHWM:") continue;
  status >> most;
  return most;
}

void playFor(double seconds) {
  QElapsedTimer watch;
  watch.start();
  while (ShownWindow::milliseconds(watch) < 1000.0 * seconds) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

std::vector<fs::path> takesOf(ViewController& controller) {
  std::vector<fs::path> takes;
  for (const WavItem& item : controller.folderHelper()->files()) {
    const fs::path path = item.fullPath;
    if (path.extension() == ".WAV") takes.push_back(path);
  }
  return takes;
}

void readAll(const std::vector<fs::path>& takes) {
  for (const fs::path& take : takes) {
    std::ifstream(take).ignore(std::numeric_limits<std::streamsize>::max());
  }
}

void makeAnew(const fs::path& folder) {
  fs::remove_all(folder);
  fs::create_directories(folder);
}

/// Whether every export of every run was written.
bool exportOften(ExportQueue& queue, const std::vector<fs::path>& takes, const fs::path& target,
                 int runs) {
  const fs::path own = target / "session_benchmark";
  const unsigned together =
      std::min(MediumPace::atOnce(takes.front().parent_path()), MediumPace::atOnce(target));
  queue.setAtOnce(together);
  fmt::print("together {}\n", together);
  readAll(takes);
  bool isAllWritten = true;
  for (int run = 0; run < runs; ++run) {
    makeAnew(own);
    forgetMostHeld();
    const double took = QueuedExports::timed(queue, takes, own);
    fmt::print("exported {:.1f} {}\n", took, mostHeldKiB());
    isAllWritten = isAllWritten && took >= 0;
  }
  return isAllWritten;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return EXIT_FAILURE;
  ShownWindow window(argc, argv);
  QElapsedTimer watch;
  watch.start();
  window.show(argv[1]);
  fmt::print("listed {:.1f}\n", ShownWindow::milliseconds(watch));
  const auto takes = takesOf(window.controller());
  for (const fs::path& take : takes) {
    const double heard = window.openToSound(take);
    playFor(std::strtod(argv[2], nullptr));
    fmt::print("heard {:.1f} {}\n", heard, heldKiB());
  }
  window.controller().take().close();
  const bool isDone = !takes.empty() && exportOften(window.controller().exportQueue(), takes,
                                                    argv[3], std::atoi(argv[4]));
  return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
