// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include "LinkTest.h"
#include "midi/MIDIRecvSDCardRemain.h"
#include "midi/MIDISettingSequence.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::Each;
using testing::ElementsAre;

struct Setting {
  std::uint8_t subCommand;
  std::uint8_t acknowledgement;
  void (MIDISequenceManager::*start)(std::int32_t, const MIDISequenceManager::Completion&);
};

const std::vector<Setting>& settings() {
  static const std::vector<Setting> kSettings = {
      {0x01, 0x10, &MIDISequenceManager::startChangeBatteryTypeSeq},
      {0x02, 0x11, &MIDISequenceManager::startChangeAutoPowOffSeq}};
  return kSettings;
}

Bytes acknowledged(std::uint8_t code) {
  return {0xF0, 0x52, 0x00, 0x00, 0x00, code, 0xF7};
}

Bytes cardReport(std::uint8_t present, std::size_t length = 30) {
  Bytes bytes = {0xF0, 0x52, 0x00, 0x00, 0x67, 0x00, present, 1, 2, 3};
  bytes.resize(length, 0x00);
  if (length > 28) bytes[24] = 0x04;
  bytes.push_back(0xF7);
  return bytes;
}

class SettingTest : public LinkTest {
 protected:
  void start(const Setting& setting, std::int32_t code) {
    (sequences.*setting.start)(code, complete);
  }
};
MIXDECK_BOTH_KINDS(SettingTest);

TEST_P(SettingTest, SendsTheLowByteOfTheCode) {
  for (const Setting& setting : settings()) {
    for (const std::int32_t code : {0, 3, 127, 0x103, -1}) {
      start(setting, code);
      EXPECT_EQ(lastSent(), (Bytes{0xF0, 0x52, 0x00, 0x00, 0x31, setting.subCommand,
                                   static_cast<std::uint8_t>(code), 0xF7}));
      receive(acknowledged(setting.acknowledgement));
    }
  }
}

TEST_P(SettingTest, EndsWithItsAcknowledgement) {
  for (const Setting& setting : settings()) {
    completions = 0;
    start(setting, 1);
    EXPECT_TRUE(sequences.isSeqRunning());
    receive(acknowledged(setting.acknowledgement));
    EXPECT_FALSE(sequences.isSeqRunning());
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(clock->running(), 0U);
  }
}

TEST_P(SettingTest, IgnoresEveryOtherMessage) {
  for (const Setting& setting : settings()) {
    sequences.forceStopSeq();
    start(setting, 1);
    for (int code = 0; code < 0x80; ++code) {
      if (code != setting.acknowledgement) receive(acknowledged(static_cast<std::uint8_t>(code)));
    }
    receive({0xF0, 0x52, 0x00, 0x00, 0x01, setting.acknowledgement, 0xF7});
    receive({0xF0, 0x52, 0x00, 0x00, 0x00, setting.acknowledgement, 0x00, 0xF7});
    receive({0xF0, 0x52, 0x00, 0x00, 0x00, 0xF7});
    EXPECT_TRUE(sequences.isSeqRunning());
    EXPECT_EQ(completions, 0);
  }
}

TEST_P(SettingTest, DoesNotLookAtTheMaker) {
  for (const Setting& setting : settings()) {
    start(setting, 1);
    receive({0xF0, 0x11, 0x22, 0x33, 0x00, setting.acknowledgement, 0xF7});
    EXPECT_FALSE(sequences.isSeqRunning());
  }
}

TEST_P(SettingTest, EndsInSilenceAfterTwoSeconds) {
  for (const Setting& setting : settings()) {
    start(setting, 1);
    clock->advance(1.999);
    EXPECT_TRUE(sequences.isSeqRunning());
    clock->advance(0.001);
    EXPECT_FALSE(sequences.isSeqRunning());
    EXPECT_EQ(completions, 0);
    sequences.checkAndRunQueue();
  }
}

TEST_P(SettingTest, LeavesTheRecordAlone) {
  for (const Setting& setting : settings()) {
    start(setting, 2);
    receive(acknowledged(setting.acknowledgement));
  }
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_batteryType, 0);
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_autoPowOffType, 0);
}

/// Keeps what a sequence says it waited for.
template <class Sequence>
class WithDescription : public Sequence {
 public:
  void sequenceTimeOut(const std::string& description) override { told = description; }
  std::string told;
};

TEST_P(SettingTest, NamesWhatItWaitsFor) {
  WithDescription<MIDIBatteryTypeSequence> battery;
  battery.startSequence();
  clock->advance(2.0);
  EXPECT_EQ(battery.told, "CONTROL_SEQUENCE_BT_CHG_REQ");
  WithDescription<MIDIAutoPowOffSequence> power;
  power.startSequence();
  clock->advance(2.0);
  EXPECT_EQ(power.told, "CONTROL_SEQUENCE_APO_CHG_REQ");
}

/// The listener after a handshake, which is taken for done here.
class StatusTest : public LinkTest {
 protected:
  StatusTest() {
    sequences.startConnectSeq(complete);
    sequences.forceStopSeq();
  }
  [[nodiscard]] static TARNDeviceInfo& info() { return *MIDISequenceManager::getDeviceInfo(); }
};
MIXDECK_BOTH_KINDS(StatusTest);

TEST_P(StatusTest, SendsNothingAndWaitsForNothing) {
  EXPECT_EQ(sent().size(), 1U);
  EXPECT_FALSE(sequences.isSeqRunning());
  EXPECT_EQ(clock->running(), 0U);
}

TEST_P(StatusTest, ReadsAReport) {
  receive(cardReport(1));
  EXPECT_EQ(info()._sdExist, 1);
  EXPECT_THAT(info()._sdRemaining, ElementsAre(1, 2, 3));
  EXPECT_EQ(info()._sdUsedSize, "0.00 MB");
  EXPECT_EQ(info()._sdMaxSize, "1.00 GB");
  EXPECT_EQ(completions, 1);
}

TEST_P(StatusTest, ReadsThatTheCardIsGone) {
  receive(cardReport(1));
  receive(cardReport(0));
  EXPECT_EQ(info()._sdUsedSize, "-- GB");
  EXPECT_EQ(info()._sdMaxSize, "-- GB");
  EXPECT_THAT(info()._sdRemaining, Each(0));
  EXPECT_EQ(completions, 2);
}

TEST_P(StatusTest, IgnoresOtherMessagesButCompletes) {
  receive(cardReport(1, 29));
  receive(cardReport(1, 31));
  Bytes other = cardReport(1);
  other[4] = 0x66;
  receive(other);
  other = cardReport(1);
  other[5] = 0x01;
  receive(other);
  EXPECT_EQ(info()._sdExist, 0);
  EXPECT_EQ(completions, 4);
}

TEST_P(StatusTest, LeavesAReportToTheSettingThatWaits) {
  sequences.startChangeBatteryTypeSeq(1, {});
  receive(cardReport(1));
  EXPECT_EQ(info()._sdExist, 0);
  EXPECT_TRUE(sequences.isSeqRunning());
  EXPECT_EQ(completions, 0);
  receive(acknowledged(0x10));
  receive(cardReport(1));
  EXPECT_EQ(info()._sdExist, 1);
}

TEST_P(StatusTest, ListensOnlyBetweenStartAndDispose) {
  MIDIRecvSDCardRemain listener;
  const auto record = std::make_shared<TARNDeviceInfo>();
  listener.setDeviceInfo(record);
  const Bytes report = cardReport(1);
  listener.receivedMidi(report.data(), 30);
  EXPECT_EQ(record->_sdExist, 0);
  listener.startSequence();
  listener.dispose();
  EXPECT_TRUE(listener.didCompleted());
  listener.receivedMidi(report.data(), 30);
  EXPECT_EQ(record->_sdExist, 0);
  listener.startSequence();
  EXPECT_TRUE(listener.didCompleted());
  listener.receivedMidi(report.data(), 30);
  EXPECT_EQ(record->_sdExist, 1);
}

}  // namespace
