// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

// usage: play_probe FILE [handle]
// Plays the file and prints, every 10 ms, the steady clock and the player's time, both in seconds.
// With "handle" it halves the volume after 1 s, goes to 3/4 of the file after 1.5 s, pauses after
// 2 s and ends half a second later; each is printed with its moment. Ends with status 1 when the
// output is lost.

#include <QCoreApplication>
#include <QTimer>
#include <chrono>
#include <cstdio>

#include "base/EB.h"
#include "base/Log.h"
#include "export/Export.h"
#include "playback/WavePlayer.h"
#include "playback/system/SystemBackends.h"

namespace {

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

template <class Action>
void doAfter(int milliseconds, const char* what, Action action) {
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, [what, action] {
    std::printf("%s %.6f\n", what, steadySeconds());
    action();
  });
}

struct LossWatch : WavePlayerDelegate {
  void WavePlayerOutputLost(const std::string& message) override {
    std::fprintf(stderr, "%s\n", message.c_str());
    QCoreApplication::exit(1);
  }
};

void handle(WavePlayer& player) {
  doAfter(1000, "volume", [&] { player.setVolume(0.5); });
  doAfter(1500, "seek", [&] { player.setPosition(0.75); });
  doAfter(2000, "pause", [&] { player.pause(); });
  doAfter(2500, "end", [] { QCoreApplication::quit(); });
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  EB::initData();
  SystemBackends::choose();
  Log::setSink([](std::string_view) {});
  const Export job(argv[1]);
  if (!job.IsFileValid()) return 1;
  WavePlayer player(argv[1]);
  player.setReader(std::make_shared<const WaveFileReader>(*job.reader()));
  player.setAngle(120);
  const auto watch = std::make_shared<LossWatch>();
  player.setDelegate(watch);
  NotificationCenter::defaultCenter().addObserver(
      &player,
      [&](const Notification&) {
        player.playFinish();
        if (player.play_state() == PLAY_STATE_FINISH) QCoreApplication::quit();
      },
      EB::kPlayFinish);
  player.play();
  if (argc > 2) handle(player);
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer, &QTimer::timeout,
                   [&] { std::printf("%.6f %.6f\n", steadySeconds(), player.curremtTime()); });
  timer.start(10);
  const int status = QCoreApplication::exec();
  std::printf("%.6f %.6f\n", steadySeconds(), player.curremtTime());
  return status;
}
