// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ViewController.h"

#include "base/EB.h"
#include "midi/MIDIManager.h"

ViewController::ViewController(MainView& view) : _view(view), _panes(view, *this) {
  connect(&_wiring, &WindowWiring::endRequested, this, &ViewController::endRequested);
  connect(&_wiring, &WindowWiring::showFilesRequested, this, &ViewController::showFilesRequested);
  connect(&_wiring, &WindowWiring::listed, this, &ViewController::listed);
}

ViewController::~ViewController() {
  NotificationCenter::defaultCenter().removeObserver(this);
}

void ViewController::viewDidLoad() {
  _panes.commands.readVersion();
  MIDIManagerDisconnected();
  _panes.commands.readSettings();
  initMIDI();
  EB::initData();
  EB::SUBSCRIBE(this, &ViewController::notify, EB::kPlayFinish);
  EB::SUBSCRIBE(this, &ViewController::notify, EB::kReloadFileList);
}

void ViewController::initMIDI() {
  MIDIManager& manager = MIDIManager::get();
  manager.setDelegate(this);
  manager.scanTarnDevice();
}

void ViewController::notify(const Notification& event) {
  if (event.name == EB::kPlayFinish) _panes.take.playFinish();
  if (event.name == EB::kReloadFileList) updateFileBrowser();
}

void ViewController::GainTickTitle(class GainTickTitle* scale, const QString& clickAt) {
  _panes.sound.GainTickTitle(scale, clickAt);
}

void ViewController::startCurrentTimeTimer() {
  _panes.transport.startTimer();
  _panes.levels.startTimer();
}

void ViewController::stopCurrentTimeTimer() {
  _panes.transport.stopTimer();
  _panes.levels.stopTimer();
}

void ViewController::refreshUIWhenPlay() {
  sliderTimerUpdate();
  updateLevelMeter(1.0 / 30.0);
}

void ViewController::updatePlayStateUI() {
  _panes.transport.showState();
  _panes.levels.showState();
}

void ViewController::WavePlayerLevelChanged(double left, double right) {
  _panes.take.WavePlayerLevelChanged(left, right);
}

void ViewController::MIDIManagerFound() {
  _panes.device.link().MIDIManagerFound();
}

void ViewController::MIDIManagerConnected() {
  _panes.device.link().MIDIManagerConnected();
}

void ViewController::MIDIManagerDisconnected() {
  _panes.device.link().MIDIManagerDisconnected();
}

void ViewController::MIDIManagerReceivedData(const MIDIEventPacket& packet) {
  _panes.device.link().MIDIManagerReceivedData(packet);
}

void ViewController::MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) {
  _panes.device.link().MIDIManagerReceivedData_iOS13(packet, isLast);
}

const std::filesystem::path& ViewController::urlOfFileList() const {
  return _panes.browser.requestedFolder();
}

const std::shared_ptr<const FolderHelper>& ViewController::folderHelper() const {
  return _panes.browser.listing();
}
