// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "recorder-sim/SequencerEnd.h"

#include <QSocketNotifier>
#include <cerrno>
#include <utility>

#include "midi/alsa/AlsaOutput.h"
#include "midi/alsa/AlsaSequencer.h"

namespace {

constexpr const char* kClientName = "mixdeck-recorder-sim";

}  // namespace

SequencerEnd::SequencerEnd(std::string portName, bool sendsWhole, Told told, std::string devicePath)
    : CableEnd(std::move(told)),
      _portName(std::move(portName)),
      _sendsWhole(sendsWhole),
      _devicePath(std::move(devicePath)) {}

SequencerEnd::~SequencerEnd() = default;

std::string SequencerEnd::plugIn() {
  if (_port >= 0) return "";
  if (!_sequencer) {
    std::string problem = open();
    if (!problem.empty()) return problem;
  }
  _port = _sequencer->createPort(_portName, AlsaSequencer::Use::Both);
  if (_port < 0) return "The ALSA sequencer makes no port.";
  told().pluggedIn();
  return "";
}

// Bytes, whatever the kernel can do: it is what comes out of the recorder.
std::string SequencerEnd::open() {
  auto opened = AlsaSequencer::open(_devicePath, MIDIPacketKind::BytePackets);
  if (!opened.sequencer) return opened.problem;
  _sequencer = std::move(opened.sequencer);
  _sequencer->setName(kClientName);
  _output = std::make_unique<AlsaOutput>(_clock, [this](const AlsaOutput::Item& item) {
    return _sequencer->write(item.port, item.to, item.payload);
  });
  _notifier = std::make_unique<QSocketNotifier>(_sequencer->descriptor(), QSocketNotifier::Read);
  QObject::connect(_notifier.get(), &QSocketNotifier::activated, [this] { readable(); });
  return "";
}

void SequencerEnd::pullOut() {
  if (_port < 0) return;
  _output->drop(AlsaSequencer::subscribers());
  _sequencer->deletePort(std::exchange(_port, -1));
  told().pulledOut();
}

void SequencerEnd::transmit(std::span<const std::uint8_t> bytes) {
  if (_sendsWhole) {
    send({bytes.begin(), bytes.end()});
    return;
  }
  for (auto& piece : _reader.feed(bytes)) send(std::move(piece));
}

void SequencerEnd::send(std::vector<std::uint8_t> bytes) {
  if (_port < 0) return;
  const auto port = static_cast<std::uint8_t>(_port);
  _output->send({port, AlsaSequencer::subscribers(), {std::move(bytes), {}}});
}

void SequencerEnd::readable() {
  AlsaEvent event;
  do {
    const int status = _sequencer->read(event);
    if (status == -EAGAIN || status == -EINTR) return;
    const bool isGone = status < 0 && status != -ENOSPC;  // that: some events were lost
    if (isGone) return lose();
    if (status >= 0 && event.port == _port) told().received(event.payload.bytes);
  } while (_sequencer && _sequencer->hasMore());
}

// The descriptor of a sequencer that fails stays readable for ever. `plugIn` opens another one.
void SequencerEnd::lose() {
  _notifier->setEnabled(false);
  _notifier.release()->deleteLater();
  _output.reset();
  _sequencer.reset();
  const bool wasPluggedIn = std::exchange(_port, -1) >= 0;
  if (wasPluggedIn) told().pulledOut();
}
