// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <fmt/format.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "queue/ExportQueue.h"

/// Takes exported together by a queue, as the window does it, and how long that takes. Interface
/// thread.
struct QueuedExports {
  /// Milliseconds until all are written into the folder; less than none where one was not.
  static double timed(ExportQueue& queue, const std::vector<std::filesystem::path>& takes,
                      const std::filesystem::path& target, bool isNormalized = false) {
    std::size_t failed = 0;
    const QObject here;
    QObject::connect(&queue, &ExportQueue::finished, &here,
                     [&](int, const ExportOrder&, const ExportResult& result) {
                       if (result.end != ExportResult::End::Written) ++failed;
                     });
    QElapsedTimer watch;
    watch.start();
    for (const std::filesystem::path& take : takes) {
      queue.add({.source = take,
                 .target = target / (take.stem().string() + "_Decode.WAV"),
                 .angle = 90,
                 .isNormalized = isNormalized,
                 .isOfBatch = true});
    }
    while (queue.isBusy()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double took = static_cast<double>(watch.nsecsElapsed()) / 1e6;
    if (failed > 0) fmt::print(stderr, "{} exports failed\n", failed);
    return failed > 0 ? -1 : took;
  }
};
