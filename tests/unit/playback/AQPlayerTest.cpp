// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/AQPlayer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>

#include "PlaybackFixture.h"
#include "playback/PlayingFile.h"
#include "playback/wave/WaveAudioFile.h"
#include "support/TemporaryFolder.h"

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

class AQPlayerTest : public PlaybackFixture {
 protected:
  void watchPackets(AQPlayer& player) {
    player.setDataCB([this](AudioQueueBuffer& buffer, const AudioFormat&, std::int64_t packet) {
      starts.push_back(packet);
      counts.push_back(buffer.packetDescriptionCount);
    });
  }

  std::vector<std::int64_t> starts;
  std::vector<std::uint32_t> counts;
};

TEST(AQPlayerBufferSize, IsATenthOfASecondWithinLimits) {
  EXPECT_EQ(PlayingFile::bufferByteSize(6, 48000, 1), 28800U);
  EXPECT_EQ(PlayingFile::bufferByteSize(4, 44100, 1), 17640U);
  EXPECT_EQ(PlayingFile::bufferByteSize(6, 192000, 1), 65536U);
  EXPECT_EQ(PlayingFile::bufferByteSize(2, 8000, 1), 16384U);
  EXPECT_EQ(PlayingFile::bufferByteSize(100, 48000, 0), 65536U);
  EXPECT_EQ(PlayingFile::bufferByteSize(70000, 48000, 0), 70000U);
  EXPECT_EQ(PlayingFile::bufferByteSize(70000, 48000, 4800), 70000U);
  EXPECT_EQ(PlayingFile::bufferByteSize(0, 0, 0), 65536U);
}

TEST_F(AQPlayerTest, PlaysTheWholeFileOnceAndTellsTheEnd) {
  for (const std::uint64_t frames : {480U, 2400U, 4800U, 9600U, 14400U, 48001U}) {
    useFloatFile(frames);
    AQPlayer player("x");
    const std::size_t before = finishes();
    player.play(false);
    clock.advance(static_cast<int>(frames / 48) + 200);
    EXPECT_EQ(output->played(), ramp(0, frames)) << frames;
    EXPECT_EQ(finishes(), before + 1) << frames;
    EXPECT_TRUE(player.getIsDone());
    EXPECT_DOUBLE_EQ(player.currentTime(), static_cast<double>(frames) / 48.0);
    EXPECT_EQ(player.underruns(), 0U);
  }
}

TEST_F(AQPlayerTest, PlaysEverySampleTypeAtFullPrecision) {
  use24BitFile(5000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(300);
  EXPECT_EQ(output->played(), ramp(0, 5000));
}

TEST_F(AQPlayerTest, CallsTheDataCallbackForEachBufferBeforeItIsQueued) {
  use24BitFile(10000);
  AQPlayer player("x");
  watchPackets(player);
  player.play(false);
  EXPECT_THAT(starts, ElementsAre(0, 4800, 9600));
  EXPECT_THAT(counts, ElementsAre(4800U, 4800U, 400U));
}

TEST_F(AQPlayerTest, TheDataCallbackMayChangeTheSamples) {
  useFloatFile(1000);
  AQPlayer player("x");
  player.setDataCB([](AudioQueueBuffer& buffer, const AudioFormat&, std::int64_t) {
    auto* const samples = reinterpret_cast<float*>(buffer.data);
    std::fill_n(samples, 2 * buffer.packetDescriptionCount, 0.25F);
  });
  player.play(false);
  clock.advance(200);
  EXPECT_EQ(output->played(), std::vector<float>(2000, 0.25F));
}

TEST_F(AQPlayerTest, NothingIsPlayedBeforePlay) {
  useFloatFile(1000);
  const AQPlayer player("x");
  clock.advance(100);
  EXPECT_TRUE(output->played().empty());
  EXPECT_EQ(player.currentTime(), 0.0);
}

TEST_F(AQPlayerTest, WithoutAPathPlayDoesNothing) {
  useFloatFile(1000);
  AQPlayer player("");
  player.play(false);
  clock.advance(100);
  EXPECT_TRUE(output->played().empty());
}

TEST_F(AQPlayerTest, PauseAndResumeLoseAndRepeatNothing) {
  useFloatFile(30000);
  AQPlayer player("x");
  player.play(false);
  for (int i = 0; i < 20; ++i) {
    clock.advance(17);
    player.pause();
    const double time = player.currentTime();
    clock.advance(23);
    EXPECT_EQ(player.currentTime(), time);
    player.play(true);
  }
  clock.advance(600);
  EXPECT_EQ(output->played(), ramp(0, 30000));
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, ResumingWhileTheEndDrainsStillEnds) {
  useFloatFile(9600);
  AQPlayer player("x");
  player.play(false);
  clock.advance(190);
  ASSERT_TRUE(player.getIsDone());
  player.pause();
  clock.advance(50);
  player.play(true);
  EXPECT_FALSE(player.getIsDone());
  clock.advance(200);
  EXPECT_EQ(output->played(), ramp(0, 9600));
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, PlayAfterTheEndStartsAgainOnTheSameQueue) {
  useFloatFile(6000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(300);
  player.play(false);
  EXPECT_EQ(player.currentTime(), 0.0);
  clock.advance(300);
  std::vector<float> twice = ramp(0, 6000);
  twice.insert(twice.end(), twice.begin(), twice.begin() + 12000);
  EXPECT_EQ(output->played(), twice);
  EXPECT_EQ(finishes(), 2U);
  EXPECT_EQ(outputsMade, 1);
}

TEST_F(AQPlayerTest, ASeekStartsExactlyAtThePacket) {
  useFloatFile(48000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(100);
  const std::size_t before = output->played().size();
  player.setPosition(0.5, true);
  EXPECT_EQ(finishes(), 1U);
  EXPECT_EQ(player.currentTime(), 500.0);
  clock.advance(700);
  const std::vector<float> after(output->played().begin() + static_cast<std::ptrdiff_t>(before),
                                 output->played().end());
  EXPECT_EQ(after, ramp(24000, 48000));
  EXPECT_EQ(player.currentTime(), 1000.0);
  EXPECT_EQ(outputsMade, 1);
}

TEST_F(AQPlayerTest, ASeekThatDoesNotPlayStaysPrimed) {
  useFloatFile(48000);
  AQPlayer player("x");
  watchPackets(player);
  player.setPosition(0.25, false);
  EXPECT_THAT(starts, ElementsAre(12000, 16800, 21600));
  EXPECT_EQ(finishes(), 0U);  // nothing was running
  clock.advance(100);
  EXPECT_TRUE(output->played().empty());
  player.play(true);
  clock.advance(1000);
  EXPECT_EQ(output->played(), ramp(12000, 48000));
}

TEST_F(AQPlayerTest, APrimedSeekIsForgottenByAStartFromTheBeginning) {
  useFloatFile(20000);
  AQPlayer player("x");
  player.setPosition(0.9, false);
  player.play(false);
  EXPECT_EQ(player.currentTime(), 375.0);  // the time goes on from the sought place, on purpose
  clock.advance(600);
  EXPECT_EQ(output->played(), ramp(0, 20000));
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, PositionsAreTruncatedToPackets) {
  useFloatFile(1001);
  AQPlayer player("x");
  watchPackets(player);
  player.setPosition(0.0, false);
  player.setPosition(0.5, false);
  player.setPosition(-1.0, false);
  EXPECT_THAT(starts, ElementsAre(0, 500, 0));
}

TEST_F(AQPlayerTest, TheVeryEndIsDoneAtOnce) {
  useFloatFile(48000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(50);
  player.setPosition(1.0, true);
  EXPECT_TRUE(player.getIsDone());
  EXPECT_EQ(finishes(), 1U);
  EXPECT_EQ(player.currentTime(), 1000.0);
  clock.advance(200);
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, TimesComeFromFramesAndRate) {
  useFloatFile(480000);
  AQPlayer player("x");
  EXPECT_EQ(player.timeFromPosition(0.25), 2500.0);
  EXPECT_EQ(player.duration(), 10.0);
  player.setPosition(0.5, true);
  EXPECT_EQ(player.currentTime(), 5000.0);
  player.play(true);
  clock.advance(250);
  EXPECT_EQ(player.currentTime(), 5250.0);
}

TEST_F(AQPlayerTest, AReadErrorEndsLikeTheEndOfTheFile) {
  useFloatFile(20000);
  badFrame = 12000;
  AQPlayer player("x");
  player.play(false);
  clock.advance(500);
  EXPECT_THAT(log.get(), Contains("AudioFileReadPackets failed: 7"));
  EXPECT_EQ(output->played(), ramp(0, 9600));
  EXPECT_EQ(finishes(), 1U);
  EXPECT_TRUE(player.getIsDone());
  EXPECT_EQ(player.readFailure(), "The memory is bad");
}

TEST_F(AQPlayerTest, AReadErrorIsForgottenOnceItReadsAgain) {
  useFloatFile(20000);
  AQPlayer player("x");
  file->failAt(12000, 5);
  player.play(false);
  clock.advance(500);
  EXPECT_FALSE(player.readFailure().empty());
  file->failAt(UINT64_MAX, 0);
  player.setPosition(0.0, true);
  EXPECT_EQ(player.readFailure(), "");
}

TEST_F(AQPlayerTest, AnEmptyFileEndsAtOnce) {
  useFloatFile(0);
  AQPlayer player("x");
  player.play(false);
  EXPECT_EQ(finishes(), 0U);
  clock.advance(10);
  EXPECT_EQ(finishes(), 1U);
  EXPECT_TRUE(output->played().empty());
}

TEST_F(AQPlayerTest, AFileThatCannotBeOpenedPlaysNothing) {
  AudioBackends::addFile("wave", [] { return std::make_unique<WaveAudioFile>(); });
  AudioBackends::chooseFile("wave");
  AQPlayer player("/nowhere/at all.wav");
  EXPECT_THAT(log.get(), Contains("Open File Failed"));
  EXPECT_FALSE(player.readFailure().empty());
  player.play(false);
  player.setPosition(0.5, true);
  clock.advance(50);
  EXPECT_EQ(player.duration(), 0.0);
  EXPECT_EQ(player.currentTime(), 0.0);
  EXPECT_TRUE(output->played().empty());
}

TEST_F(AQPlayerTest, TheOutputIsToldWhatTheFileIs) {
  useFloatFile(10);
  format.channelMask = 0x600;
  const AQPlayer player("x");
  EXPECT_EQ(askedFor.sampleRate, 48000.0);
  EXPECT_EQ(askedFor.channels, 2U);
  EXPECT_EQ(askedFor.channelMask, 0x600U);
}

// Eight channels of floats at 384 kHz: the three buffers hold 16 ms.
TEST_F(AQPlayerTest, WithShortBuffersTheOwnerMayBeLateAllTheSame) {
  constexpr std::uint64_t kFrames = 384'000;
  useFloatFile(4 * kFrames);
  format.sampleRate = 384'000;
  format.channelsPerFrame = 8;
  format.bytesPerPacket = 32;
  AQPlayer player("x");
  EXPECT_EQ(askedFor.framesReady, 6144U);
  player.play(false);
  clock.advance(200);
  for (int i = 0; i < 3; ++i) {
    clock.setOwnerStalled(true);
    clock.advance(150);
    clock.setOwnerStalled(false);
    clock.advance(50);
  }
  clock.advance(500);
  EXPECT_EQ(player.underruns(), 0U);
  EXPECT_EQ(output->played(), ramp(0, 4 * kFrames));
}

TEST_F(AQPlayerTest, ShortBuffersAreToldOnce) {
  useFloatFile(400);
  format.sampleRate = 384'000;
  format.channelsPerFrame = 8;
  format.bytesPerPacket = 32;
  AQPlayer player("x");
  player.setPosition(0.5, true);
  output->lose("gone");
  clock.advance(10);
  player.play(true);
  EXPECT_EQ(outputsMade, 2);
  const std::string line = "The buffers hold 16 ms, so the sound output is to hold 300 ms.";
  EXPECT_THAT(log.get(), Contains(line).Times(1));
}

TEST_F(AQPlayerTest, UsualBuffersAreWorthNoWord) {
  useFloatFile(10);
  const AQPlayer player("x");
  EXPECT_EQ(askedFor.framesReady, 14'400U);
  EXPECT_DOUBLE_EQ(askedFor.secondsAhead(), AudioOutput::kSecondsAhead);
  EXPECT_TRUE(log.get().empty());
}

TEST_F(AQPlayerTest, AFormatThatNoSoundServerTakesIsALoss) {
  useFloatFile(4800);
  format.sampleRate = 768'000;
  AQPlayer player("x");
  std::string told;
  player.setLostCB([&](const std::string& why) { told = why; });
  player.play(false);
  clock.advance(10);
  EXPECT_FALSE(told.empty());
  EXPECT_TRUE(output->played().empty());
}

/// A player of a file in a folder.
class FilePlayerTest : public AQPlayerTest {
 protected:
  void SetUp() override {
    AQPlayerTest::SetUp();
    AudioBackends::addFile("wave", [] { return std::make_unique<WaveAudioFile>(); });
    AudioBackends::chooseFile("wave");
    path =
        folder.file("x.wav", WaveBytes().format24().data(std::vector<std::byte>(6 * 48000)).get());
  }

  TemporaryFolder folder;
  std::filesystem::path path;
};

TEST_F(FilePlayerTest, AFileThatIsCutShortWhileItPlaysEndsThereWithAReason) {
  AQPlayer player(path);
  player.play(false);
  clock.advance(200);
  std::filesystem::resize_file(path, 6 * 24000);
  clock.advance(1000);
  EXPECT_EQ(finishes(), 1U);
  EXPECT_LT(player.currentTime(), 501.0);
  EXPECT_EQ(player.readFailure(), "The file became shorter");
}

TEST_F(FilePlayerTest, AFileThatIsDeletedWhileItPlaysEndsWithAReason) {
  AQPlayer player(path);
  player.play(false);
  clock.advance(200);
  std::filesystem::remove(path);
  clock.advance(1500);
  EXPECT_EQ(finishes(), 1U);
  EXPECT_EQ(player.currentTime(), 1000.0) << "all of it was there";
  EXPECT_EQ(player.readFailure(), "The file has been deleted");
}

TEST_F(AQPlayerTest, VolumeIsPassedOnAsItIs) {
  useFloatFile(1000);
  AQPlayer player("x");
  player.setVolume(3.5);
  EXPECT_EQ(output->volume(), 3.5F);
  player.setVolume(-1.0);
  EXPECT_EQ(output->volume(), -1.0F);
}

TEST_F(AQPlayerTest, EveryChangeOfRunningIsLogged) {
  useFloatFile(1000);
  AQPlayer player("x");
  player.play(false);
  EXPECT_THAT(log.get(), ElementsAre("result = 0, state = 1"));
  clock.advance(100);
  EXPECT_THAT(log.get(), ElementsAre("result = 0, state = 1", "result = 0, state = 0",
                                     ">>>>>EVENT BUS EB_PLAY_FINISH<<<<<"));
}

TEST_F(AQPlayerTest, CleaningUpIsSilentAndFinal) {
  useFloatFile(48000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(50);
  player.cleanUp();
  EXPECT_EQ(finishes(), 0U);
  player.play(false);
  player.pause();
  player.setPosition(0.5, true);
  player.setVolume(0.5);
  clock.advance(50);
  EXPECT_EQ(finishes(), 0U);
}

TEST_F(AQPlayerTest, AnOlderPlayerThatGoesLeavesTheNewOneAlone) {
  useFloatFile(4800);
  auto older = std::make_unique<AQPlayer>("x");
  AQPlayer newer("y");
  older.reset();
  newer.play(false);
  clock.advance(200);
  EXPECT_EQ(output->played(), ramp(0, 4800));
}

TEST_F(AQPlayerTest, AListenerMayCleanUpInTheMiddleOfASeek) {
  useFloatFile(48000);
  AQPlayer player("x");
  NotificationCenter::defaultCenter().addObserver(
      &player, [&](const Notification&) { player.cleanUp(); }, EB::kPlayFinish);
  player.play(false);
  clock.advance(50);
  player.setPosition(0.5, true);
  clock.advance(50);
  NotificationCenter::defaultCenter().removeObserver(&player);
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, AListenerMayMakeAnotherPlayerInTheMiddleOfASeek) {
  useFloatFile(48000);
  auto player = std::make_unique<AQPlayer>("x");
  NotificationCenter::defaultCenter().addObserver(
      this,
      [&](const Notification&) {
        NotificationCenter::defaultCenter().removeObserver(this);
        player.reset();
        player = std::make_unique<AQPlayer>("y");  // most likely at the same address
      },
      EB::kPlayFinish);
  player->play(false);
  clock.advance(50);
  player->setPosition(0.5, true);
  EXPECT_EQ(player->currentTime(), 0.0) << "the seek was the other one's";
  clock.advance(100);
  EXPECT_TRUE(output->played().empty());
}

TEST_F(AQPlayerTest, ADataCallbackMayDeleteThePlayer) {
  useFloatFile(48000);
  auto player = std::make_unique<AQPlayer>("x");
  player->setDataCB([&](AudioQueueBuffer&, const AudioFormat&, std::int64_t packet) {
    if (packet > 0) player.reset();
  });
  player->play(false);
  EXPECT_EQ(player, nullptr);
  player = std::make_unique<AQPlayer>("y");
  player->setDataCB([&](AudioQueueBuffer&, const AudioFormat&, std::int64_t packet) {
    if (packet > 24000) player.reset();
  });
  player->play(false);
  clock.advance(1000);
  EXPECT_EQ(player, nullptr);
}

TEST_F(AQPlayerTest, ASeekToWhatCannotBeReadEndsAsTheEndDoes) {
  useFloatFile(48000);
  badFrame = 24000;
  AQPlayer player("x");
  player.play(false);
  clock.advance(50);
  player.setPosition(0.5, true);
  EXPECT_THAT(log.get(), Contains("AudioFileReadPackets failed: 7"));
  EXPECT_EQ(finishes(), 1U) << "the seek's own";
  clock.advance(50);
  EXPECT_EQ(finishes(), 2U);
  EXPECT_EQ(player.currentTime(), 500.0);
}

TEST_F(AQPlayerTest, AShortStallOfTheOwnerIsNotHeard) {
  useFloatFile(96000);
  AQPlayer player("x");
  player.play(false);
  for (int i = 0; i < 5; ++i) {
    clock.advance(37);
    clock.setOwnerStalled(true);
    clock.advance(200);
    clock.setOwnerStalled(false);
  }
  clock.advance(2000);
  EXPECT_EQ(output->played(), ramp(0, 96000));
  EXPECT_EQ(player.underruns(), 0U);
}

TEST_F(AQPlayerTest, ALongStallIsAnUnderrunAndLosesNothing) {
  useFloatFile(48000);
  AQPlayer player("x");
  player.play(false);
  clock.advance(50);
  clock.setOwnerStalled(true);
  clock.advance(500);
  clock.setOwnerStalled(false);
  clock.advance(2000);
  EXPECT_EQ(player.underruns(), 1U);
  EXPECT_EQ(output->played(), ramp(0, 48000));
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, ALostOutputIsToldAndPlayGoesOnWhereItWasHeard) {
  useFloatFile(48000);
  AQPlayer player("x");
  std::string told;
  player.setLostCB([&](const std::string& why) { told = why; });
  player.setVolume(0.5);
  player.play(false);
  clock.advance(333);
  const auto heard = static_cast<std::uint64_t>(player.currentTime() * 48);
  output->lose("Gone.");
  clock.advance(100);
  EXPECT_EQ(told, "Gone.");
  EXPECT_EQ(finishes(), 0U);
  EXPECT_DOUBLE_EQ(player.currentTime() * 48, static_cast<double>(heard));
  player.play(true);
  EXPECT_EQ(outputsMade, 2);
  EXPECT_EQ(output->volume(), 0.5F);
  clock.advance(1000);
  std::vector<float> rest = ramp(heard, 48000);
  for (float& sample : rest) sample *= 0.5F;
  EXPECT_EQ(output->played(), rest);
  EXPECT_EQ(finishes(), 1U);
}

TEST_F(AQPlayerTest, AfterALossPlayFromTheStartWorksToo) {
  useFloatFile(4800);
  AQPlayer player("x");
  player.play(false);
  output->lose("Gone.");
  clock.advance(10);
  player.play(false);
  clock.advance(300);
  EXPECT_EQ(output->played(), ramp(0, 4800));
}

TEST_F(AQPlayerTest, ASeekAfterALossMakesANewOutput) {
  useFloatFile(48000);
  AQPlayer player("x");
  player.play(false);
  output->lose("Gone.");
  clock.advance(10);
  player.setPosition(0.5, true);
  clock.advance(1000);
  EXPECT_EQ(outputsMade, 2);
  EXPECT_EQ(output->played(), ramp(24000, 48000));
}

}  // namespace
