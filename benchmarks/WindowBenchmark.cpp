// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The window timed from inside, for compare-window; prints milliseconds.
//   window_benchmark start SINCE    from SINCE (ns of the monotonic clock) to its first picture
//   window_benchmark open FILE      from the double click until something of it has been heard
//   window_benchmark stall FOLDER   the longest that one round of the event loop takes while the
//                                   folder is refreshed ten times: unchanged, then changed; each by
//                                   the clock and as processor time of the thread

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

#include "ShownWindow.h"
#include "app/DeviceLink.h"
#include "app/WindowController.h"
#include "controls/Appearance.h"
#include "playback/system/SystemBackends.h"

namespace {

constexpr int kRounds = 10;

double since(std::int64_t nanoseconds) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<double>(std::chrono::nanoseconds(now).count() - nanoseconds) / 1e6;
}

double startUp(WindowController& window, std::int64_t begun) {
  double took = 0.0;
  QObject::connect(&window, &WindowController::appeared, [&] {
    took = since(begun);
    QApplication::quit();
  });
  window.show();
  QApplication::exec();
  return took;
}

double openToSound(WindowController& window, const std::filesystem::path& file) {
  ShownWindow::show(window, file.parent_path());
  return ShownWindow::openToSound(window, file);
}

struct Round {
  double wall = 0.0;
  double busy = 0.0;

  void raise(const Round& other) {
    wall = std::max(wall, other.wall);
    busy = std::max(busy, other.busy);
  }
};

double threadMilliseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

Round oneRound() {
  QElapsedTimer watch;
  watch.start();
  const double before = threadMilliseconds();
  QApplication::processEvents();
  return {static_cast<double>(watch.nsecsElapsed()) / 1e6, threadMilliseconds() - before};
}

Round longestRound(ViewController& controller) {
  bool isListed = false;
  const auto listed =
      QObject::connect(&controller, &ViewController::listed, [&] { isListed = true; });
  controller.updateFileBrowser();
  Round longest;
  for (int quiet = 0; quiet < 100; quiet += isListed ? 1 : 0) longest.raise(oneRound());
  QObject::disconnect(listed);
  return longest;
}

void stall(WindowController& window, const std::filesystem::path& folder, bool isChanging) {
  Round longest;
  for (int i = 0; i < kRounds; ++i) {
    const auto extra = folder / ("extra " + std::to_string(i) + ".WAV");
    if (isChanging) close(open(extra.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    longest.raise(longestRound(window.viewController()));
    if (isChanging) std::filesystem::remove(extra);
  }
  fmt::print("{:.1f}\n{:.1f}\n", longest.wall, longest.busy);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return EXIT_FAILURE;
  const std::string what = argv[1];
  const std::string argument = argv[2];
  QApplication application(argc, argv);
  Appearance::apply(application);
  SystemBackends::choose();
  DeviceLink link(false);
  WindowController window;
  link.attach(window.window());
  if (what == "start") fmt::print("{:.1f}\n", startUp(window, std::stoll(argument)));
  if (what == "open") fmt::print("{:.1f}\n", openToSound(window, argument));
  if (what == "stall") {
    ShownWindow::show(window, argument);
    stall(window, argument, false);
    stall(window, argument, true);
  }
  return EXIT_SUCCESS;
}
