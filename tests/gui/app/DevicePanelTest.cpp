// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QAbstractItemView>
#include <QTest>

#include "WindowFixture.h"
#include "dialogs/NodeviceVC.h"
#include "support/PacketKinds.h"

namespace {

using testing::ElementsAre;
using Bytes = SimulatedRecorder::Bytes;

class DevicePanel : public WindowFixture {
 protected:
  void expectDisconnected() const {
    EXPECT_EQ(view().device->lblConnect->text(), "Disconnected");
    EXPECT_EQ(view().device->lblVersion->text(), "");
    EXPECT_EQ(view().device->lblUsed->text(), "-- GB / -- GB Used");
    EXPECT_EQ(view().device->lblRemain->text(), "--:--:--");
    EXPECT_EQ(view().device->barUsed->value(), 0);
    for (const QComboBox* const popup :
         {view().device->popupBattery, view().device->popupAutoPow}) {
      EXPECT_FALSE(popup->isEnabled());
      EXPECT_EQ(popup->currentText(), "");
    }
    EXPECT_TRUE(view().device->listBatteryCover->isVisible());
    EXPECT_TRUE(view().device->listAutoPowOffCover->isVisible());
  }
  /// Chooses an item of a pop-up as a user does, with its menu open.
  void choose(QComboBox& popup, int item) {
    popup.showPopup();
    QAbstractItemView& menu = *popup.view();
    ASSERT_TRUE(menu.isVisible());
    menu.setCurrentIndex(menu.model()->index(item, 0));
    QTest::keyClick(&menu, Qt::Key_Return);
    midiClock->advance(0.5);
  }
  [[nodiscard]] std::size_t sent() { return link.recorder().received().size(); }
  [[nodiscard]] Bytes lastSent() { return link.recorder().received().back(); }
};

TEST_F(DevicePanel, IsDisconnectedAtFirst) {
  startOnTakes();
  expectDisconnected();
}

TEST_F(DevicePanel, FillsWhenTheRecorderIsPluggedIn) {
  startOnTakes();
  link.plugIn();
  midiClock->advance(0.9);
  expectDisconnected();
  midiClock->advance(0.6);
  EXPECT_EQ(view().device->lblConnect->text(), "Connected");
  EXPECT_EQ(view().device->lblVersion->text(), "Ver. 1.02");
  EXPECT_EQ(view().device->lblUsed->text(), "7.45 GB / 29.7 GB Used");
  EXPECT_EQ(view().device->lblRemain->text(), "05:12:33");
  EXPECT_EQ(view().device->barUsed->value(), 250);
  EXPECT_TRUE(view().device->popupBattery->isEnabled());
  EXPECT_TRUE(view().device->popupAutoPow->isEnabled());
  EXPECT_FALSE(view().device->listBatteryCover->isVisible());
  EXPECT_FALSE(view().device->listAutoPowOffCover->isVisible());
  EXPECT_EQ(view().device->popupBattery->currentIndex(), 0);
  EXPECT_EQ(view().device->popupAutoPow->currentIndex(), 0);
}

TEST_F(DevicePanel, FindsARecorderThatWasThereBefore) {
  link.plugIn();
  manager = std::make_unique<MIDIManager>();
  startOnTakes();
  midiClock->advance(1.5);
  EXPECT_EQ(view().device->lblConnect->text(), "Connected");
}

TEST_F(DevicePanel, ShowsARecorderWithoutACard) {
  link.recorder().state().hasCard = false;
  startOnTakes();
  plugIn();
  EXPECT_EQ(view().device->lblConnect->text(), "Connected");
  EXPECT_EQ(view().device->lblVersion->text(), "Ver. 1.02");
  EXPECT_EQ(view().device->lblUsed->text(), "-- GB / -- GB Used");
  EXPECT_EQ(view().device->lblRemain->text(), "--:--:--");
  EXPECT_EQ(view().device->barUsed->value(), 0);
}

TEST_F(DevicePanel, FollowsTheCardReports) {
  startOnTakes();
  plugIn();
  link.recorder().state().usedBytes = 31'900'000'000;
  link.recorder().reportCard();
  midiClock->advance(0.5);
  EXPECT_EQ(view().device->lblUsed->text(), "29.7 GB / 29.7 GB Used");
  EXPECT_EQ(view().device->barUsed->value(), 1000);
}

TEST_F(DevicePanel, ShowsEachSettingAtItsPlace) {
  link.recorder().state().batteryType = 2;
  link.recorder().state().autoPowerOff = 0;
  startOnTakes();
  plugIn();
  EXPECT_EQ(view().device->popupBattery->currentText(), "Lithium");
  EXPECT_EQ(view().device->popupAutoPow->currentIndex(), 3);
  EXPECT_EQ(view().device->popupAutoPow->currentText(), "Off");
}

TEST_F(DevicePanel, SettingThatNoItemStandsForShowsNone) {
  link.recorder().state().batteryType = 99;
  link.recorder().state().autoPowerOff = 77;
  startOnTakes();
  plugIn();
  EXPECT_EQ(view().device->popupBattery->currentIndex(), -1);
  EXPECT_EQ(view().device->popupAutoPow->currentIndex(), -1);
}

TEST_F(DevicePanel, SendsTheBatteryTypeThatIsChosen) {
  startOnTakes();
  plugIn();
  choose(*view().device->popupBattery, 3);
  EXPECT_THAT(lastSent(), ElementsAre(0xF0, 0x52, 0, 0, 0x31, 1, 3, 0xF7));
  EXPECT_EQ(link.recorder().state().batteryType, 3);
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_batteryType, 3);
}

TEST_F(DevicePanel, SendsOneToThreeAndThenZeroForAutoPowerOff) {
  startOnTakes();
  plugIn();
  for (const auto& [item, value] : {std::pair{3, 0}, {2, 3}, {1, 2}, {0, 1}}) {
    choose(*view().device->popupAutoPow, item);
    EXPECT_THAT(lastSent(), ElementsAre(0xF0, 0x52, 0, 0, 0x31, 2, value, 0xF7));
    EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_autoPowOffType, value);
  }
}

TEST_F(DevicePanel, ChoosingWhatIsSetSendsNothing) {
  startOnTakes();
  plugIn();
  const std::size_t before = sent();
  choose(*view().device->popupBattery, 0);
  choose(*view().device->popupAutoPow, 0);
  EXPECT_EQ(sent(), before);
}

TEST_F(DevicePanel, EmptiesWhenTheRecorderGoes) {
  startOnTakes();
  plugIn();
  pullOut();
  expectDisconnected();
}

TEST_F(DevicePanel, PullingOutClosesAnOpenMenuAndSendsNothing) {
  startOnTakes();
  plugIn();
  const std::size_t before = sent();
  view().device->popupBattery->showPopup();
  ASSERT_TRUE(view().device->popupBattery->view()->isVisible());
  pullOut();
  EXPECT_FALSE(view().device->popupBattery->view()->isVisible());
  expectDisconnected();
  EXPECT_EQ(sent(), before);
}

TEST_F(DevicePanel, ComesBackAfterAHandshakeThatStoppedHalfWay) {
  startOnTakes();
  link.recorder().misbehave(RecorderRequest::Card, RecorderFault::Silent);
  plugIn();
  expectDisconnected();
  pullOut();
  link.recorder().behave();
  plugIn();
  EXPECT_EQ(view().device->lblConnect->text(), "Connected");
}

TEST_F(DevicePanel, AnAnswerAfterTheHandshakeTimedOutConnectsNobody) {
  startOnTakes();
  link.recorder().misbehave(RecorderRequest::Identity, RecorderFault::Slow);
  plugIn();
  midiClock->advance(10.0);
  link.recorder().reportCard();
  midiClock->advance(0.5);
  expectDisconnected();
}

TEST_F(DevicePanel, CoversOpenTheNoDeviceDialog) {
  startOnTakes();
  for (QPushButton* const cover :
       {view().device->listBatteryCover, view().device->listAutoPowOffCover}) {
    const QPoint centre = cover->mapTo(&view(), cover->rect().center());
    EXPECT_EQ(view().childAt(centre), cover) << "it lies over the pop-up";
    QTest::mouseClick(cover, Qt::LeftButton);
    auto* const dialog = shown<NodeviceVC>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->parentFrame(), view().frameGeometry());
    dialog->btnOK_Click();
    EXPECT_EQ(shown<NodeviceVC>(), nullptr);
  }
}

TEST_F(DevicePanel, SecondConnectionShowsTheSecondRecorder) {
  startOnTakes();
  plugIn();
  pullOut();
  link.recorder().state().firmware = {'0', '2', '1', '0'};
  plugIn();
  EXPECT_EQ(view().device->lblVersion->text(), "Ver. 2.10");
}

TEST_F(DevicePanel, WindowMayGoWhileARecorderStaysConnected) {
  startOnTakes();
  plugIn();
  end();
  EXPECT_EQ(manager->delegate(), nullptr);
  link.recorder().state().usedBytes = 31'900'000'000;
  link.recorder().reportCard();
  midiClock->advance(0.5);
  EXPECT_EQ(MIDISequenceManager::getDeviceInfo()->_sdUsedSize, "7.45 GB") << "nobody listens";
}

/// The window over either kind of packet: what is received goes through its own forwarding.
class DevicePanelPackets : public WindowFixture,
                           public testing::WithParamInterface<MIDIPacketKind> {
 protected:
  DevicePanelPackets() : WindowFixture(GetParam()) {}
};
MIXDECK_BOTH_KINDS(DevicePanelPackets);

TEST_P(DevicePanelPackets, FillThePanelAndFollowTheCard) {
  startOnTakes();
  plugIn();
  EXPECT_EQ(view().device->lblConnect->text(), "Connected");
  EXPECT_EQ(view().device->lblVersion->text(), "Ver. 1.02");
  link.recorder().state().hasCard = false;
  link.recorder().reportCard();
  midiClock->advance(0.5);
  EXPECT_EQ(view().device->lblUsed->text(), "-- GB / -- GB Used");
}

}  // namespace
