// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QCoreApplication>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "base/EndPatience.h"
#include "playback/SourceSlot.h"
#include "playback/SpscRing.h"
#include "playback/pulse/PulseOutput.h"
#include "playback/pulse/PulseStream.h"
#include "support/Confinement.h"
#include "support/CoreApplication.h"
#include "support/EnvironmentVariable.h"
#include "support/EventLoop.h"
#include "support/TemporaryFolder.h"
#include "support/ThreadCount.h"

namespace {

class Application : public testing::Test {
  CoreApplication _application;
};

TEST(SpscRing, CarriesEverythingInOrderFromThreadToThread) {
  constexpr int kValues = 20000;
  SpscRing<int, 3> ring;
  std::thread producer([&] {
    for (int i = 0; i < kValues;) {
      if (ring.push(i)) {
        ++i;
      } else {
        std::this_thread::yield();
      }
    }
  });
  int expected = 0;
  while (expected < kValues) {
    if (const auto value = ring.pop()) {
      ASSERT_EQ(*value, expected++);
    } else {
      std::this_thread::yield();
    }
  }
  producer.join();
}

/// Must not be pulled from once it is no longer set.
class CountingSource : public AudioSource {
 public:
  Pulled pull(std::span<float> to) override {
    ++pulls;
    return {to.size(), false};
  }

  long pulls = 0;  // not atomic on purpose: the slot keeps the threads apart
};

TEST(SourceSlot, NobodyPullsFromASourceThatWasTakenAway) {
  SourceSlot slot;
  std::atomic<bool> isOver{false};
  std::thread output([&] {
    std::array<float, 8> block{};
    while (!isOver) slot.pull(block, [] { return true; });
  });
  for (int i = 0; i < 20000; ++i) {
    CountingSource source;
    slot.set(&source);
    slot.set(nullptr);
    ++source.pulls;
  }
  isOver = true;
  output.join();
}

class LossListener : public AudioOutputListener {
 public:
  void outputProgressed() override {}
  void outputDrained() override { ++drains; }
  void outputLost(const std::string& why) override { lost = why; }

  int drains = 0;
  std::string lost;
};

TEST_F(Application, WithoutAServerTheOutputIsLostSoon) {
  const TemporaryFolder folder;
  const EnvironmentVariable server("PULSE_SERVER", "unix:" + folder.path().native() + "/nobody");
  CountingSource source;
  LossListener listener;
  PulseOutput output({48000, 2});
  output.attach(&source, &listener);
  output.start();
  EXPECT_TRUE(listener.lost.empty()) << "told from the event loop only";
  EXPECT_TRUE(EventLoop::runUntil([&] { return !listener.lost.empty(); }));
  EXPECT_EQ(listener.lost, "No sound server was found (Connection refused).");
  EXPECT_EQ(output.framesPlayed(), 0.0);
  EXPECT_EQ(source.pulls, 0);
}

#ifndef MIXDECK_SANITIZED  // which opens a pipe to look whether memory is there
/// All the files that this program may have open are, until the end of it.
class NoMoreFiles {
 public:
  NoMoreFiles() {
    rlimit few{};
    getrlimit(RLIMIT_NOFILE, &_before);
    few = _before;
    few.rlim_cur = 64;
    setrlimit(RLIMIT_NOFILE, &few);
    for (int file = dup(0); file >= 0; file = dup(0)) _files.push_back(file);
  }
  NoMoreFiles(const NoMoreFiles&) = delete;
  NoMoreFiles& operator=(const NoMoreFiles&) = delete;
  ~NoMoreFiles() {
    for (const int file : _files) close(file);
    setrlimit(RLIMIT_NOFILE, &_before);
  }

 private:
  rlimit _before{};
  std::vector<int> _files;
};

// The library would end the program.
TEST_F(Application, WithTooManyOpenFilesTheOutputIsLost) {
  LossListener listener;
  PulseOutput output({48000, 2});
  output.attach(nullptr, &listener);
  const NoMoreFiles files;
  output.start();
  EXPECT_TRUE(EventLoop::runUntil([&] { return !listener.lost.empty(); }));
  EXPECT_EQ(listener.lost, "The sound output could not be started (Too many open files).");
}
#endif

/// Deletes the output that tells it of its loss, as a player does that is let go then.
class EndingListener : public LossListener {
 public:
  explicit EndingListener(std::unique_ptr<PulseOutput>& output) : _output(output) {}
  void outputLost(const std::string& why) override {
    _output.reset();
    lost = why;
  }

 private:
  std::unique_ptr<PulseOutput>& _output;
};

TEST_F(Application, AReasonOutlivesTheOutputThatToldIt) {
  const TemporaryFolder folder;
  const EnvironmentVariable server("PULSE_SERVER", "unix:" + folder.path().native() + "/nobody");
  auto output = std::make_unique<PulseOutput>(AudioOutput::Format{48000, 2});
  EndingListener listener(output);
  output->attach(nullptr, &listener);
  output->start();
  EXPECT_TRUE(EventLoop::runUntil([&] { return !listener.lost.empty(); }));
  EXPECT_EQ(listener.lost, "No sound server was found (Connection refused).");
}

/// A file that a reader waits at, as on a medium that hangs, until it is let go.
class HangingFile {
 public:
  explicit HangingFile(std::filesystem::path path) : _path(std::move(path)) {
    EXPECT_EQ(mkfifo(_path.c_str(), 0600), 0);
  }
  HangingFile(const HangingFile&) = delete;
  HangingFile& operator=(const HangingFile&) = delete;
  ~HangingFile() { letGo(); }

  /// Whether somebody reads it by now, who goes on waiting.
  bool isRead() {
    if (_end < 0) _end = open(_path.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    return _end >= 0;
  }
  void letGo() {
    if (_end >= 0) close(_end);
    _end = -1;
  }

 private:
  std::filesystem::path _path;
  int _end = -1;
};

TEST_F(Application, AnOutputWhoseThreadHangsIsLetGoAndItsThreadEndsLater) {
  const TemporaryFolder folder;
  const EnvironmentVariable server("PULSE_SERVER", "unix:" + folder.path().native() + "/nobody");
  const EnvironmentVariable settings("PULSE_CLIENTCONFIG", folder.path().native() + "/client.conf");
  HangingFile file(folder.path() / "client.conf");
  auto listener = std::make_unique<LossListener>();
  auto output = std::make_unique<PulseOutput>(AudioOutput::Format{48000, 2});
  output->attach(nullptr, listener.get());
  output->start();
  ASSERT_TRUE(EventLoop::runUntil([&] { return file.isRead(); }));
  output.reset();  // or the test hangs: nobody else lets the file go
  listener.reset();
  const std::size_t leftBehind = ThreadCount::now();
  file.letGo();  // there is no server, which nobody is to be told any more
  EXPECT_TRUE(EventLoop::runUntil([&] { return ThreadCount::now() < leftBehind; }));
}

TEST_F(Application, TheEndOfAnOutputWaitsNoLongerThanThatOfTheProgram) {
  const EnvironmentVariable server("PULSE_SERVER", "unix:/nowhere");
  const std::size_t before = ThreadCount::now();
  bool isAsked = false;
  const EndPatience end([&isAsked] {
    isAsked = true;
    return EndPatience::kWhole;
  });
  auto output = std::make_unique<PulseOutput>(AudioOutput::Format{48000, 2});
  output->start();
  isAsked = false;
  output.reset();
  EXPECT_TRUE(isAsked);
  EXPECT_TRUE(EventLoop::runUntil([&] { return ThreadCount::now() <= before; }));
}

// The library would end the program, and so it does here where it is asked at all.
TEST(PulseStream, AsksNoServerForAFormatThatNoneTakes) {
  for (const AudioOutput::Format format :
       {AudioOutput::Format{0, 2}, {1e6, 2}, {48000, 0}, {48000, 33}, {48000, 256 + 2}}) {
    PulseControls controls(format);
    EXPECT_FALSE(PulseStream(controls).connect(nullptr));
  }
}

TEST_F(Application, AFormatThatNoServerTakesIsALossThatSaysSo) {
  LossListener listener;
  PulseOutput output({1e6, 2});
  output.attach(nullptr, &listener);
  output.start();
  EXPECT_TRUE(EventLoop::runUntil([&] { return !listener.lost.empty(); }));
  EXPECT_EQ(listener.lost, "The sound output does not take 2 channels at 1000000 Hz.");
}

TEST_F(Application, NothingIsPlayedToItsEndWithoutAServer) {
  const std::size_t before = ThreadCount::now();
  LossListener listener;
  PulseOutput output({0, 0});
  output.attach(nullptr, &listener);
  output.drain();
  QCoreApplication::processEvents();
  EXPECT_EQ(listener.drains, 0) << "it has yet to start";
  output.start();
  EXPECT_EQ(listener.drains, 0) << "told from the event loop only";
  EXPECT_TRUE(EventLoop::runUntil([&] { return listener.drains > 0; }));
  output.drain();
  EXPECT_TRUE(EventLoop::runUntil([&] { return listener.drains > 1; }));
  EXPECT_LE(ThreadCount::now(), before) << "those of tests before this one may have ended";
  EXPECT_TRUE(listener.lost.empty());
}

std::vector<pa_channel_position_t> channels(std::uint32_t count, std::uint32_t mask) {
  const pa_channel_map map = PulseStream::channelMap({48000, count, mask});
  EXPECT_TRUE(pa_channel_map_valid(&map));
  return {map.map, map.map + map.channels};
}

TEST(PulseStream, PlaysEachChannelWhereTheFileWantsIt) {
  using testing::ElementsAre;
  EXPECT_THAT(channels(2, 0),
              ElementsAre(PA_CHANNEL_POSITION_FRONT_LEFT, PA_CHANNEL_POSITION_FRONT_RIGHT));
  EXPECT_THAT(channels(2, 0x600),
              ElementsAre(PA_CHANNEL_POSITION_SIDE_LEFT, PA_CHANNEL_POSITION_SIDE_RIGHT));
  EXPECT_THAT(channels(1, 0), ElementsAre(PA_CHANNEL_POSITION_MONO));
  EXPECT_THAT(channels(1, 4), ElementsAre(PA_CHANNEL_POSITION_MONO));
  EXPECT_THAT(channels(1, 8), ElementsAre(PA_CHANNEL_POSITION_LFE));
  EXPECT_THAT(channels(3, 0x80000001),
              ElementsAre(PA_CHANNEL_POSITION_FRONT_LEFT, PA_CHANNEL_POSITION_AUX0,
                          PA_CHANNEL_POSITION_AUX1))
      << "speakers that have no name yet";
  EXPECT_THAT(channels(2, 0x3FFFF),
              ElementsAre(PA_CHANNEL_POSITION_FRONT_LEFT, PA_CHANNEL_POSITION_FRONT_RIGHT))
      << "more speakers than channels";
  EXPECT_EQ(channels(32, 0x3FFFF)[17], PA_CHANNEL_POSITION_TOP_REAR_RIGHT);
}

TEST_F(Application, AThreadThatCannotBeStartedIsALossWithAReason) {
  const int status = Confinement::run([] {
    LossListener listener;
    PulseOutput output({48000, 2});
    output.attach(nullptr, &listener);
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    output.start();
    if (!listener.lost.empty()) return 3;  // told from the event loop only
    if (!EventLoop::runUntil([&] { return !listener.lost.empty(); })) return 4;
    const std::string wanted =
        "The sound output could not be started (Resource temporarily unavailable).";
    return listener.lost == wanted ? 0 : 5;
  });
  EXPECT_EQ(status, 0);
}

TEST_F(Application, AnOutputThatWasNeverStartedStartsNothingAndTellsNothing) {
  LossListener listener;
  const std::size_t before = ThreadCount::now();
  {
    PulseOutput output({48000, 2});
    output.attach(nullptr, &listener);
    output.pause();
    output.flush();
    output.drain();
    EXPECT_LE(ThreadCount::now(), before) << "those of tests before this one may have ended";
    QCoreApplication::processEvents();
  }
  EXPECT_TRUE(listener.lost.empty());
}

}  // namespace
