// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/WavePlayer.h"

#include <gmock/gmock.h>

#include <cmath>
#include <utility>

#include "PlaybackFixture.h"

using testing::ElementsAre;

namespace {

class Told : public WavePlayerDelegate {
 public:
  explicit Told(const WavePlayer& player) : _player(player) {}

  void WavePlayerStateChanged() override { states.push_back(_player.play_state()); }
  void WavePlayerOutputLost(const std::string& message) override { lost = message; }

  std::vector<PlayState> states;
  std::string lost;

 private:
  const WavePlayer& _player;
};

class WavePlayerTest : public PlaybackFixture {
 protected:
  void TearDown() override { NotificationCenter::defaultCenter().removeObserver(this); }

  void open(std::uint64_t frames = 48000) {
    useFloatFile(frames);
    player = std::make_unique<WavePlayer>("x");
    told = std::make_shared<Told>(*player);
    player->setDelegate(told);
  }
  /// A second of sound in a player that has come to this state by its own operations.
  void openIn(PlayState state) {
    open();
    if (state == kFinish) player->playFinish();
    if (state == kPlay || state == kPause) {
      player->play();
      clock.advance(50);
    }
    if (state == kPause) player->pause();
    ASSERT_EQ(player->play_state(), state);
    takeStates();
  }
  /// As the window does it.
  void forwardFinish() {
    NotificationCenter::defaultCenter().addObserver(
        this, [this](const Notification&) { player->playFinish(); }, EB::kPlayFinish);
  }
  std::vector<PlayState> takeStates() { return std::exchange(told->states, {}); }

  static constexpr PlayState kInit = PLAY_STATE_INIT;
  static constexpr PlayState kPlay = PLAY_STATE_PLAY;
  static constexpr PlayState kPause = PLAY_STATE_PAUSE;
  static constexpr PlayState kFinish = PLAY_STATE_FINISH;

  std::unique_ptr<WavePlayer> player;
  std::shared_ptr<Told> told;
};

TEST_F(WavePlayerTest, BeginsInInitAndTellsNothing) {
  open();
  EXPECT_EQ(player->play_state(), kInit);
  EXPECT_EQ(player->volume(), 1.0);
  EXPECT_EQ(player->gain(), 0);
  EXPECT_EQ(player->angle(), 0);
  EXPECT_EQ(output->volume(), 1.0F);
  EXPECT_TRUE(told->states.empty());
  EXPECT_FALSE(output->isRunning());
}

TEST_F(WavePlayerTest, PlayToggles) {
  open();
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
  EXPECT_TRUE(output->isRunning());
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPause));
  EXPECT_FALSE(output->isRunning());
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
  player->pause();
  EXPECT_THAT(takeStates(), ElementsAre(kPause));
}

TEST_F(WavePlayerTest, PauseOutsidePlayDoesNothing) {
  open();
  player->pause();
  EXPECT_EQ(player->play_state(), kInit);
  player->playFinish();
  takeStates();
  player->pause();
  EXPECT_EQ(player->play_state(), kFinish);
  EXPECT_TRUE(told->states.empty());
}

TEST_F(WavePlayerTest, PauseAndResumePlayEverythingOnce) {
  open(20000);
  player->play();
  clock.advance(123);
  player->play();
  clock.advance(50);
  player->play();
  clock.advance(600);
  EXPECT_EQ(output->played(), ramp(0, 20000));
}

TEST_F(WavePlayerTest, FinishesFromAnyState) {
  for (const PlayState state : {kInit, kPlay, kPause, kFinish}) {
    openIn(state);
    player->playFinish();
    EXPECT_EQ(player->play_state(), kFinish) << state;
    EXPECT_THAT(takeStates(), ElementsAre(kFinish)) << state;
  }
}

TEST_F(WavePlayerTest, TheNaturalEndFinishesOnce) {
  open(4800);
  forwardFinish();
  player->play();
  clock.advance(300);
  EXPECT_THAT(takeStates(), ElementsAre(kPlay, kFinish));
  EXPECT_TRUE(player->getIsDone());
}

TEST_F(WavePlayerTest, PlayAfterTheEndStartsOverAndTellsTwice) {
  open(4800);
  forwardFinish();
  player->play();
  clock.advance(300);
  takeStates();
  player->setVolume(0.5);
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay, kPlay));
  EXPECT_EQ(output->volume(), 0.5F);
  clock.advance(300);
  EXPECT_THAT(takeStates(), ElementsAre(kFinish));
  EXPECT_EQ(output->played().size(), 4U * 4800);
}

TEST_F(WavePlayerTest, PlayAfterTheEndWithAnOldPositionStartsTheSameQueueOver) {
  open(4800);
  player->play();
  player->setPosition(0.5);
  clock.advance(300);
  player->changeState(PLAY_STATE_FINISH);
  takeStates();
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
  clock.advance(300);
  EXPECT_EQ(output->played().size(), 2U * (2400 + 4800));
}

TEST_F(WavePlayerTest, ASeekKeepsInitAndPauseSilently) {
  open();
  player->setPosition(0.5);
  EXPECT_EQ(player->play_state(), kInit);
  EXPECT_TRUE(told->states.empty());
  player->changeState(PLAY_STATE_PAUSE);
  player->setPosition(0.25);
  EXPECT_EQ(player->play_state(), kPause);
  EXPECT_TRUE(told->states.empty());
  clock.advance(50);
  EXPECT_TRUE(output->played().empty());
}

TEST_F(WavePlayerTest, ASeekInInitIsForgottenByPlay) {
  open(20000);
  player->setPosition(0.5);
  player->play();
  clock.advance(600);
  EXPECT_EQ(output->played(), ramp(0, 20000));
}

TEST_F(WavePlayerTest, ASeekInPauseIsWhereItGoesOn) {
  open(20000);
  player->play();
  clock.advance(50);
  player->pause();
  const auto before = static_cast<std::ptrdiff_t>(output->played().size());
  player->setPosition(0.5);
  player->play();
  clock.advance(600);
  EXPECT_EQ(std::vector<float>(output->played().begin() + before, output->played().end()),
            ramp(10000, 20000));
}

TEST_F(WavePlayerTest, ASeekWhilePlayingIsNoFinish) {
  open();
  forwardFinish();
  player->play();
  clock.advance(50);
  takeStates();
  player->setPosition(0.5);
  EXPECT_EQ(finishes(), 1U);
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
  EXPECT_TRUE(output->isRunning());
}

TEST_F(WavePlayerTest, ASeekInAFinishedFileIsPaused) {
  open();
  player->playFinish();
  takeStates();
  player->setPosition(0.5);
  EXPECT_THAT(takeStates(), ElementsAre(kPause));
  EXPECT_FALSE(output->isRunning());
  player->play();
  clock.advance(1000);
  EXPECT_EQ(output->played(), ramp(24000, 48000));
}

TEST_F(WavePlayerTest, ASeekToTheEndFinishesFromAnyState) {
  for (const PlayState state : {kInit, kPlay, kPause, kFinish}) {
    openIn(state);
    EXPECT_LT(player->curremtTime(), 1.0) << state;
    player->setPosition(1.0);
    EXPECT_THAT(takeStates(), ElementsAre(kFinish)) << state;
    EXPECT_EQ(player->curremtTime(), 1.0) << state;
    EXPECT_TRUE(player->getIsDone()) << state;
    clock.advance(200);
    EXPECT_TRUE(told->states.empty()) << state;
  }
}

TEST_F(WavePlayerTest, AnOlderPlayerThatGoesLeavesTheNewOneAlone) {
  open(4800);
  const auto older = std::move(player);
  open(4800);
  older->cleanUp();
  player->play();
  clock.advance(300);
  EXPECT_EQ(output->played(), ramp(0, 4800));
}

// The stop within the seek counts as a finish, and so does the seek itself.
TEST_F(WavePlayerTest, ASeekToTheEndIsARealFinish) {
  open();
  forwardFinish();
  player->play();
  clock.advance(50);
  takeStates();
  player->setPosition(1.0);
  EXPECT_THAT(takeStates(), ElementsAre(kFinish, kFinish));
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay, kPlay));
  EXPECT_EQ(player->curremtTime(), 0.0);
}

TEST_F(WavePlayerTest, AfterASeekToTheEndPlayStartsOver) {
  open(4800);
  player->setPosition(1.0);
  player->play();
  clock.advance(300);
  EXPECT_EQ(output->played(), ramp(0, 4800));
}

TEST_F(WavePlayerTest, VolumeOutsideItsRangeIsIgnored) {
  open();
  player->setVolume(0.25);
  for (const double volume : {1.0000001, -0.1, std::nan("")}) {
    player->setVolume(volume);
    EXPECT_EQ(player->volume(), 0.25);
    EXPECT_EQ(output->volume(), 0.25F);
  }
  player->setVolume(0.0);
  EXPECT_EQ(output->volume(), 0.0F);
  player->setVolume(1.0);
  EXPECT_EQ(output->volume(), 1.0F);
}

TEST_F(WavePlayerTest, VolumeIsHeardLinearly) {
  open(4800);
  player->setVolume(0.5);
  player->play();
  clock.advance(300);
  std::vector<float> half = ramp(0, 4800);
  for (float& sample : half) sample *= 0.5F;
  EXPECT_EQ(output->played(), half);
}

TEST_F(WavePlayerTest, ChangingTheStateTellsNobody) {
  open();
  player->changeState(PLAY_STATE_PLAY);
  EXPECT_EQ(player->play_state(), kPlay);
  EXPECT_TRUE(told->states.empty());
  player->notifyStateChanged();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
}

TEST_F(WavePlayerTest, ADelegateThatIsGoneIsNotTold) {
  open();
  told.reset();
  player->play();
  EXPECT_EQ(player->play_state(), kPlay);
}

TEST_F(WavePlayerTest, StatesHaveNames) {
  EXPECT_EQ(WavePlayer::state2Str(PLAY_STATE_INIT), "PLAY_STATE_INIT");
  EXPECT_EQ(WavePlayer::state2Str(PLAY_STATE_PLAY), "PLAY_STATE_PLAY");
  EXPECT_EQ(WavePlayer::state2Str(PLAY_STATE_PAUSE), "PLAY_STATE_PAUSE");
  EXPECT_EQ(WavePlayer::state2Str(PLAY_STATE_FINISH), "PLAY_STATE_FINISH");
  EXPECT_EQ(WavePlayer::state2Str(static_cast<PlayState>(4)), "STATE NOT FOUND");
}

TEST_F(WavePlayerTest, SecondsAreShownAsHoursMinutesSeconds) {
  EXPECT_EQ(WavePlayer::second2String(0), "00:00:00");
  EXPECT_EQ(WavePlayer::second2String(59), "00:00:59");
  EXPECT_EQ(WavePlayer::second2String(3599), "00:59:59");
  EXPECT_EQ(WavePlayer::second2String(3600), "01:00:00");
  EXPECT_EQ(WavePlayer::second2String(86399), "23:59:59");
  EXPECT_EQ(WavePlayer::second2String(360000), "100:00:00");
}

TEST_F(WavePlayerTest, TimesAreWholeSeconds) {
  open(48000 * 3 + 47999);
  EXPECT_EQ(player->duration(), 3.0);
  EXPECT_EQ(player->durationString(), "00:00:03");
  EXPECT_EQ(player->getTimeFromPosition(0.5), "00:00:01");
  EXPECT_EQ(player->getTimeFromPosition(1.0), "00:00:03");
  EXPECT_EQ(player->getZeroTimeString(), "00:00:00");
}

TEST_F(WavePlayerTest, CurrentTimeIsZeroInInitWhateverTheQueueSays) {
  open(480000);
  player->setPosition(0.5);
  EXPECT_EQ(player->curremtTime(), 5.0);
  EXPECT_EQ(player->currentTimeString(), "00:00:00");
  player->changeState(PLAY_STATE_PAUSE);
  EXPECT_EQ(player->currentTimeString(), "00:00:05");
  player->play();
  clock.advance(1500);
  EXPECT_EQ(player->curremtTime(), 6.5);
  EXPECT_EQ(player->currentTimeString(), "00:00:06");
}

TEST_F(WavePlayerTest, ALostOutputPausesAndTellsWhy) {
  open();
  player->play();
  clock.advance(200);
  takeStates();
  output->lose("Gone.");
  clock.advance(1);
  EXPECT_THAT(takeStates(), ElementsAre(kPause));
  EXPECT_EQ(told->lost, "Gone.");
  EXPECT_EQ(player->curremtTime(), 0.2);
  player->play();
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
  clock.advance(1000);
  EXPECT_EQ(output->played(), ramp(9600, 48000));
}

TEST_F(WavePlayerTest, ALossWhilePausedIsNotedByTheNextPlayOnly) {
  open();
  player->play();
  clock.advance(200);
  player->pause();
  takeStates();
  output->lose("Gone.");
  clock.advance(1);
  EXPECT_TRUE(told->states.empty());
  EXPECT_TRUE(told->lost.empty());
  player->play();
  clock.advance(1000);
  EXPECT_EQ(output->played(), ramp(9600, 48000));
}

TEST_F(WavePlayerTest, ASeekToWhatCannotBeReadFinishes) {
  badFrame = 24000;
  open();
  forwardFinish();
  player->play();
  clock.advance(50);
  takeStates();
  player->setPosition(0.5);
  EXPECT_THAT(takeStates(), ElementsAre(kPlay));
  clock.advance(50);
  EXPECT_THAT(takeStates(), ElementsAre(kFinish));
}

TEST_F(WavePlayerTest, AReplayOfWhatCannotBeReadAnyMoreFinishes) {
  open(9600);
  forwardFinish();
  player->play();
  clock.advance(400);
  takeStates();
  file->failAt(0, 5);
  for (int i = 0; i < 2; ++i) {
    player->play();
    EXPECT_THAT(takeStates(), ElementsAre(kPlay, kPlay));
    clock.advance(50);
    EXPECT_THAT(takeStates(), ElementsAre(kFinish));
  }
}

TEST_F(WavePlayerTest, ATakeWithoutFramesFinishesEachTime) {
  open(0);
  forwardFinish();
  for (std::size_t i = 0; i < 3; ++i) {
    player->play();
    clock.advance(50);
    EXPECT_EQ(takeStates().back(), kFinish) << i;
    EXPECT_EQ(finishes(), i + 1U);
  }
}

TEST_F(WavePlayerTest, AFileThatCannotBeOpenedFinishesWithoutASound) {
  open();
  format = {};
  packets.clear();
  player = std::make_unique<WavePlayer>("x");
  forwardFinish();
  player->play();
  clock.advance(50);
  EXPECT_EQ(player->play_state(), kFinish);
  EXPECT_TRUE(output->played().empty());
}

TEST_F(WavePlayerTest, ASeekBeyondTheEndFinishes) {
  open();
  forwardFinish();
  player->play();
  clock.advance(50);
  takeStates();
  player->setPosition(1.5);
  clock.advance(50);
  EXPECT_THAT(takeStates(), ElementsAre(kPlay, kFinish));
}

/// Ends the player as soon as it is in a state.
class Ending : public WavePlayerDelegate {
 public:
  Ending(std::unique_ptr<WavePlayer>& player, PlayState at) : _player(player), _at(at) {}

  void WavePlayerStateChanged() override {
    if (_player && _player->play_state() == _at) _player.reset();
  }

 private:
  std::unique_ptr<WavePlayer>& _player;
  PlayState _at;
};

TEST_F(WavePlayerTest, ADelegateMayDeleteThePlayerThatStartsOver) {
  open(4800);
  player->playFinish();
  const auto ending = std::make_shared<Ending>(player, kPlay);
  player->setDelegate(ending);
  player->play();
  EXPECT_EQ(player, nullptr);
}

TEST_F(WavePlayerTest, AListenerMayDeleteThePlayerInTheMiddleOfASeek) {
  open();
  player->play();
  clock.advance(50);
  NotificationCenter::defaultCenter().addObserver(
      this, [this](const Notification&) { player.reset(); }, EB::kPlayFinish);
  player->setPosition(0.5);
  EXPECT_EQ(player, nullptr);
}

TEST_F(WavePlayerTest, CleanUpKeepsTheState) {
  open();
  forwardFinish();
  player->play();
  takeStates();
  player->cleanUp();
  EXPECT_EQ(player->play_state(), kPlay);
  EXPECT_TRUE(told->states.empty());
}

}  // namespace
