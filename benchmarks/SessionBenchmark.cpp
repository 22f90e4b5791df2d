// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// An evening's work in one window, timed from inside, for compare-session.
//   session_benchmark FOLDER SECONDS TARGET   lists the folder, opens each take and plays it for so
//                                             long, then exports all together into the target
// Prints lines of words and numbers: "listed MS", for each take "heard MS KIB", and "exported MS
// KIB"; KIB is what the process holds then.

#include <fmt/format.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ShownWindow.h"
#include "queue/ExportQueue.h"
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

/// Milliseconds until all are written.
double exportAll(ExportQueue& queue, const std::vector<fs::path>& takes, const fs::path& target) {
  std::size_t failed = 0;
  QObject::connect(&queue, &ExportQueue::finished,
                   [&](int, const ExportOrder&, const ExportResult& result) {
                     if (result.end != ExportResult::End::Written) ++failed;
                   });
  queue.setAtOnce(MediumPace::atOnce(target));
  QElapsedTimer watch;
  watch.start();
  for (const fs::path& take : takes) {
    queue.add({.source = take,
               .target = target / (take.stem().string() + "_Decode.WAV"),
               .angle = 90,
               .isOfBatch = true});
  }
  while (queue.isBusy()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  if (failed > 0) fmt::print(stderr, "{} exports failed\n", failed);
  return failed > 0 ? -1 : ShownWindow::milliseconds(watch);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return EXIT_FAILURE;
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
  const double exported = exportAll(window.controller().exportQueue(), takes, argv[3]);
  fmt::print("exported {:.1f} {}\n", exported, heldKiB());
  return exported < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
