// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "app/ViewController.h"
#include "midi/DeviceText.h"
#include "midi/MIDICommon.h"
#include "midi/MIDIManager.h"
#include "midi/MIDISequenceManager.h"
#include "midi/RecorderSettings.h"
#include "midi/SDCardReport.h"

namespace {

const QString kNoCard = QStringLiteral("-- GB / -- GB Used");
const QString kNoTime = QStringLiteral("--:--:--");

QStringList titles(std::span<const RecorderChoice> choices) {
  QStringList list;
  for (const RecorderChoice& choice : choices) {
    list << QCoreApplication::translate("RecorderSettings", std::string(choice.title).c_str());
  }
  return list;
}

// An item that the pop-up does not have is none.
void select(QComboBox& popup, int item) {
  popup.setCurrentIndex(item < popup.count() ? item : -1);
}

}  // namespace

void ViewController::initMIDI() {
  MIDIManager& manager = MIDIManager::get();
  manager.setDelegate(this);
  manager.scanTarnDevice();
}

void ViewController::connectDevice() {
  _view.popupBattery->addItems(titles(RecorderSettings::batteryTypes()));
  _view.popupAutoPow->addItems(titles(RecorderSettings::autoPowerOffTimes()));
  connect(_view.popupBattery, &QComboBox::activated, this,
          &ViewController::popupBattery_SelectionChanged);
  connect(_view.popupAutoPow, &QComboBox::activated, this,
          &ViewController::popupAutoPow_SelectionChanged);
  connect(_view.listBatteryCover, &QPushButton::clicked, this, &ViewController::showNoDevice);
  connect(_view.listAutoPowOffCover, &QPushButton::clicked, this, &ViewController::showNoDevice);
}

void ViewController::MIDIManagerFound() {
  MIDIManager::get().connect();
}

void ViewController::MIDIManagerConnected() {
  const std::weak_ptr<ViewController> self = _self;
  MIDISequenceManager::get().startConnectSeq([self] {
    MIDICommon::runOnUIThread([&self] {
      if (const auto alive = self.lock()) alive->MIDIManagerUpdateInfo(true);
    });
  });
}

// From the third request on a handshake waits for ever; a recorder that comes back would wait
// behind it.
void ViewController::MIDIManagerDisconnected() {
  MIDISequenceManager::get().forceStopSeq();
  MIDIManagerUpdateInfo(false);
}

void ViewController::MIDIManagerReceivedData(const MIDIEventPacket& packet) {
  MIDISequenceManager::get().receivedMidi(packet);
}

void ViewController::MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) {
  MIDISequenceManager::get().receivedMidi_iOS13(packet, isLast);
}

void ViewController::MIDIManagerUpdateInfo(bool isConnected) {
  if (!isConnected) return clearDevice();
  _info = MIDISequenceManager::getDeviceInfo();
  if (!_info) _info = std::make_shared<TARNDeviceInfo>();
  _view.lblConnect->setText(tr("Connected"));
  _view.lblVersion->setText(tr("Ver. %1").arg(QString::fromLatin1(DeviceText::firmware(*_info))));
  showCard(*_info);
  _view.popupBattery->setEnabled(true);
  _view.popupAutoPow->setEnabled(true);
  _view.listBatteryCover->hide();
  _view.listAutoPowOffCover->hide();
  select(*_view.popupBattery, _info->_batteryType);
  select(*_view.popupAutoPow, RecorderSettings::autoPowerOffIndex(_info->_autoPowOffType));
}

void ViewController::showCard(const TARNDeviceInfo& info) {
  _view.lblUsed->setText(QString::fromStdString(DeviceText::used(info)));
  _view.lblRemain->setText(QString::fromStdString(DeviceText::remaining(info)));
  const float whole = SDCardReport::size(info._sdMaxBuff);
  const bool hasSize = DeviceText::hasCard(info) && whole > 0.0F;
  const float share = hasSize ? SDCardReport::size(info._sdUsedBuff) / whole : 0.0F;
  _view.barUsed->setValue(static_cast<int>(std::min(share, 1.0F) * 1000.0F));
}

void ViewController::clearDevice() {
  _view.lblConnect->setText(tr("Disconnected"));
  _view.lblVersion->clear();
  _view.lblUsed->setText(kNoCard);
  _view.lblRemain->setText(kNoTime);
  _view.barUsed->setValue(0);
  for (QComboBox* const popup : {_view.popupBattery, _view.popupAutoPow}) {
    popup->hidePopup();
    popup->setCurrentIndex(-1);
    popup->setEnabled(false);
  }
  _view.listBatteryCover->show();
  _view.listAutoPowOffCover->show();
}

void ViewController::popupBattery_SelectionChanged() {
  const auto value = static_cast<std::uint8_t>(_view.popupBattery->currentIndex());
  if (!_info || value == _info->_batteryType) return;
  _info->_batteryType = value;
  MIDISequenceManager::get().startChangeBatteryTypeSeq(value, [] {});
}

void ViewController::popupAutoPow_SelectionChanged() {
  const auto value = RecorderSettings::autoPowerOffValue(_view.popupAutoPow->currentIndex());
  if (!_info || value == _info->_autoPowOffType) return;
  _info->_autoPowOffType = value;
  MIDISequenceManager::get().startChangeAutoPowOffSeq(value, [] {});
}
