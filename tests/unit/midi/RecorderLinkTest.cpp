// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/RecorderLink.h"

#include <gmock/gmock.h>

#include "LinkBench.h"

namespace {

using testing::ElementsAre;

class RecorderLinkTest : public testing::TestWithParam<MIDIPacketKind> {
 protected:
  RecorderLinkTest() { open(); }

  void open() {
    way = std::make_unique<RecorderLink>(RecorderLink::Listener{
        [this] { told.push_back("connected"); }, [this] { told.push_back("record"); },
        [this] { told.push_back("lost"); }});
    way->open();
  }

  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  SimulatedLink link{GetParam(), clock};
  InstalledPlatform platform{link.system(), clock};
  MIDIManager manager;
  MIDISequenceManager sequences;
  SimulatedRecorder& recorder = link.recorder();
  std::vector<std::string> told;
  std::unique_ptr<RecorderLink> way;
};
MIXDECK_BOTH_KINDS(RecorderLinkTest);

TEST_P(RecorderLinkTest, TellsConnectedRecordAndLost) {
  link.plugIn();
  clock->advance(1.0);
  EXPECT_THAT(told, ElementsAre("connected"));
  EXPECT_TRUE(way->isAsking());
  EXPECT_EQ(way->step(), 2);
  clock->advance(0.5);
  EXPECT_THAT(told, ElementsAre("connected", "record"));
  EXPECT_TRUE(way->isReady());
  EXPECT_EQ(RecorderLink::record()->_sdMaxSize, "29.7 GB");
  recorder.reportCard();
  clock->advance(0.1);
  EXPECT_THAT(told, ElementsAre("connected", "record", "record"));
  link.pullOut();
  EXPECT_EQ(told.back(), "lost");
  EXPECT_FALSE(way->isReady());
}

TEST_P(RecorderLinkTest, AHandshakeThatTimedOutHasNoRecordWhateverComesLater) {
  recorder.misbehave(RecorderRequest::Start, RecorderFault::Slow);
  link.plugIn();
  clock->advance(3.0);
  EXPECT_TRUE(way->isAsking());
  clock->advance(10.0);
  EXPECT_FALSE(way->isAsking());
  EXPECT_EQ(way->step(), 4);
  recorder.reportCard();
  clock->advance(0.1);
  EXPECT_THAT(told, ElementsAre("connected"));
}

TEST_P(RecorderLinkTest, KnowsWhereAHandshakeWaitedAlsoWhenTheRecorderHasGone) {
  recorder.misbehave(RecorderRequest::Battery, RecorderFault::Disappear);
  link.plugIn();
  clock->advance(1.5);
  EXPECT_EQ(told.back(), "lost");
  EXPECT_EQ(way->step(), 10);
  EXPECT_FALSE(sequences.isSeqRunning());
}

TEST_P(RecorderLinkTest, TellsAnAnswerFromATimeOut) {
  link.plugIn();
  clock->advance(1.5);
  std::vector<bool> answered;
  const auto note = [&] { answered.push_back(way->isAnswered()); };
  sequences.startChangeBatteryTypeSeq(1, note);
  clock->advance(0.5);
  EXPECT_THAT(answered, ElementsAre(true));
  recorder.misbehave(RecorderRequest::SetBattery, RecorderFault::Slow);
  sequences.startChangeBatteryTypeSeq(2, note);
  clock->advance(4.0);
  EXPECT_THAT(answered, ElementsAre(true, false)) << "the late acknowledgement ends nothing";
}

TEST_P(RecorderLinkTest, GoesOnWithARecorderThatIsTakenAwayWhenItIsTold) {
  way = std::make_unique<RecorderLink>(
      RecorderLink::Listener{[this] { link.pullOut(); }, {}, [this] { told.push_back("lost"); }});
  way->open();
  link.plugIn();
  clock->advance(1.5);
  EXPECT_THAT(told, ElementsAre("lost"));
  EXPECT_FALSE(sequences.isSeqRunning()) << "no handshake with nobody";
  EXPECT_THAT(recorder.received(), testing::IsEmpty());
}

TEST_P(RecorderLinkTest, TheSequencesOutliveIt) {
  link.plugIn();
  clock->advance(1.5);
  way.reset();
  EXPECT_EQ(manager.delegate(), nullptr);
  told.clear();
  const auto report = RecorderMessages::card(recorder.state());
  sequences.receivedMidi_iOS13({0, report}, true);
  EXPECT_THAT(told, testing::IsEmpty());
  open();
  link.pullOut();
  link.plugIn();
  clock->advance(1.5);
  EXPECT_THAT(told, ElementsAre("lost", "connected", "record"));
}

}  // namespace
