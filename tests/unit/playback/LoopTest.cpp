// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <set>

#include "PlaybackFixture.h"
#include "playback/AQPlayer.h"
#include "playback/LoopTurns.h"
#include "playback/PlayingFile.h"

namespace {

/// A file whose frames are late where a test says so.
class LateFile : public MemoryAudioFile {
 public:
  using MemoryAudioFile::MemoryAudioFile;

  Read readFrames(std::uint64_t first, std::uint32_t frames, std::span<std::byte> to) override {
    if (lateAt.contains(first)) return {0, 0, true};
    return MemoryAudioFile::readFrames(first, frames, to);
  }
  void setArrived(std::function<void()> told) override { arrived = std::move(told); }

  std::set<std::uint64_t> lateAt;
  std::function<void()> arrived;
};

class LoopTest : public PlaybackFixture {
 protected:
  /// Frames of the file in the order in which they are to be heard, `count` of them.
  static std::vector<float> inOrder(std::uint64_t from, const FrameLoop& loop, std::size_t count) {
    std::vector<float> samples;
    for (std::uint64_t frame = from; samples.size() < 2 * count;) {
      samples.push_back(left(frame));
      samples.push_back(-left(frame));
      frame = FrameLoop::following(loop, frame, 1);
    }
    return samples;
  }
  void expectHeard(const std::vector<float>& wanted) const {
    ASSERT_GE(output->played().size(), wanted.size());
    const std::vector<float> heard(
        output->played().begin(),
        output->played().begin() + static_cast<std::ptrdiff_t>(wanted.size()));
    EXPECT_EQ(heard, wanted);
  }
  [[nodiscard]] std::size_t heardFrames() const { return output->played().size() / 2; }
  /// Files are late ones from now on; the one that is opened last is `late`.
  void useLateFiles() {
    AudioBackends::addFile("late", [this] {
      auto made = std::make_unique<LateFile>(format, packets);
      late = made.get();
      return made;
    });
    AudioBackends::chooseFile("late");
  }

  LateFile* late = nullptr;
};

TEST_F(LoopTest, TurnsToTheSampleWithoutAGap) {
  for (const FrameLoop loop : {FrameLoop{3001, 9007}, FrameLoop{0, 4800}, FrameLoop{100, 4900},
                               FrameLoop{500, 2900}, FrameLoop{4799, 4801}, FrameLoop{9, 10}}) {
    useFloatFile(20'000);
    AQPlayer player("x");
    player.setLoop(loop);
    player.play(false);
    clock.advance(1000);
    expectHeard(inOrder(0, loop, 47'000));
    EXPECT_EQ(player.underruns(), 0U) << loop.first;
    EXPECT_FALSE(player.getIsDone());
  }
}

TEST_F(LoopTest, MayEndWithTheFile) {
  useFloatFile(10'000);
  AQPlayer player("x");
  const FrameLoop loop{2'000, 10'000};
  player.setLoop(loop);
  player.play(false);
  clock.advance(700);
  expectHeard(inOrder(0, loop, 33'000));
  EXPECT_EQ(finishes(), 0U);
}

TEST_F(LoopTest, TimeIsThatOfWhatIsHeard) {
  useFloatFile(48'000);
  AQPlayer player("x");
  player.setLoop(FrameLoop{4'800, 9'600});
  player.play(false);
  double last = 0;
  for (int millisecond = 1; millisecond < 600; ++millisecond) {
    clock.advance(1);
    if (heardFrames() == 0) continue;
    const double next = player.currentTime() * 48.0;
    const double wanted = static_cast<double>(output->played()[2 * (heardFrames() - 1)]) * 0x1p23;
    EXPECT_TRUE(next == wanted || (next == 4'800 && wanted == 9'600)) << next << " " << wanted;
    last = std::max(last, next);
  }
  EXPECT_LE(last, 9'600.0);
}

TEST_F(LoopTest, BeginsExactlyWhereverThePlayingIs) {
  useFloatFile(48'000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(100);
  const std::size_t before = heardFrames();
  const FrameLoop loop{1'000, before + 960};  // what is queued goes far beyond
  player.setLoop(loop);
  EXPECT_DOUBLE_EQ(player.currentTime() * 48.0, static_cast<double>(before));
  clock.advance(400);
  expectHeard(inOrder(0, loop, before + 18'000));
  EXPECT_EQ(finishes(), 0U) << "nothing has stopped";
}

TEST_F(LoopTest, EndsExactlyWhereverThePlayingIs) {
  useFloatFile(48'000);
  AQPlayer player("x");
  const FrameLoop loop{1'000, 12'000};
  player.setLoop(loop);
  player.play(false);
  clock.advance(220);
  ASSERT_LT(heardFrames(), loop.end);
  ASSERT_LT(PlayingFile::get().state().currentPacket, 12'000) << "the turn is queued already";
  player.setLoop(std::nullopt);
  clock.advance(1000);
  EXPECT_EQ(output->played(), ramp(0, 48'000));
}

TEST_F(LoopTest, IsLeftAloneByPlayingBehindIt) {
  useFloatFile(30'000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(300);
  player.setLoop(FrameLoop{1'000, 4'000});
  clock.advance(600);
  EXPECT_EQ(output->played(), ramp(0, 30'000));
  EXPECT_TRUE(player.getIsDone());
}

TEST_F(LoopTest, SeeksInsideTurnAndSeeksBehindDoNot) {
  useFloatFile(40'000);
  AQPlayer player("x");
  const FrameLoop loop{10'000, 20'000};
  player.setLoop(loop);
  player.setPosition(15'000.5 / 40'000, true);
  clock.advance(600);
  expectHeard(inOrder(15'000, loop, 26'000));
  const std::size_t before = heardFrames();
  player.setPosition(20'000.5 / 40'000, true);
  clock.advance(600);
  const std::vector<float> after(output->played().begin() + static_cast<std::ptrdiff_t>(2 * before),
                                 output->played().end());
  EXPECT_EQ(after, ramp(20'000, 40'000)) << "the end of the loop is behind it";
}

TEST_F(LoopTest, WaitsForATurnThatIsLateAndLosesNothing) {
  useLateFiles();
  useFloatFile(20'000);
  AQPlayer player("x");
  const FrameLoop loop{3'000, 12'000};
  player.setLoop(loop);
  late->lateAt = {3'000};
  player.play(false);
  clock.advance(500);
  EXPECT_EQ(heardFrames(), 9'600U) << "the third buffer waits for its rest";
  EXPECT_EQ(PlayingFile::get().state().waiting.size(), 3U);
  late->lateAt.clear();
  late->arrived();
  clock.advance(500);
  expectHeard(inOrder(0, loop, 30'000));
}

TEST_F(LoopTest, AnEndBehindTheTurnIsStillHeard) {
  useLateFiles();
  useFloatFile(20'000);
  AQPlayer player("x");
  player.setLoop(FrameLoop{3'000, 6'000});
  late->failAt(3'000, 7);
  player.setPosition(4'000.5 / 20'000, true);
  clock.advance(500);
  EXPECT_EQ(output->played(), ramp(4'000, 6'000));
  EXPECT_TRUE(player.getIsDone());
}

TEST(LoopTurns, ForgetsWhatWasHeard) {
  LoopTurns turns;
  turns.add(100);
  turns.turn(50, 0);
  EXPECT_TRUE(turns.isAhead(99.5));
  EXPECT_FALSE(turns.isAhead(100));
  turns.add(50);
  turns.turn(50, 120);
  EXPECT_EQ(turns.backAt(99), 0U);
  EXPECT_EQ(turns.backAt(100), 50U);
  EXPECT_EQ(turns.backAt(150), 100U);
  for (int i = 0; i < 1000; ++i) {
    turns.add(50);
    turns.turn(50, 200.0 + 50 * i);
  }
  EXPECT_EQ(turns.backAt(1e9), 50U * 1002);
  turns.clear();
  EXPECT_EQ(turns.backAt(1e9), 0U);
}

}  // namespace
