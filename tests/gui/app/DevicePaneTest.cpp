// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DevicePane.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <QTest>

#include "midi/MIDIManager.h"
#include "midi/MIDISequenceManager.h"
#include "midi/simulator/SimulatedLink.h"
#include "support/LogLines.h"
#include "support/PacketKinds.h"
#include "support/SteppedMIDIClock.h"

namespace {

/// The pane without a window, its link open, and a recorder to plug in.
class DevicePaneTest : public testing::TestWithParam<MIDIPacketKind> {
 protected:
  DevicePaneTest() { pane.link().open(); }

  void plugIn() {
    simulated.plugIn();
    clock->advance(1.5);
  }
  /// Sets the item and tells it as the pop-up does after a choice.
  void choose(QComboBox& popup, int item) {
    popup.setCurrentIndex(item);
    emit popup.activated(item);
  }

  LogLines log;
  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  SimulatedLink simulated{GetParam(), clock};
  bool isInstalled = (simulated.install(), true);
  MIDIManager manager;
  MIDISequenceManager sequences;
  SimulatedRecorder& recorder = simulated.recorder();
  DeviceView view;
  DevicePane pane{view};
};

MIXDECK_BOTH_KINDS(DevicePaneTest);

TEST_P(DevicePaneTest, ShowsTheRecorderAndThatItIsGone) {
  EXPECT_TRUE(view.dotConnected->isHidden());
  plugIn();
  EXPECT_FALSE(view.dotConnected->isHidden());
  EXPECT_EQ(view.lblConnect->text(), "Connected");
  EXPECT_EQ(view.lblVersion->text(), "Ver. 1.02");
  EXPECT_EQ(view.popupBattery->currentText(), "Alkaline");
  simulated.pullOut();
  EXPECT_TRUE(view.dotConnected->isHidden());
  EXPECT_EQ(view.lblConnect->text(), "Disconnected");
  EXPECT_EQ(view.popupBattery->currentIndex(), -1);
}

TEST_P(DevicePaneTest, AValueIsInTheRecordBeforeItIsAcknowledged) {
  plugIn();
  choose(*view.popupBattery, 2);
  EXPECT_TRUE(sequences.isSeqRunning()) << "not acknowledged yet";
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_batteryType, 2);
  const std::size_t sent = recorder.received().size();
  choose(*view.popupBattery, 2);
  choose(*view.popupAutoPow, 3);
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_autoPowOffType, 0);
  clock->advance(0.5);
  EXPECT_EQ(recorder.received().size(), sent + 1) << "the same value is not sent again";
  EXPECT_EQ(recorder.state().batteryType, 2);
  EXPECT_EQ(recorder.state().autoPowerOff, 0);
}

TEST_P(DevicePaneTest, AChangeThatIsNotAcknowledgedIsNotTakenBack) {
  recorder.misbehave(RecorderRequest::SetBattery, RecorderFault::Silent);
  plugIn();
  choose(*view.popupBattery, 2);
  clock->advance(3.0);
  EXPECT_FALSE(sequences.isSeqRunning());
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_batteryType, 2);
  EXPECT_EQ(view.popupBattery->currentIndex(), 2);
}

TEST_P(DevicePaneTest, AnAnswerAfterTheHandshakeTimedOutShowsNoEmptyRecord) {
  recorder.misbehave(RecorderRequest::Identity, RecorderFault::Slow);
  plugIn();
  clock->advance(10.0);
  recorder.reportCard();
  clock->advance(0.5);
  EXPECT_EQ(view.lblConnect->text(), "");
  EXPECT_EQ(view.lblVersion->text(), "");
}

TEST_P(DevicePaneTest, CoversTellThatARecorderIsMissing) {
  const QSignalSpy missing(&pane, &DevicePane::recorderMissing);
  for (QPushButton* const cover : {view.listBatteryCover, view.listAutoPowOffCover}) {
    QTest::mouseClick(cover, Qt::LeftButton);
  }
  EXPECT_EQ(missing.count(), 2);
}

}  // namespace
