// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Takes exported together by the queue, so many at a time, for compare-batch.
//   batch_benchmark NUMBER plain|normalised TARGET TAKE...
//     exports the takes into the folder.
//   batch_benchmark pace FOLDER
//     exports nothing.
// Prints the milliseconds that it took, or how many at a time the window lets run on the medium of
// the folder.

#include <fmt/format.h>

#include <QCoreApplication>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <vector>

#include "QueuedExports.h"
#include "queue/MediumPace.h"

namespace {

int exportAll(int number, bool isNormalized, const std::filesystem::path& target,
              const std::vector<std::filesystem::path>& takes) {
  ExportQueue queue;
  queue.setAtOnce(static_cast<std::size_t>(std::max(1, number)));
  const double took = QueuedExports::timed(queue, takes, target, isNormalized);
  fmt::print("{:.1f}\n", took);
  return took >= 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc == 3 && std::string_view(argv[1]) == "pace") {
    fmt::print("{}\n", MediumPace::atOnce(argv[2]));
    return EXIT_SUCCESS;
  }
  if (argc < 5) return EXIT_FAILURE;
  return exportAll(std::atoi(argv[1]), std::string_view(argv[2]) == "normalised", argv[3],
                   {argv + 4, argv + argc});
}
