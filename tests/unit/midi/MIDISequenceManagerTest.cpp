// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDISequenceManager.h"

#include <gmock/gmock.h>

#include "LinkTest.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

const Bytes kBatteryAcknowledged = {0xF0, 0x52, 0x00, 0x00, 0x00, 0x10, 0xF7};
const Bytes kPowerAcknowledged = {0xF0, 0x52, 0x00, 0x00, 0x00, 0x11, 0xF7};
const Bytes kAnything = {0xF0, 0x01, 0x02, 0xF7};

/// Writes down what happens to it.
class Spy : public MIDISequenceBase {
 public:
  Spy(std::string name, std::vector<std::string>& events, bool completed)
      : isCompleted(completed), _name(std::move(name)), _events(events) {}
  void startSequence() override { _events.push_back(_name + " started"); }
  void receivedMidi(const std::uint8_t* /*bytes*/, std::int32_t /*length*/) override {
    _events.push_back(_name + " received");
  }
  void dispose() override { _events.push_back(_name + " disposed"); }
  [[nodiscard]] bool didCompleted() const override { return isCompleted; }

  bool isCompleted;

 private:
  std::string _name;
  std::vector<std::string>& _events;
};

class MIDISequenceManagerTest : public LinkTest {
 protected:
  std::shared_ptr<Spy> spy(const std::string& name, bool completed = false) {
    return std::make_shared<Spy>(name, events, completed);
  }

  std::vector<std::string> events;
};

MIXDECK_BOTH_KINDS(MIDISequenceManagerTest);

TEST_P(MIDISequenceManagerTest, IsTheOneOfTheProcess) {
  EXPECT_EQ(&MIDISequenceManager::get(), &sequences);
  EXPECT_NE(MIDISequenceManager::getDeviceInfo(), nullptr);
}

TEST_P(MIDISequenceManagerTest, HasAnEmptyRecordAtFirst) {
  const auto info = MIDISequenceManager::getDeviceInfo();
  EXPECT_THAT(info->_device_id, testing::Each(0));
  EXPECT_THAT(info->_version, testing::Each(0));
  EXPECT_EQ(info->_sdExist, 0);
  EXPECT_EQ(info->_sdUsedSize, "");
  EXPECT_EQ(info->_sdMaxSize, "");
}

TEST_P(MIDISequenceManagerTest, IsIdleAtFirst) {
  EXPECT_FALSE(sequences.isSeqRunning());
  receive(kAnything);
  EXPECT_THAT(sent(), IsEmpty());
  EXPECT_FALSE(sequences.isSeqRunning());
}

TEST_P(MIDISequenceManagerTest, StartsTheFirstRequestAtOnce) {
  sequences.startChangeBatteryTypeSeq(3, complete);
  EXPECT_TRUE(sequences.isSeqRunning());
  EXPECT_THAT(sent(), ElementsAre(Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 0x03, 0xF7}));
}

TEST_P(MIDISequenceManagerTest, RunsOneAtATimeInOrder) {
  sequences.startChangeBatteryTypeSeq(1, complete);
  sequences.startChangeAutoPowOffSeq(2, complete);
  sequences.startChangeBatteryTypeSeq(3, complete);
  EXPECT_EQ(sent().size(), 1U);
  receive(kBatteryAcknowledged);
  EXPECT_EQ(sent().size(), 2U);
  EXPECT_EQ(completions, 1);
  receive(kPowerAcknowledged);
  receive(kBatteryAcknowledged);
  EXPECT_THAT(sent(), ElementsAre(Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 0x01, 0xF7},
                                  Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x02, 0x02, 0xF7},
                                  Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 0x03, 0xF7}));
  EXPECT_EQ(completions, 3);
  EXPECT_FALSE(sequences.isSeqRunning());
}

TEST_P(MIDISequenceManagerTest, StartsTheNextOfATimedOutOneWithTheNextMessage) {
  sequences.startChangeBatteryTypeSeq(1, complete);
  sequences.startChangeAutoPowOffSeq(2, complete);
  clock->advance(2.0);
  EXPECT_FALSE(sequences.isSeqRunning());
  EXPECT_EQ(sent().size(), 1U);
  clock->advance(60.0);
  EXPECT_EQ(sent().size(), 1U);
  receive(kAnything);
  EXPECT_EQ(sent().size(), 2U);
  EXPECT_EQ(completions, 1) << "the message found the timed out sequence completed";
}

TEST_P(MIDISequenceManagerTest, StartsTheNextOfATimedOutOneWithTheNextRequest) {
  sequences.startChangeBatteryTypeSeq(1, complete);
  sequences.startChangeAutoPowOffSeq(2, complete);
  clock->advance(2.0);
  sequences.startChangeBatteryTypeSeq(3, complete);
  EXPECT_EQ(lastSent(), (Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x02, 0x02, 0xF7}));
  EXPECT_EQ(completions, 0);
}

TEST_P(MIDISequenceManagerTest, ChecksTheQueueAfterAnIncompleteMessageToo) {
  sequences.startChangeBatteryTypeSeq(1, complete);
  sequences.startChangeAutoPowOffSeq(2, complete);
  clock->advance(2.0);
  hasEvents() ? receiveWords({0x30110100, 0}) : receivePacket({0xF0, 0x01});
  EXPECT_EQ(sent().size(), 2U);
  EXPECT_EQ(completions, 0);
}

TEST_P(MIDISequenceManagerTest, KeepsWaitingAfterAnUnknownMessage) {
  sequences.startChangeBatteryTypeSeq(1, complete);
  receive(kAnything);
  receive(kPowerAcknowledged);
  EXPECT_TRUE(sequences.isSeqRunning());
  EXPECT_EQ(completions, 0);
  clock->advance(2.0);
  EXPECT_FALSE(sequences.isSeqRunning());
}

TEST_P(MIDISequenceManagerTest, PutsANewSequenceFirstAndTheInterruptedOneBehindIt) {
  const auto first = spy("first");
  const auto second = spy("second");
  sequences.switchToNewSeq(first);
  EXPECT_THAT(events, IsEmpty());
  EXPECT_FALSE(sequences.isSeqRunning());
  sequences.checkAndRunQueue();
  sequences.switchToNewSeq(second);
  EXPECT_FALSE(sequences.isSeqRunning());
  sequences.checkAndRunQueue();
  second->isCompleted = true;
  sequences.checkAndRunQueue();
  EXPECT_THAT(events, ElementsAre("first started", "second started", "first started"));
}

TEST_P(MIDISequenceManagerTest, ForgetsACompletedSequenceThatIsSwitchedAway) {
  const auto first = spy("first");
  sequences.switchToNewSeq(first);
  sequences.checkAndRunQueue();
  first->isCompleted = true;
  const auto second = spy("second", true);
  sequences.switchToNewSeq(second);
  sequences.checkAndRunQueue();
  sequences.checkAndRunQueue();
  EXPECT_THAT(events, ElementsAre("first started", "second started", "second disposed"));
}

TEST_P(MIDISequenceManagerTest, StopsEverythingByForce) {
  const auto running = spy("running");
  sequences.switchToNewSeq(running);
  sequences.checkAndRunQueue();
  sequences.switchToNewSeq(spy("waiting"));
  sequences.checkAndRunQueue();
  events.clear();
  sequences.forceStopSeq();
  EXPECT_THAT(events, ElementsAre("waiting disposed", "running disposed"));
  EXPECT_FALSE(sequences.isSeqRunning());
  sequences.checkAndRunQueue();
  EXPECT_EQ(events.size(), 2U);
}

TEST_P(MIDISequenceManagerTest, DoesNotDisposeOfACompletedOneThatWaits) {
  sequences.switchToNewSeq(spy("waiting", true));
  sequences.switchToNewSeq(spy("running"));
  sequences.checkAndRunQueue();
  events.clear();
  sequences.forceStopSeq();
  EXPECT_THAT(events, ElementsAre("running disposed"));
}

TEST_P(MIDISequenceManagerTest, LeavesTheQueueWhenIdleAndStoppedByForce) {
  sequences.switchToNewSeq(spy("waiting"));
  sequences.forceStopSeq();
  EXPECT_THAT(events, IsEmpty());
  sequences.checkAndRunQueue();
  EXPECT_THAT(events, ElementsAre("waiting started"));
}

TEST_P(MIDISequenceManagerTest, CallsTheCompletionAfterEveryMessageThatFindsItCompleted) {
  const auto first = spy("first");
  first->setOnCompleted(complete);
  sequences.switchToNewSeq(first);
  sequences.checkAndRunQueue();
  receive(kAnything);
  EXPECT_EQ(completions, 0);
  first->isCompleted = true;
  receive(kAnything);
  EXPECT_EQ(completions, 1);
  EXPECT_THAT(events,
              ElementsAre("first started", "first received", "first received", "first disposed"));
}

TEST_P(MIDISequenceManagerTest, SurvivesACompletionThatStartsTheNext) {
  sequences.startChangeBatteryTypeSeq(1,
                                      [this] { sequences.startChangeAutoPowOffSeq(2, complete); });
  receive(kBatteryAcknowledged);
  EXPECT_EQ(sent().size(), 2U);
  receive(kPowerAcknowledged);
  EXPECT_EQ(completions, 1);
}

TEST_P(MIDISequenceManagerTest, OnlyKeepsTheResponse) {
  bool isCalled = false;
  sequences.send(kAnything.data(), 4, [&isCalled](const std::uint8_t*, std::int32_t) {
    isCalled = true;
    return true;
  });
  receive(kAnything);
  EXPECT_THAT(sent(), IsEmpty());
  EXPECT_FALSE(isCalled);
}

TEST_P(MIDISequenceManagerTest, ShowsMessagesToACommandUntilItTakesOne) {
  int calls = 0;
  sequences.exeCommand(kAnything.data(), 4, [&calls](const std::uint8_t* bytes, std::int32_t n) {
    EXPECT_EQ(Bytes(bytes, bytes + n), (Bytes{0xF0, 0x01, 0x02}));
    return ++calls == 2;
  });
  EXPECT_THAT(sent(), ElementsAre(kAnything));
  for (int i = 0; i < 4; ++i) receive(kAnything);
  EXPECT_EQ(calls, 2);
}

TEST_P(MIDISequenceManagerTest, ShowsAMessageToACommandBeforeTheSequence) {
  const auto first = spy("first");
  sequences.switchToNewSeq(first);
  sequences.checkAndRunQueue();
  events.clear();
  sequences.exeCommand(kAnything.data(), 4, [this](const std::uint8_t*, std::int32_t) {
    events.emplace_back("command");
    return true;
  });
  receive(kAnything);
  EXPECT_THAT(events, ElementsAre("command", "first received"));
}

TEST(MIDISequenceManager, HasNoRecordBeforeItIsThere) {
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo(), nullptr);
}

}  // namespace
