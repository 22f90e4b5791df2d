// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ViewController.h"
#include "midi/MIDIManager.h"

// The device part of the window is the pane's; the names are the system's interfaces'.

void ViewController::initMIDI() {
  MIDIManager& manager = MIDIManager::get();
  manager.setDelegate(this);
  manager.scanTarnDevice();
}

void ViewController::MIDIManagerFound() {
  _device.link().MIDIManagerFound();
}

void ViewController::MIDIManagerConnected() {
  _device.link().MIDIManagerConnected();
}

void ViewController::MIDIManagerDisconnected() {
  _device.link().MIDIManagerDisconnected();
}

void ViewController::MIDIManagerReceivedData(const MIDIEventPacket& packet) {
  _device.link().MIDIManagerReceivedData(packet);
}

void ViewController::MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) {
  _device.link().MIDIManagerReceivedData_iOS13(packet, isLast);
}

void ViewController::MIDIManagerUpdateInfo(bool isConnected) {
  _device.showRecorder(isConnected);
}

void ViewController::popupBattery_SelectionChanged() {
  _device.batteryChosen();
}

void ViewController::popupAutoPow_SelectionChanged() {
  _device.autoPowerOffChosen();
}
