// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/SimulatedLink.h"

#include <utility>

#include "midi/MIDIPlatform.h"
#include "midi/QtMIDIClock.h"

SimulatedLink::SimulatedLink(MIDIPacketKind kind, std::shared_ptr<MIDIClock> clock)
    : _clock(clock ? std::move(clock) : std::make_shared<QtMIDIClock>()),
      _system(std::make_shared<InMemoryMIDISystem>(kind)),
      _recorder(*_clock) {}

SimulatedLink::~SimulatedLink() {
  pullOut();
}

void SimulatedLink::install() const {
  MIDIPlatform::install(_system, _clock);
}

// The recorder is ready before anyone is told that it is there.
void SimulatedLink::plugIn() {
  if (isPluggedIn()) return;
  _recorder.plugIn({[this](const auto& bytes) { transmit(bytes); }, [this] { pullOut(); }});
  const auto receive = [this](std::span<const std::uint8_t> bytes) { _recorder.receive(bytes); };
  const auto source = _system->addEndpoint(MIDIDirection::Source, kName);
  _plug = {source, _system->addEndpoint(MIDIDirection::Destination, kName, receive)};
  _system->notify(MIDISystemClient::kObjectAdded);
}

void SimulatedLink::pullOut() {
  if (!isPluggedIn()) return;
  _recorder.pullOut();
  const auto plug = *std::exchange(_plug, std::nullopt);
  _system->unplug(plug);
}

void SimulatedLink::transmit(const SimulatedRecorder::Bytes& bytes) {
  if (isPluggedIn()) _system->transmit(_plug->source, bytes);
}
