// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeSession.h"

#include <sys/syscall.h>

#include <QSignalSpy>
#include <cerrno>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "TakeFixture.h"
#include "support/Confinement.h"

namespace {

using testing::ElementsAre;
using State = TakeSession::State;
using Failure = TakeSession::Failure;

class Session : public TakeFixture {};

/// What the player cannot open.
class NoFile : public AudioFile {
 public:
  bool open(const std::string& /*path*/) override { return false; }
  [[nodiscard]] std::string failure() const override { return "not there"; }
  [[nodiscard]] AudioFormat format() const override { return {}; }
  [[nodiscard]] std::uint64_t frameCount() const override { return 0; }
  Read readFrames(std::uint64_t /*first*/, std::uint32_t /*frames*/,
                  std::span<std::byte> /*to*/) override {
    return {0, 1};
  }
};

/// Does something in the middle of a player's end.
struct AtTheEnd {
  void notify(const Notification& /*event*/) { then(); }
  std::function<void()> then;
};

TEST_F(Session, OpensAndPlays) {
  EXPECT_EQ(session->state(), State::Closed);
  open("a.WAV");
  EXPECT_THAT(told, ElementsAre("opening", "opened", "state"));
  EXPECT_EQ(session->state(), State::Playing);
  EXPECT_EQ(session->name(), "a.WAV");
  EXPECT_EQ(session->file(), takes.path() / "a.WAV");
  EXPECT_TRUE(session->isRawMidSide());
  EXPECT_EQ(session->durationText(), "00:00:10");
  EXPECT_EQ(session->duration(), 10.0);
  play(2500);
  EXPECT_NEAR(session->time(), 2.5, 0.1);
  EXPECT_NEAR(session->position(), 0.25, 0.01);
  EXPECT_EQ(session->timeText(), "00:00:02");
  EXPECT_EQ(session->textAt(0.75), "00:00:07");
  EXPECT_EQ(session->zeroText(), "00:00:00");
}

TEST_F(Session, IsOpeningUntilItIsKnownWhatTheFileIs) {
  std::vector<State> states;
  QObject::connect(session.get(), &TakeSession::opening, session.get(),
                   [&] { states.push_back(session->state()); });
  QObject::connect(session.get(), &TakeSession::opened, session.get(),
                   [&] { states.push_back(session->state()); });
  open("a.WAV");
  EXPECT_THAT(states, ElementsAre(State::Opening, State::Opened));
}

TEST_F(Session, OpeningAnotherTakeClosesTheFirst) {
  open("a.WAV");
  QString closed;
  QObject::connect(session.get(), &TakeSession::closing, session.get(),
                   [&] { closed = session->name(); });
  told.clear();
  open("b.WAV", false);
  EXPECT_THAT(told, ElementsAre("closing", "opening", "opened", "state"));
  EXPECT_EQ(closed, "a.WAV") << "it can still be asked";
  EXPECT_EQ(session->name(), "b.WAV");
  EXPECT_FALSE(session->isRawMidSide());
}

TEST_F(Session, RefusesWhatIsNotTheRecorders) {
  open("a.WAV");
  told.clear();
  openFile("b.wav", takes.file("b.wav", {std::byte{'x'}}));
  EXPECT_THAT(told, ElementsAre("closing", "opening", "failed", "closed"));
  EXPECT_THAT(failures, ElementsAre(Failure::Unsupported));
  EXPECT_NE(reasons.front(), "");
  EXPECT_EQ(session->state(), State::Closed);
  EXPECT_EQ(session->name(), "");
  EXPECT_EQ(session->job(), nullptr);
  EXPECT_EQ(session->reader(), nullptr);
}

TEST_F(Session, WithoutAThreadItRefuses) {
  const auto file = take("a.WAV");
  const int status = Confinement::run([&] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    session->open("a.WAV", file);
    if (reasons != std::vector<std::string>{"no thread can be had"}) return 3;
    return session->state() == State::Closed && told.back() == "closed" ? 0 : 4;
  });
  EXPECT_EQ(status, 0);
}

TEST_F(Session, ClosesOnDemand) {
  open("a.WAV");
  told.clear();
  session->close();
  EXPECT_THAT(told, ElementsAre("closing", "closed"));
  EXPECT_EQ(session->state(), State::Closed);
  play(100);
  EXPECT_EQ(session->time(), 0.0);
}

TEST_F(Session, WithoutATakeCommandsDoNothing) {
  session->play();
  session->seek(0.5);
  session->playFinish();
  EXPECT_THAT(told, ElementsAre());
  EXPECT_EQ(session->state(), State::Closed);
  EXPECT_EQ(session->jobToExport(), nullptr);
  EXPECT_EQ(session->timeText(), "");
}

TEST_F(Session, PlaysPausesSeeksAndFinishes) {
  open("a.WAV");
  session->play();
  EXPECT_EQ(session->state(), State::Paused);
  session->seek(0.95);
  EXPECT_NEAR(session->time(), 9.5, 0.01);
  session->play();
  told.clear();
  play(1000);
  EXPECT_EQ(session->state(), State::Finished);
  EXPECT_THAT(told, ElementsAre("state"));
  EXPECT_TRUE(session->isOpen()) << "ready to be played again";
  session->play();
  EXPECT_EQ(session->state(), State::Playing);
  EXPECT_NEAR(session->time(), 0.0, 0.05);
}

TEST_F(Session, SoundStaysFromTakeToTake) {
  session->setVolume(0.25);
  session->setGain(-7);
  session->setAngle(33.9);
  for (const char* name : {"a.WAV", "b.WAV"}) {
    open(name);
    EXPECT_EQ(session->player()->volume(), 0.25);
    EXPECT_EQ(session->player()->gain(), -7);
    EXPECT_EQ(session->player()->angle(), 33);
  }
  session->setAngle(90.5);
  session->setGain(6);
  EXPECT_EQ(session->player()->angle(), 90);
  EXPECT_EQ(session->player()->gain(), 6);
  const auto job = session->jobToExport();
  EXPECT_EQ(job->angle(), 90.5) << "an export takes all of it";
  EXPECT_EQ(job->gain(), 6.0);
}

TEST_F(Session, KnowsWhetherTheSoundHasChangedSinceItStopped) {
  open("a.WAV");
  EXPECT_FALSE(session->hasSoundChanged());
  session->setGain(3);
  EXPECT_TRUE(session->hasSoundChanged());
  session->play();
  EXPECT_FALSE(session->hasSoundChanged()) << "it was paused with this gain";
  session->setAngle(0.5);
  EXPECT_TRUE(session->hasSoundChanged());
  session->setAngle(0.0);
  EXPECT_FALSE(session->hasSoundChanged());
}

TEST_F(Session, WhoReadsGetsAReaderForItself) {
  openAndLoad("a.WAV");
  const auto one = session->reader();
  const auto two = session->reader();
  ASSERT_NE(one, nullptr);
  EXPECT_EQ(one->image(), two->image());
  one->beginReadSample();
  two->beginReadSample();
  float left = 0.0F;
  float right = 0.0F;
  ASSERT_TRUE(one->readNextSample(left, right));
  EXPECT_NE(one->readDataIdx(), two->readDataIdx());
}

TEST_F(Session, ReadingFailureIsToldOnceAndTheTakeStays) {
  badFrame = 30'000;
  open("a.WAV");
  play(2000);
  EXPECT_EQ(session->state(), State::Finished);
  EXPECT_THAT(failures, ElementsAre(Failure::Reading));
  EXPECT_TRUE(session->isOpen());
}

TEST_F(Session, ReadingFailureIsForgottenWhenItReadsAgain) {
  QSignalSpy again(session.get(), &TakeSession::readAgain);
  badFrame = 30'000;
  open("a.WAV");
  play(2000);
  session->play();
  EXPECT_EQ(again.count(), 1) << "what comes before the bad spot";
  play(2000);
  EXPECT_THAT(failures, ElementsAre(Failure::Reading, Failure::Reading)) << "met once more";
  file->failAt(UINT64_MAX, 0);
  session->play();
  play(2000);
  EXPECT_EQ(again.count(), 2);
  EXPECT_EQ(failures.size(), 2U);
  EXPECT_EQ(session->state(), State::Playing);
}

TEST_F(Session, ReadingFailureIsToldWhileItPlays) {
  open("a.WAV");
  play(100);
  auto* const watch = session->findChild<QTimer*>();
  EXPECT_TRUE(watch->isActive());
  session->play();
  EXPECT_FALSE(watch->isActive());
}

TEST_F(Session, LostOutputPausesAndPlayTriesAgain) {
  open("a.WAV");
  play(500);
  told.clear();
  output->lose("The sound server\nhas ended.");
  play(20);
  EXPECT_THAT(told, ElementsAre("state", "failed"));
  EXPECT_THAT(failures, ElementsAre(Failure::Output));
  EXPECT_THAT(reasons, ElementsAre("The sound server has ended."));
  EXPECT_EQ(session->state(), State::Paused);
  session->play();
  play(200);
  EXPECT_EQ(outputsMade, 2);
  EXPECT_GT(session->time(), 0.5);
}

TEST_F(Session, LevelsOfThePlayerArePassedOn) {
  QSignalSpy levels(session.get(), &TakeSession::levelsSent);
  session->WavePlayerLevelChanged(0.5, -0.25);
  ASSERT_EQ(levels.count(), 1);
  EXPECT_EQ(levels.first().at(0).toDouble(), 0.5);
  EXPECT_EQ(levels.first().at(1).toDouble(), -0.25);
}

TEST_F(Session, MayGoWhileItPlays) {
  open("a.WAV");
  play(100);
  session.reset();
  play(100);
  EXPECT_THAT(told, ElementsAre("opening", "opened", "state")) << "there is nobody to be asked";
}

TEST_F(Session, MayBeClosedByWhoeverHearsThatItOpened) {
  QObject::connect(session.get(), &TakeSession::opened, session.get(), &TakeSession::close);
  open("a.WAV");
  EXPECT_THAT(told, ElementsAre("opening", "opened", "closing", "closed"));
  EXPECT_EQ(session->state(), State::Closed);
}

TEST_F(Session, FileThatThePlayerCannotOpenPlaysNothing) {
  AudioBackends::addFile("memory", [] { return std::make_unique<NoFile>(); });
  open("a.WAV");
  play(100);
  EXPECT_EQ(session->time(), 0.0);
  EXPECT_THAT(failures, testing::Contains(Failure::Reading));
  EXPECT_EQ(session->state(), State::Closed);
}

// What the player cannot open is let go of a moment later, and another take is open by then.
TEST_F(Session, WhatIsOpenedBeforeTheOtherIsLetGoOfStaysOpen) {
  AudioBackends::addFile("memory", [this, isFirst = true]() mutable -> std::unique_ptr<AudioFile> {
    if (std::exchange(isFirst, false)) return std::make_unique<NoFile>();
    return std::make_unique<MemoryAudioFile>(format, packets);
  });
  const auto other = take("b.WAV");
  AtTheEnd end{[&] {
    if (session->name() == "a.WAV") session->open("b.WAV", other);
  }};
  EB::SUBSCRIBE(&end, &AtTheEnd::notify, EB::kPlayFinish);
  open("a.WAV");
  ASSERT_TRUE(EventLoop::runUntil([this] { return session->state() == State::Playing; }));
  play(100);
  waitForTake();
  play(100);
  NotificationCenter::defaultCenter().removeObserver(&end);
  EXPECT_EQ(session->name(), "b.WAV");
  EXPECT_EQ(session->state(), State::Playing);
  EXPECT_THAT(told, testing::Not(testing::Contains("closed")));
}

TEST_F(Session, AWidthThatIsNoNumberIsNone) {
  open("a.WAV");
  session->setAngle(75);
  QSignalSpy changed(session.get(), &TakeSession::soundChanged);
  session->setAngle(std::nan(""));
  EXPECT_EQ(session->angle(), 75.0);
  EXPECT_EQ(session->player()->angle(), 75);
  EXPECT_EQ(changed.count(), 0);
}

}  // namespace
