// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDISequenceBase.h"

#include <gmock/gmock.h>

#include "LinkTest.h"
#include "midi/MIDINOPSequence.h"
#include "midi/MIDIStepSequence.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Timed : public MIDISequenceBase {
 public:
  void sequenceTimeOut(const std::string& description) override { told.push_back(description); }
  std::vector<std::string> told;
};

class Stepped : public MIDIStepSequence {
 public:
  void startSequence() override {
    markTimeOutWithDescription("asked");
    setSeq(2);
  }
};

class MIDISequenceBaseTest : public testing::Test {
 protected:
  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  InstalledPlatform platform{std::make_shared<AbsentMIDISystem>(), clock};
  Timed timed;
};

TEST_F(MIDISequenceBaseTest, TimesOutAfterTwoSeconds) {
  timed.markTimeOutWithDescription("request");
  clock->advance(1.999);
  EXPECT_THAT(timed.told, IsEmpty());
  clock->advance(0.001);
  EXPECT_THAT(timed.told, ElementsAre("request"));
  clock->advance(10.0);
  EXPECT_THAT(timed.told, ElementsAre("request"));
}

TEST_F(MIDISequenceBaseTest, TimesOutAfterTheGivenTime) {
  timed.markTimeOut("long", 5.5);
  clock->advance(5.4);
  EXPECT_THAT(timed.told, IsEmpty());
  clock->advance(0.1);
  EXPECT_THAT(timed.told, ElementsAre("long"));
}

TEST_F(MIDISequenceBaseTest, KeepsTheLastDescription) {
  timed.markTimeOutWithDescription("first");
  timed.markTimeOut();
  clock->advance(2.0);
  timed.markTimeOut(0.5);
  clock->advance(0.5);
  EXPECT_THAT(timed.told, ElementsAre("first", "first"));
}

TEST_F(MIDISequenceBaseTest, HasNoDescriptionAtFirst) {
  timed.markTimeOut();
  clock->advance(2.0);
  EXPECT_THAT(timed.told, ElementsAre(""));
}

TEST_F(MIDISequenceBaseTest, KeepsOnlyTheLastOfTwoTimeOuts) {
  timed.markTimeOutWithDescription("first");
  clock->advance(1.0);
  timed.markTimeOutWithDescription("second");
  EXPECT_EQ(clock->running(), 1U);
  clock->advance(1.5);
  EXPECT_THAT(timed.told, IsEmpty());
  clock->advance(0.5);
  EXPECT_THAT(timed.told, ElementsAre("second"));
}

TEST_F(MIDISequenceBaseTest, SharesOneTimeOut) {
  Timed other;
  timed.markTimeOutWithDescription("first");
  other.markTimeOutWithDescription("other");
  EXPECT_EQ(clock->running(), 1U);
  clock->advance(5.0);
  EXPECT_THAT(timed.told, IsEmpty());
  EXPECT_THAT(other.told, ElementsAre("other"));
}

TEST_F(MIDISequenceBaseTest, CancelsTheTimeOutOfAnother) {
  Timed other;
  timed.markTimeOut();
  other.dispose();
  EXPECT_EQ(clock->running(), 0U);
}

TEST_F(MIDISequenceBaseTest, CancelsNothingWhenNothingRuns) {
  MIDISequenceBase::cleanTimeOutTimer();
  MIDISequenceBase::cleanTimeOutTimer();
  EXPECT_EQ(clock->running(), 0U);
}

TEST_F(MIDISequenceBaseTest, TakesItsTimeOutAlong) {
  {
    Timed passing;
    passing.markTimeOut();
  }
  EXPECT_EQ(clock->running(), 0U);
}

TEST_F(MIDISequenceBaseTest, LeavesTheTimeOutOfAnotherWhenDropped) {
  {
    Timed passing;
    passing.markTimeOut();
    timed.markTimeOutWithDescription("mine");
  }
  clock->advance(2.0);
  EXPECT_THAT(timed.told, ElementsAre("mine"));
}

TEST_F(MIDISequenceBaseTest, DoesNothingByItself) {
  MIDINOPSequence nop;
  nop.startSequence();
  nop.receivedMidi(nullptr, 0);
  nop.sequenceTimeOut("any");
  nop.dispose();
  EXPECT_TRUE(nop.didCompleted());
  EXPECT_EQ(clock->running(), 0U);
  EXPECT_FALSE(nop.onCompleted());
}

TEST_F(MIDISequenceBaseTest, HasAName) {
  EXPECT_EQ(timed.SEQ_Name(), "");
  timed.setSEQ_Name("name");
  EXPECT_EQ(timed.SEQ_Name(), "name");
}

TEST_F(MIDISequenceBaseTest, HasCompletedOnceItTimedOut) {
  Stepped stepped;
  int completions = 0;
  stepped.setOnCompleted([&completions] { ++completions; });
  EXPECT_TRUE(stepped.didCompleted());
  stepped.startSequence();
  EXPECT_FALSE(stepped.didCompleted());
  clock->advance(2.0);
  EXPECT_TRUE(stepped.didCompleted());
  EXPECT_EQ(completions, 0);
}

TEST_F(MIDISequenceBaseTest, HasCompletedOnceDisposedOf) {
  Stepped stepped;
  stepped.startSequence();
  stepped.dispose();
  EXPECT_TRUE(stepped.didCompleted());
  EXPECT_EQ(clock->running(), 0U);
}

}  // namespace
