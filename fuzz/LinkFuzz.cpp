// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary packets through the device link while its sequences run. An input is a byte whose
// lowest bit is the kind of packet, a byte for the number of events, and the events: a byte for
// what happens, a byte that it needs, and for packets that many bytes or words.

#include <memory>
#include <string_view>

#include "FuzzInput.h"
#include "base/Log.h"
#include "midi/MIDILog.h"
#include "midi/MIDIManager.h"
#include "midi/MIDIPlatform.h"
#include "midi/MIDISequenceManager.h"
#include "midi/RecorderLink.h"
#include "midi/memory/InMemoryMIDISystem.h"
#include "midi/simulator/SimulatedRecorder.h"
#include "support/SteppedMIDIClock.h"

namespace {

using Bytes = RecorderMessages::Bytes;

/// The link with a recorder that can be plugged in, as the window uses it.
class Link {
 public:
  Link(std::shared_ptr<InMemoryMIDISystem> made, SteppedMIDIClock& time)
      : system(std::move(made)), clock(time) {
    way.open();
  }

  void plugIn() {
    if (plug.source != 0) return;
    plug = system->plug("J4 TARN", [this](auto bytes) { recorder.receive(bytes); });
    recorder.plugIn({[this](const Bytes& bytes) { system->transmit(plug.source, bytes); }, [] {}});
  }
  void pullOut() {
    if (plug.source == 0) return;
    recorder.pullOut();
    system->unplug(std::exchange(plug, {}));
  }

  std::shared_ptr<InMemoryMIDISystem> system;
  SteppedMIDIClock& clock;
  MIDIManager manager;
  MIDISequenceManager sequences;
  SimulatedRecorder recorder{clock};
  InMemoryMIDISystem::Plug plug;
  int records = 0;
  RecorderLink way{{{}, [this] { ++records; }, {}}};
};

template <class Value>
std::vector<Value> take(FuzzInput& input, std::size_t count) {
  std::vector<Value> values(count);
  for (Value& value : values) value = input.take<Value>();
  return values;
}

void deliver(Link& link, FuzzInput& input, std::uint8_t count) {
  if (link.system->packetKind() == MIDIPacketKind::EventLists) {
    const auto words = take<std::uint32_t>(input, count % 16);
    const MIDIEventPacket packet{0, words};
    link.system->deliver(link.plug.source, MIDIEventList(&packet, 1));
    return;
  }
  // Every fourth packet is long enough to fill the buffer in a few hundred.
  auto bytes = take<std::uint8_t>(input, count);
  if (count % 4 == 3) bytes.resize(8 * bytes.size());
  const MIDIPacket packet{0, bytes};
  link.system->deliver(link.plug.source, MIDIPacketList(&packet, 1));
}

// The window offers the settings only while the link is up.
void set(Link& link, bool isBattery, std::uint8_t code) {
  if (link.manager.state() != MIDIManager::Connected) return;
  isBattery ? link.sequences.startChangeBatteryTypeSeq(code, {})
            : link.sequences.startChangeAutoPowOffSeq(code, {});
}

void happen(Link& link, FuzzInput& input) {
  const auto what = input.take<std::uint8_t>();
  const auto value = input.take<std::uint8_t>();
  switch (what % 8) {
    case 0:
      link.plugIn();
      break;
    case 1:
      link.pullOut();
      break;
    case 2:
      link.clock.advance(value / 50.0);
      break;
    case 3:
      set(link, true, value);
      break;
    case 4:
      set(link, false, value);
      break;
    case 5:
      link.recorder.reportCard();
      break;
    case 6:
      link.recorder.misbehave(static_cast<RecorderRequest>(value / 16 % 9),
                              static_cast<RecorderFault>(value % 16 % 9));
      break;
    default:
      deliver(link, input, value);
      break;
  }
}

void requireHealthy(Link& link) {
  link.pullOut();
  link.recorder.behave();
  link.recorder.state() = {};
  link.records = 0;
  link.plugIn();
  link.clock.advance(1.5);
  const auto info = MIDISequenceManager::getDeviceInfo();
  require(link.records == 1, "a healthy recorder connects");
  require(!link.sequences.isSeqRunning(), "nothing runs after a handshake");
  require(info->_sdMaxSize == "29.7 GB", "the card is read");
  require(info->_version[3] == '2', "the version is read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto kind = (input.take<std::uint8_t>() & 1) == 0 ? MIDIPacketKind::BytePackets
                                                          : MIDIPacketKind::EventLists;
  MIDILog::setSink([](std::string_view) {});
  Log::setSink([](std::string_view) {});
  const auto clock = std::make_shared<SteppedMIDIClock>();
  const auto system = std::make_shared<InMemoryMIDISystem>(kind);
  MIDIPlatform::install(system, clock);
  Link link(system, *clock);
  link.sequences.exeCommand(nullptr, 0, [](const std::uint8_t* bytes, std::int32_t length) {
    require(length >= 1 && bytes[0] == 0xF0, "a message begins with F0");
    require(length <= 20000, "a message fits the buffer");
    return false;
  });
  for (int left = input.take<std::uint8_t>(); left > 0; --left) happen(link, input);
  requireHealthy(link);
  return 0;
}
