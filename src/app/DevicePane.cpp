// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DevicePane.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

#include "base/Placeholder.h"
#include "controls/NumberText.h"
#include "midi/DeviceText.h"
#include "midi/MIDISequenceManager.h"
#include "midi/RecorderSettings.h"
#include "midi/SDCardReport.h"

namespace {

QStringList titles(std::span<const RecorderChoice> choices) {
  QStringList list;
  for (const RecorderChoice& choice : choices) {
    list << QCoreApplication::translate("RecorderSettings", std::string(choice.title).c_str());
  }
  return list;
}

// "14.4 GB" as it is written here.
QString sizeText(const QString& size) {
  const QString number = NumberText::localized(size.section(u' ', 0, 0));
  const QString unit = size.section(u' ', 1);
  return DevicePane::tr("%1 %2", "a size and its unit")
      .arg(number, unit == u"MB" ? DevicePane::tr("MB") : DevicePane::tr("GB"));
}

QString usedText(const TARNDeviceInfo& info) {
  const QString none = QLatin1String(Placeholder::kSize);
  const bool hasCard = DeviceText::hasCard(info);
  const QString used = hasCard ? QString::fromStdString(info._sdUsedSize) : none;
  const QString whole = hasCard ? QString::fromStdString(info._sdMaxSize) : none;
  return DevicePane::tr("%1 / %2 Used").arg(sizeText(used), sizeText(whole));
}

// An item that the pop-up does not have is none.
void select(QComboBox& popup, int item) {
  popup.setCurrentIndex(item < popup.count() ? item : -1);
}

}  // namespace

DevicePane::DevicePane(DeviceView& view, QObject* parent)
    : QObject(parent),
      _view(view),
      _link({{}, [this] { showRecorder(true); }, [this] { showRecorder(false); }}) {
  _view.popupBattery->addItems(titles(RecorderSettings::batteryTypes()));
  _view.popupAutoPow->addItems(titles(RecorderSettings::autoPowerOffTimes()));
  connectControls();
}

void DevicePane::connectControls() {
  connect(_view.popupBattery, &QComboBox::activated, this, &DevicePane::batteryChosen);
  connect(_view.popupAutoPow, &QComboBox::activated, this, &DevicePane::autoPowerOffChosen);
  connect(_view.listBatteryCover, &QPushButton::clicked, this, &DevicePane::recorderMissing);
  connect(_view.listAutoPowOffCover, &QPushButton::clicked, this, &DevicePane::recorderMissing);
}

void DevicePane::showRecorder(bool isConnected) {
  if (isConnected) {
    show();
  } else {
    clear();
  }
  if (std::exchange(_isConnected, isConnected) != isConnected) emit connectionChanged(isConnected);
}

void DevicePane::show() {
  _info = RecorderLink::record();
  _view.dotConnected->show();
  _view.lblConnect->setText(tr("Connected"));
  _view.lblVersion->setText(tr("Ver. %1").arg(QString::fromLatin1(DeviceText::firmware(*_info))));
  showCard(*_info);
  showSettings(*_info);
}

void DevicePane::showCard(const TARNDeviceInfo& info) {
  _view.lblUsed->setText(usedText(info));
  _view.lblRemain->setText(QString::fromStdString(DeviceText::remaining(info)));
  const float whole = SDCardReport::size(info._sdMaxBuff);
  const bool hasSize = DeviceText::hasCard(info) && whole > 0.0F;
  const float share = hasSize ? SDCardReport::size(info._sdUsedBuff) / whole : 0.0F;
  _view.barUsed->setValue(static_cast<int>(std::min(share, 1.0F) * 1000.0F));
}

void DevicePane::showSettings(const TARNDeviceInfo& info) {
  _view.popupBattery->setEnabled(true);
  _view.popupAutoPow->setEnabled(true);
  _view.listBatteryCover->hide();
  _view.listAutoPowOffCover->hide();
  select(*_view.popupBattery, info._batteryType);
  select(*_view.popupAutoPow, RecorderSettings::autoPowerOffIndex(info._autoPowOffType));
}

void DevicePane::clear() {
  _view.dotConnected->hide();
  _view.lblConnect->setText(tr("Disconnected"));
  _view.lblVersion->clear();
  showCard({});
  for (QComboBox* const popup : {_view.popupBattery, _view.popupAutoPow}) {
    popup->hidePopup();
    popup->setCurrentIndex(-1);
    popup->setEnabled(false);
  }
  _view.listBatteryCover->show();
  _view.listAutoPowOffCover->show();
}

void DevicePane::batteryChosen() {
  const auto value = static_cast<std::uint8_t>(_view.popupBattery->currentIndex());
  if (!_info || value == _info->_batteryType) return;
  _info->_batteryType = value;
  MIDISequenceManager::get().startChangeBatteryTypeSeq(value, [] {});
}

void DevicePane::autoPowerOffChosen() {
  const auto value = RecorderSettings::autoPowerOffValue(_view.popupAutoPow->currentIndex());
  if (!_info || value == _info->_autoPowOffType) return;
  _info->_autoPowOffType = value;
  MIDISequenceManager::get().startChangeAutoPowOffSeq(value, [] {});
}
