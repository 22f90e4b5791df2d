// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/RecorderWords.h"

#include <gmock/gmock.h>

#include "support/SteppedMIDIClock.h"

namespace {

using testing::ElementsAre;

class RecorderWordsTest : public testing::Test {
 protected:
  bool apply(std::string_view word) { return RecorderWords::apply(word, recorder); }

  SteppedMIDIClock clock;
  SimulatedRecorder recorder{clock};
};

TEST_F(RecorderWordsTest, TellWhatTheRecorderIs) {
  EXPECT_TRUE(apply("firmware=2.37"));
  EXPECT_TRUE(apply("battery=2"));
  EXPECT_TRUE(apply("auto-power-off=127"));
  EXPECT_TRUE(apply("remaining=12:34:56"));
  EXPECT_TRUE(apply("no-card"));
  const RecorderState& state = recorder.state();
  EXPECT_THAT(state.firmware, ElementsAre('0', '2', '3', '7'));
  EXPECT_EQ(state.batteryType, 2);
  EXPECT_EQ(state.autoPowerOff, 127);
  EXPECT_THAT(state.remaining, ElementsAre(12, 34, 56));
  EXPECT_FALSE(state.hasCard);
  EXPECT_TRUE(apply("card=781706/1073741824"));
  EXPECT_TRUE(state.hasCard);
  EXPECT_EQ(state.usedBytes, 781'706U);
  EXPECT_EQ(state.capacityBytes, 1'073'741'824U);
}

TEST_F(RecorderWordsTest, TellHowItGoesWrong) {
  int sent = 0;
  recorder.plugIn({[&](const auto& /*bytes*/) { ++sent; }, {}});
  const SimulatedRecorder::Bytes identity = {0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7};
  EXPECT_TRUE(apply("silent@identity"));
  recorder.receive(identity);
  clock.advance(5);
  EXPECT_EQ(sent, 0);
  EXPECT_TRUE(apply("split@identity"));
  recorder.receive(identity);
  clock.advance(5);
  EXPECT_EQ(sent, 15);
  EXPECT_TRUE(apply("behave"));
  recorder.receive(identity);
  clock.advance(5);
  EXPECT_EQ(sent, 16);
}

TEST_F(RecorderWordsTest, EveryNameIsKnown) {
  for (const char* name : {"identity", "start", "version", "card", "battery", "auto-power-off",
                           "date-time", "set-battery", "set-auto-power-off"}) {
    const auto request = RecorderWords::request(name);
    ASSERT_TRUE(request) << name;
    EXPECT_EQ(RecorderWords::nameOf(*request), name);
  }
  for (const char* name : {"silent", "slow", "wrong-length", "long-identity", "garbage", "split",
                           "merged", "interleaved", "disappear"}) {
    EXPECT_TRUE(RecorderWords::fault(name)) << name;
  }
}

TEST_F(RecorderWordsTest, AWordThatMeansNothingChangesNothing) {
  const RecorderState before = recorder.state();
  for (const char* word : {"",
                           "=",
                           "@",
                           "nonsense",
                           "firmware=",
                           "firmware=12",
                           "firmware=1.2a",
                           "battery=128",
                           "battery=-1",
                           "battery=1 ",
                           "battery",
                           "auto-power-off=",
                           "remaining=1:2",
                           "remaining=1:2:3:4",
                           "remaining=1:2:300",
                           "card=12",
                           "card=1/x",
                           "card=/",
                           "silent@",
                           "silent@nothing",
                           "loud@card",
                           "behave=1"}) {
    EXPECT_FALSE(apply(word)) << word;
  }
  EXPECT_EQ(recorder.state().firmware, before.firmware);
  EXPECT_EQ(recorder.state().remaining, before.remaining);
  EXPECT_EQ(recorder.state().batteryType, before.batteryType);
  EXPECT_EQ(recorder.state().capacityBytes, before.capacityBytes);
}

}  // namespace
