// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/DeviceLink.h"

#include "controls/Reason.h"
#include "midi/MIDIPlatform.h"
#include "midi/QtMIDIClock.h"

DeviceLink::DeviceLink(bool isSimulated) {
  if (isSimulated) {
    _simulated = std::make_unique<SimulatedLink>();
    _simulated->install();
    _simulated->plugIn();
    return;
  }
  _machine = AlsaMIDISystem::create();
  MIDIPlatform::install(_machine, std::make_shared<QtMIDIClock>());
}

DeviceLink::~DeviceLink() {
  if (_machine) _machine->setAvailabilityObserver({});
}

void DeviceLink::attach(MainView& view) {
  view.device->lblSimulated->setVisible(_simulated != nullptr);
  if (!_machine) return;
  _machine->setAvailabilityObserver([this, &view] { showReason(view); });
  showReason(view);
}

void DeviceLink::showReason(MainView& view) const {
  view.device->showUnavailable(Reason::text(_machine->unavailableReason()));
}
