// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The window timed from inside, for compare-window; prints milliseconds.
//   window_benchmark start SINCE    from SINCE (ns of the monotonic clock) to its first picture
//   window_benchmark open FILE      from the double click until something of it has been heard
//   window_benchmark stall FOLDER   the longest that one round of the event loop takes while the
//                                   folder is refreshed ten times: unchanged, then changed; each by
//                                   the clock and as processor time of the thread
//   window_benchmark waveform FILE  from the double click until some of the waveform is painted,
//                                   until all of it is, and until the take is measured as well
//   window_benchmark grow FILE SECONDS
//                                   no times, but pictures of the waveform a second, each of more
//                                   of it than the one before
//   window_benchmark whole SINCE FILE
//                                   from SINCE until all of the waveform of a take that the program
//                                   is started with is painted
//   window_benchmark turn FILE      from a turn of the dial by a degree until the waveform is
//   painted
//                                   anew: median and worst
//   window_benchmark play FILE SECONDS
//                                   no times, but percents of a core while the take plays: with all
//                                   that is visible, while scope and meters rest, while the window
//                                   is minimised, the same without timers of pictures; then the
//                                   pictures of the scope a second

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
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "ShownWindow.h"
#include "WindowPictures.h"

namespace {

constexpr int kRounds = 10;

double since(std::int64_t nanoseconds) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<double>(std::chrono::nanoseconds(now).count() - nanoseconds) / 1e6;
}

using Words = std::vector<std::string>;

void startUp(ShownWindow& shown, const Words& words) {
  double took = 0.0;
  QObject::connect(&shown.window(), &WindowController::appeared, [&] {
    took = since(std::stoll(words[0]));
    QApplication::quit();
  });
  shown.window().show();
  QApplication::exec();
  fmt::print("{:.1f}\n", took);
}

void openToSound(ShownWindow& shown, const Words& words) {
  const std::filesystem::path file = words[0];
  shown.show(file.parent_path());
  fmt::print("{:.1f}\n", shown.openToSound(file));
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

void stall(ShownWindow& shown, const std::filesystem::path& folder, bool isChanging) {
  Round longest;
  for (int i = 0; i < kRounds; ++i) {
    const auto extra = folder / ("extra " + std::to_string(i) + ".WAV");
    if (isChanging) close(open(extra.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    longest.raise(longestRound(shown.controller()));
    if (isChanging) std::filesystem::remove(extra);
  }
  fmt::print("{:.1f}\n{:.1f}\n", longest.wall, longest.busy);
}

void stallTwice(ShownWindow& shown, const Words& words) {
  shown.show(words[0]);
  stall(shown, words[0], false);
  stall(shown, words[0], true);
}

void openToWaveform(ShownWindow& shown, const Words& words) {
  const std::filesystem::path file = words[0];
  shown.show(file.parent_path());
  WindowPictures pictures(shown);
  QElapsedTimer watch;
  watch.start();
  shown.open(file);
  pictures.waitForPart();
  fmt::print("{:.1f}\n", ShownWindow::milliseconds(watch));
  pictures.waitForDrawn();
  fmt::print("{:.1f}\n", ShownWindow::milliseconds(watch));
  pictures.waitForWhole();
  fmt::print("{:.1f}\n", ShownWindow::milliseconds(watch));
}

void grow(ShownWindow& shown, const Words& words) {
  const std::filesystem::path file = words[0];
  shown.show(file.parent_path());
  WindowPictures pictures(shown);
  shown.open(file);
  fmt::print("{:.1f}\n", pictures.growing(std::stod(words.at(1))));
}

/// As the program is started with a take, with all of its waveform in the end.
void showWhole(ShownWindow& shown, WindowPictures& pictures, const std::string& file) {
  shown.controller().open({file});
  shown.window().show();
  pictures.waitForWhole();
}

void startToWaveform(ShownWindow& shown, const Words& words) {
  WindowPictures pictures(shown);
  showWhole(shown, pictures, words.at(1));
  fmt::print("{:.1f}\n", since(std::stoll(words[0])));
}

void turn(ShownWindow& shown, const Words& words) {
  WindowPictures pictures(shown);
  showWhole(shown, pictures, words[0]);
  auto times = pictures.turn();
  std::ranges::sort(times);
  fmt::print("{:.2f}\n{:.2f}\n", times[times.size() / 2], times.back());
}

void play(ShownWindow& shown, const Words& words) {
  WindowPictures pictures(shown);
  showWhole(shown, pictures, words[0]);
  const WindowPictures::Playing playing = pictures.play(std::stod(words.at(1)));
  fmt::print("{:.2f}\n{:.2f}\n{:.2f}\n{:.2f}\n{:.1f}\n", playing.all, playing.without,
             playing.minimised, playing.blind, playing.pictures);
}

}  // namespace

int main(int argc, char** argv) {
  const std::map<std::string, std::function<void(ShownWindow&, const Words&)>> benchmarks = {
      {"start", startUp},    {"open", openToSound},
      {"stall", stallTwice}, {"waveform", openToWaveform},
      {"grow", grow},        {"whole", startToWaveform},
      {"turn", turn},        {"play", play}};
  const Words words(argv + 1, argv + argc);
  if (words.size() < 2 || !benchmarks.contains(words[0])) return EXIT_FAILURE;
  ShownWindow shown(argc, argv);
  benchmarks.at(words[0])(shown, Words(words.begin() + 1, words.end()));
  return EXIT_SUCCESS;
}
