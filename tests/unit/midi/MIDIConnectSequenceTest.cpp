// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIConnectSequence.h"

#include <gmock/gmock.h>

#include <map>

#include "LinkTest.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::Each;
using testing::ElementsAre;

/// One step: the request that was sent for it and a good reply.
struct Step {
  std::int64_t number;
  Bytes request;
  Bytes reply;
};

Bytes cardReply(std::uint8_t present) {
  Bytes bytes = {0xF0, 0x52, 0x00, 0x00, 0x67, 0x00, present, 0x05, 0x0C, 0x21};
  bytes.insert(bytes.end(), {0x0A, 0x5B, 0x2F, 0, 0, 0, 0, 0, 0, 0});
  bytes.insert(bytes.end(), {0, 0, 0, 0, 0x04, 0, 0, 0, 0, 0});
  bytes.push_back(0xF7);
  return bytes;
}

const std::vector<Step>& steps() {
  static const std::vector<Step> kSteps = {
      {2,
       {0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7},
       {0xF0, 0x7E, 0x00, 0x06, 0x02, 0x11, 0x12, 0x13, 0x14, 0x21, 0x22, 0x23, 0x24, 0x31, 0xF7}},
      {4, {0xF0, 0x52, 0x00, 0x00, 0x52, 0xF7}, {0xF0, 0x52, 0x00, 0x00, 0x00, 0x15, 0xF7}},
      {6,
       {0xF0, 0x52, 0x00, 0x00, 0x10, 0x01, 0xF7},
       {0xF0, 0x52, 0x00, 0x00, 0x11, 0x01, 'x', '1', '0', '2', 0xF7}},
      {8, {0xF0, 0x52, 0x00, 0x00, 0x67, 0x01, 0xF7}, cardReply(1)},
      {10,
       {0xF0, 0x52, 0x00, 0x00, 0x46, 0x01, 0xF7},
       {0xF0, 0x52, 0x00, 0x00, 0x45, 0x01, 0x02, 0xF7}},
      {12,
       {0xF0, 0x52, 0x00, 0x00, 0x46, 0x02, 0xF7},
       {0xF0, 0x52, 0x00, 0x00, 0x45, 0x02, 0x03, 0xF7}},
      {14,
       {0xF0, 0x52, 0x00, 0x00, 0x31, 0x00, 0x14, 0x18, 2, 29, 23, 59, 58, 0xF7},
       {0xF0, 0x52, 0x00, 0x00, 0x00, 0x0F, 0xF7}},
  };
  return kSteps;
}

class MIDIConnectSequenceTest : public LinkTest {
 protected:
  void start() { sequences.startConnectSeq(complete); }
  /// Answers well until `step` is waited in.
  void startUpTo(std::int64_t step) {
    start();
    for (const Step& each : steps()) {
      if (each.number == step) return;
      receive(each.reply);
    }
  }
  [[nodiscard]] static TARNDeviceInfo& info() { return *MIDISequenceManager::getDeviceInfo(); }
};

MIXDECK_BOTH_KINDS(MIDIConnectSequenceTest);

TEST_P(MIDIConnectSequenceTest, GoesThroughAllSteps) {
  start();
  for (const Step& step : steps()) {
    EXPECT_EQ(sequences.connectStep(), step.number);
    EXPECT_EQ(lastSent(), step.request);
    EXPECT_EQ(completions, 0);
    receive(step.reply);
  }
  EXPECT_EQ(sent().size(), steps().size());
  EXPECT_EQ(sequences.connectStep(), 0);
  EXPECT_FALSE(sequences.isSeqRunning());
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(clock->running(), 0U);
}

TEST_P(MIDIConnectSequenceTest, FillsTheRecord) {
  startUpTo(4);
  EXPECT_THAT(info()._device_id, ElementsAre(0x11, 0x12, 0x13, 0x14));
  EXPECT_THAT(info()._version, ElementsAre(0x21, 0x22, 0x23, 0x24));
  for (std::size_t i = 1; i < steps().size(); ++i) receive(steps()[i].reply);
  EXPECT_THAT(info()._version, ElementsAre('x', '1', '0', '2'));
  EXPECT_EQ(info()._sdExist, 1);
  EXPECT_THAT(info()._sdRemaining, ElementsAre(5, 12, 33));
  EXPECT_THAT(info()._sdUsedBuff, ElementsAre(0x0A, 0x5B, 0x2F, 0, 0, 0, 0, 0, 0, 0));
  EXPECT_THAT(info()._sdMaxBuff, ElementsAre(0, 0, 0, 0, 4, 0, 0, 0, 0, 0));
  EXPECT_EQ(info()._sdUsedSize, "0.75 MB");
  EXPECT_EQ(info()._sdMaxSize, "1.00 GB");
  EXPECT_EQ(info()._batteryType, 2);
  EXPECT_EQ(info()._autoPowOffType, 3);
}

TEST_P(MIDIConnectSequenceTest, IgnoresEveryReplyButItsOwn) {
  for (const Step& step : steps()) {
    sequences.forceStopSeq();
    startUpTo(step.number);
    const std::size_t requests = sent().size();
    for (const Step& other : steps()) {
      if (other.number != step.number) receive(other.reply);
    }
    EXPECT_EQ(sequences.connectStep(), step.number);
    EXPECT_EQ(sent().size(), requests) << step.number;
  }
}

TEST_P(MIDIConnectSequenceTest, ChecksTheLengthOfEachReply) {
  for (const Step& step : steps()) {
    sequences.forceStopSeq();
    startUpTo(step.number);
    Bytes longer = step.reply;
    longer.insert(longer.end() - 1, 0x00);
    Bytes shorter = step.reply;
    shorter.erase(shorter.end() - 2);
    receive(longer);
    receive(shorter);
    EXPECT_EQ(sequences.connectStep(), step.number);
  }
}

TEST_P(MIDIConnectSequenceTest, ChecksBytesFourAndFiveOnly) {
  for (const Step& step : steps()) {
    for (const std::size_t position : {1U, 2U, 3U, 4U, 5U}) {
      sequences.forceStopSeq();
      startUpTo(step.number);
      Bytes changed = step.reply;
      changed[position] ^= 0x40;
      receive(changed);
      const bool isChecked = position == 4 || (position == 5 && step.number != 2);
      EXPECT_EQ(sequences.connectStep() == step.number, isChecked)
          << "step " << step.number << ", byte " << position;
    }
  }
}

TEST_P(MIDIConnectSequenceTest, TimesOutInTheFirstTwoSteps) {
  for (const std::int64_t step : {2, 4}) {
    sequences.forceStopSeq();
    startUpTo(step);
    clock->advance(1.999);
    EXPECT_EQ(sequences.connectStep(), step);
    clock->advance(0.001);
    EXPECT_FALSE(sequences.isSeqRunning()) << step;
  }
  EXPECT_EQ(completions, 0);
}

TEST_P(MIDIConnectSequenceTest, GivesTheSecondRequestItsOwnTwoSeconds) {
  start();
  clock->advance(1.9);
  receive(steps()[0].reply);
  clock->advance(1.9);
  EXPECT_EQ(sequences.connectStep(), 4);
  clock->advance(0.1);
  EXPECT_EQ(sequences.connectStep(), 0);
}

TEST_P(MIDIConnectSequenceTest, WaitsForEverInTheLaterSteps) {
  for (const std::int64_t step : {6, 8, 10, 12, 14}) {
    sequences.forceStopSeq();
    startUpTo(step);
    EXPECT_EQ(clock->running(), 0U);
    clock->advance(100000.0);
    EXPECT_EQ(sequences.connectStep(), step);
  }
}

TEST_P(MIDIConnectSequenceTest, IgnoresAReplyThatComesTooLate) {
  start();
  clock->advance(2.0);
  receive(steps()[0].reply);
  EXPECT_THAT(info()._device_id, Each(0));
  EXPECT_EQ(sent().size(), 1U);
}

TEST_P(MIDIConnectSequenceTest, IgnoresAnIdentityOfFifteenBytes) {
  start();
  Bytes identity = steps()[0].reply;
  identity.insert(identity.end() - 1, 0x00);
  receive(identity);
  EXPECT_EQ(sequences.connectStep(), 2);
  clock->advance(2.0);
  EXPECT_FALSE(sequences.isSeqRunning());
}

TEST_P(MIDIConnectSequenceTest, SendsTheLocalDateAndTime) {
  clock->setDate({1999, 12, 31, 0, 1, 9});
  startUpTo(14);
  EXPECT_EQ(lastSent(), (Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x00, 19, 99, 12, 31, 0, 1, 9, 0xF7}));
}

TEST_P(MIDIConnectSequenceTest, KeepsTheLaterBytesOfACardThatIsGone) {
  info()._sdUsedBuff.fill(7);
  info()._sdMaxBuff.fill(9);
  info()._sdRemaining.fill(3);
  startUpTo(8);
  receive(cardReply(0));
  EXPECT_EQ(info()._sdExist, 0);
  EXPECT_THAT(info()._sdRemaining, Each(0));
  EXPECT_THAT(info()._sdUsedBuff, ElementsAre(0, 0, 0, 7, 7, 7, 7, 7, 7, 7));
  EXPECT_THAT(info()._sdMaxBuff, ElementsAre(0, 0, 0, 9, 9, 9, 9, 9, 9, 9));
  EXPECT_EQ(info()._sdUsedSize, "-- GB");
  EXPECT_EQ(info()._sdMaxSize, "-- GB");
  EXPECT_EQ(sequences.connectStep(), 10);
}

TEST_P(MIDIConnectSequenceTest, TakesAnyOtherNumberForACard) {
  startUpTo(8);
  receive(cardReply(0x7F));
  EXPECT_EQ(info()._sdExist, 0x7F);
  EXPECT_EQ(info()._sdMaxSize, "1.00 GB");
}

TEST_P(MIDIConnectSequenceTest, LetsASettingWaitAndStartsItWithTheLastReply) {
  startUpTo(14);
  sequences.startChangeBatteryTypeSeq(1, {});
  EXPECT_EQ(lastSent(), steps().back().request);
  receive(steps().back().reply);
  EXPECT_EQ(completions, 1);
  EXPECT_EQ(lastSent(), (Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 0x01, 0xF7}));
}

TEST_P(MIDIConnectSequenceTest, LetsASettingWaitAfterATimeOut) {
  start();
  sequences.startChangeBatteryTypeSeq(1, {});
  clock->advance(2.0);
  EXPECT_EQ(sent().size(), 1U);
  receive({0xF0, 0x01, 0xF7});
  EXPECT_EQ(lastSent(), (Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 0x01, 0xF7}));
}

TEST_P(MIDIConnectSequenceTest, QueuesASecondHandshake) {
  startUpTo(6);
  start();
  EXPECT_EQ(sequences.connectStep(), 6);
  for (std::size_t i = 2; i < steps().size(); ++i) receive(steps()[i].reply);
  EXPECT_EQ(sequences.connectStep(), 2);
  EXPECT_EQ(lastSent(), steps().front().request);
}

/// Keeps what the handshake says it waited for.
class Described : public MIDIConnectSequence {
 public:
  Described() { setDeviceInfo(MIDISequenceManager::getDeviceInfo()); }
  void sequenceTimeOut(const std::string& description) override { told = description; }
  std::string told;
};

TEST_P(MIDIConnectSequenceTest, NamesWhatItWaitsFor) {
  Described handshake;
  handshake.startSequence();
  clock->advance(2.0);
  EXPECT_EQ(handshake.told, "CONNECT_SEQUENCE_DEVICE_ID_REQ");
  handshake.receivedMidi(steps()[0].reply.data(), 14);
  clock->advance(2.0);
  EXPECT_EQ(handshake.told, "CONNECT_SEQUENCE_PC_APP_START_REQ");
}

TEST_P(MIDIConnectSequenceTest, EndsWhenDisposedOf) {
  for (const Step& step : steps()) {
    startUpTo(step.number);
    sequences.forceStopSeq();
    EXPECT_FALSE(sequences.isSeqRunning());
    EXPECT_EQ(clock->running(), 0U) << step.number;
  }
}

}  // namespace
