// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaMIDISystem.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <set>
#include <utility>

#include "base/EndPatience.h"
#include "base/Log.h"
#include "midi/MIDIWireReader.h"
#include "midi/QtMIDIClock.h"
#include "midi/alsa/AlsaClosing.h"
#include "midi/alsa/AlsaEndpointTable.h"
#include "midi/alsa/AlsaOutput.h"
#include "midi/alsa/AlsaSequencer.h"
#include "midi/alsa/AlsaSettling.h"
#include "midi/alsa/AlsaWire.h"
#include "midi/alsa/DeviceNodeWatch.h"

struct AlsaMIDISystem::Port {
  struct Heard {
    AlsaAddress address;
    MIDIWireReader reader;
  };

  /// The connected source that an event from `address` belongs to, or none. A UMP device that was
  /// connected as a whole sends from its groups' ports.
  Heard* hearing(AlsaAddress address) {
    Heard* found = nullptr;
    for (auto& [source, each] : heard) {
      if (each.address == address) return &each;
      if (each.address.client == address.client) found = &each;
    }
    return found;
  }

  MIDIObjectRef client = 0;
  MIDIDirection direction = MIDIDirection::Source;
  std::string name;
  std::uint8_t number = 0;
  std::map<MIDIObjectRef, Heard> heard;     ///< connected sources
  std::set<MIDIObjectRef> refused;          ///< sources that could not be connected yet
  std::map<MIDIObjectRef, AlsaAddress> to;  ///< subscribed destinations
};

namespace {

constexpr double kTryAgainSeconds = 1.0;
constexpr std::chrono::milliseconds kEndPatience(100);

/// Of one message: those of the system type from F8 on.
bool isRealTime(const std::vector<std::uint32_t>& words) {
  return words[0] >> 28 == 1 && (words[0] >> 16 & 0xFF) >= 0xF8;
}

}  // namespace

std::shared_ptr<AlsaMIDISystem> AlsaMIDISystem::create(Options options) {
  if (!options.clock) options.clock = std::make_shared<QtMIDIClock>();
  if (!options.kind) options.kind = alsaKindOfEnvironment();
  std::shared_ptr<AlsaMIDISystem> system(new AlsaMIDISystem(std::move(options)));
  system->start();
  return system;
}

AlsaMIDISystem::AlsaMIDISystem(Options options) : _options(std::move(options)) {}

// A thread that waits in the kernel is broken off with the process; this one would not be.
AlsaMIDISystem::~AlsaMIDISystem() {
  _notifier.reset();
  if (_sequencer) _closing->begin(std::move(_sequencer));
  if (_closing) _closing->wait(EndPatience::atMost(kEndPatience));
}

void AlsaMIDISystem::start() {
  _table = std::make_unique<AlsaEndpointTable>([this] { return ++_last; });
  _closing = std::make_unique<AlsaClosing>();
  _settling = std::make_unique<AlsaSettling>(*_options.clock, [this] { relist(); });
  // Watched before it is opened, so that nothing comes in between unseen.
  _watch = std::make_unique<DeviceNodeWatch>(_options.devicePath, [this] { open(); });
  open();
}

void AlsaMIDISystem::open() {
  if (_sequencer) return;
  auto opened = AlsaSequencer::open(_options.devicePath, _options.kind);
  if (opened.sequencer) adopt(std::move(opened.sequencer));
  setReason(std::move(opened.problem));
  if (_sequencer) relist();
}

void AlsaMIDISystem::adopt(std::unique_ptr<AlsaSequencer> sequencer) {
  _sequencer = std::move(sequencer);
  if (!_clients.empty()) _sequencer->setName(_clients.begin()->second.name);
  hearAnnouncements();
  _output = std::make_unique<AlsaOutput>(*_options.clock, [this](const AlsaOutput::Item& item) {
    return _sequencer->write(item.port, item.to, item.payload);
  });
  _notifier = std::make_unique<QSocketNotifier>(_sequencer->descriptor(), QSocketNotifier::Read);
  QObject::connect(_notifier.get(), &QSocketNotifier::activated, [this] { readable(); });
}

// What was plugged in while they were refused is listed as if it had been announced.
void AlsaMIDISystem::hearAnnouncements() {
  const int status = _sequencer->connectAnnouncements();
  const bool wasDeaf = std::exchange(_isDeaf, status < 0);
  if (_isDeaf) tryAgainLater();
  if (_isDeaf && !wasDeaf) {
    Log::line(fmt::format("What is plugged in is not heard of yet ({}).", std::strerror(-status)));
  }
  if (wasDeaf && !_isDeaf) _settling->disturb();
}

// Also from inside the notifier.
void AlsaMIDISystem::giveUpSequencer() {
  _notifier->setEnabled(false);
  _notifier.release()->deleteLater();
  _output.reset();
  _closing->begin(std::move(_sequencer));
}

// What was announced meanwhile has not been heard, and what waits to be sent is dropped. After the
// application there is nobody to hear anything, and the end gives the client up.
void AlsaMIDISystem::renewSequencer() {
  if (QCoreApplication::instance() == nullptr) return;
  giveUpSequencer();
  auto opened = AlsaSequencer::open(_options.devicePath, _options.kind);
  _settling->disturb();
  if (!opened.sequencer) {
    _ports.clear();
    setReason(std::move(opened.problem));
    return tryAgainLater();
  }
  adopt(std::move(opened.sequencer));
  for (const auto& [reference, port] : _ports) {
    if (const int status = restore(*port); status < 0) return lose(status);
  }
}

int AlsaMIDISystem::restore(Port& port) {
  const bool isInput = port.direction == MIDIDirection::Source;
  using Use = AlsaSequencer::Use;
  const int number = _sequencer->createPort(port.name, isInput ? Use::Receive : Use::Send);
  if (number < 0) return number;
  port.number = static_cast<std::uint8_t>(number);
  port.to.clear();
  for (const auto& [source, heard] : std::exchange(port.heard, {})) hear(port, source);
  return 0;
}

// The ports went with it; whoever holds one is told of the removal of all endpoints.
void AlsaMIDISystem::lose(int status) {
  giveUpSequencer();
  _ports.clear();
  setReason(fmt::format("The ALSA sequencer has gone ({}).", std::strerror(-status)));
  tryAgainLater();
  relist();
}

void AlsaMIDISystem::tryAgainLater() {
  if (_again) return;
  _again = _options.clock->after(kTryAgainSeconds, [this] {
    const auto fired = std::move(_again);
    tryAgain();
  });
}

// The node of a sequencer that was lost may never have gone.
void AlsaMIDISystem::tryAgain() {
  open();
  if (!_sequencer) return tryAgainLater();
  if (_isDeaf) hearAnnouncements();
  for (const auto& [reference, port] : _ports) {
    for (const MIDIObjectRef source : std::set(port->refused)) hear(*port, source);
  }
}

void AlsaMIDISystem::setReason(std::string reason) {
  if (std::exchange(_reason, std::move(reason)) != _reason && _observer) _observer();
}

// As much as was read at once: a flood does not keep the rest of the program from its turn.
void AlsaMIDISystem::readable() {
  AlsaEvent event;
  do {
    const int status = _sequencer->read(event);
    if (status == -EAGAIN || status == -EINTR) return;
    if (status >= 0) {
      take(event);
    } else if (status == -ENOSPC) {
      _settling->disturb();  // what was lost may have been an announcement
    } else {
      lose(status);
    }
  } while (_sequencer && _sequencer->hasMore());
}

void AlsaMIDISystem::take(AlsaEvent& event) {
  if (event.announcement != AlsaEvent::Announcement::None) announced(event);
  if (!event.payload.bytes.empty()) deliverBytes(event);
  if (!event.payload.words.empty() && !isRealTime(event.payload.words)) deliverWords(event);
}

void AlsaMIDISystem::announced(const AlsaEvent& event) {
  using enum AlsaEvent::Announcement;
  if (event.announcement == ClientGone) _table->forgetClient(event.subject.client);
  if (event.announcement == PortGone) _table->forget(event.subject);
  _settling->disturb();
}

void AlsaMIDISystem::relist() {
  const auto ports = _sequencer ? _sequencer->ports() : std::vector<AlsaPort>();
  const auto change = _table->update(ports);
  if (change.hasRemoval) tell(MIDISystemClient::kObjectRemoved);
  if (change.hasAddition) tell(MIDISystemClient::kObjectAdded);
}

// Whoever is told may make and end clients.
void AlsaMIDISystem::tell(std::int32_t messageID) {
  for (const auto& [reference, client] : std::map(_clients)) {
    if (_clients.contains(reference)) client.told->setupChanged(messageID);
  }
}

// Anyone may send to our ports; only who was connected is heard.
AlsaMIDISystem::Port* AlsaMIDISystem::listener(const AlsaEvent& event) {
  for (const auto& [reference, port] : _ports) {
    const bool isIt = port->direction == MIDIDirection::Source && port->number == event.port;
    if (isIt && port->hearing(event.source) != nullptr) return port.get();
  }
  return nullptr;
}

void AlsaMIDISystem::deliverBytes(const AlsaEvent& event) {
  Port* port = listener(event);
  if (port == nullptr) return;
  const auto pieces = port->hearing(event.source)->reader.feed(event.payload.bytes);
  for (const auto& piece : pieces) {
    const MIDIPacket packet{_options.clock->hostTime(), piece};
    hand(event, MIDIPacketList(&packet, 1));
  }
}

void AlsaMIDISystem::deliverWords(const AlsaEvent& event) {
  const MIDIEventPacket packet{_options.clock->hostTime(), event.payload.words};
  hand(event, MIDIEventList(&packet, 1));
}

// Looked for each time: whoever got the last piece may have closed the port.
template <class List>
void AlsaMIDISystem::hand(const AlsaEvent& event, List list) {
  const Port* port = listener(event);
  if (port == nullptr) return;
  const auto client = _clients.find(port->client);
  if (client != _clients.end()) client->second.told->received(list);
}

MIDIPacketKind AlsaMIDISystem::packetKind() const {
  return _sequencer ? _sequencer->kind() : MIDIPacketKind::BytePackets;
}

MIDIObjectRef AlsaMIDISystem::createClient(std::string_view name, MIDISystemClient& client) {
  _clients[++_last] = {std::string(name), &client};
  if (_sequencer) _sequencer->setName(std::string(name));
  return _last;
}

std::vector<MIDIEndpoint> AlsaMIDISystem::endpoints(MIDIDirection direction) const {
  return _table->endpoints(direction);
}

MIDICreatedPort AlsaMIDISystem::createPort(MIDIObjectRef client, MIDIDirection direction,
                                           std::string_view name) {
  using Use = AlsaSequencer::Use;
  if (!_sequencer || !_clients.contains(client)) return {-ENODEV, 0};
  const Use use = direction == MIDIDirection::Source ? Use::Receive : Use::Send;
  const int number = _sequencer->createPort(std::string(name), use);
  if (number < 0) return {number, 0};
  _ports[++_last] = std::make_unique<Port>(
      Port{client, direction, std::string(name), static_cast<std::uint8_t>(number), {}, {}, {}});
  return {0, _last};
}

AlsaMIDISystem::Port* AlsaMIDISystem::find(MIDIObjectRef port, MIDIDirection direction) {
  const auto found = _ports.find(port);
  const bool isIt = found != _ports.end() && found->second->direction == direction;
  return isIt ? found->second.get() : nullptr;
}

void AlsaMIDISystem::connectSource(MIDIObjectRef port, MIDIObjectRef source) {
  Port* input = find(port, MIDIDirection::Source);
  if (input != nullptr && !input->heard.contains(source)) hear(*input, source);
}

// Another client may hold the source for itself, for a while.
void AlsaMIDISystem::hear(Port& input, MIDIObjectRef source) {
  const bool isFirst = input.refused.erase(source) == 0;
  const auto address = _table->find(source, MIDIDirection::Source);
  if (!address) return;
  const int status = _sequencer->connectFrom(input.number, *address);
  if (status >= 0) {
    input.heard[source] = {*address, {}};
    return;
  }
  if (isFirst)
    Log::line(fmt::format("A MIDI source is not heard yet ({}).", std::strerror(-status)));
  input.refused.insert(source);
  tryAgainLater();
}

void AlsaMIDISystem::disconnectSource(MIDIObjectRef port, MIDIObjectRef source) {
  Port* input = find(port, MIDIDirection::Source);
  if (input != nullptr) input->refused.erase(source);
  if (input == nullptr || !input->heard.contains(source)) return;
  // An old one's numbers may be another's by now.
  const auto address = _table->find(source, MIDIDirection::Source);
  if (address) _sequencer->disconnectFrom(input->number, *address);
  input->heard.erase(source);
}

void AlsaMIDISystem::dispose(MIDIObjectRef object) {
  const auto isOurs = [object](const auto& entry) {
    return entry.first == object || entry.second->client == object;
  };
  bool mayWait = false;
  for (const auto& entry : _ports) {
    mayWait = mayWait || (isOurs(entry) && holdsDevice(*entry.second));
  }
  for (const auto& entry : _ports) {
    if (!mayWait && isOurs(entry)) closePort(*entry.second);
  }
  std::erase_if(_ports, isOurs);
  _clients.erase(object);
  if (mayWait) renewSequencer();
}

// A driver that has something to play out, or may have.
bool AlsaMIDISystem::holdsDevice(const Port& port) const {
  return std::ranges::any_of(port.to, [this](const auto& each) {
    return _table->find(each.first, MIDIDirection::Destination).has_value();
  });
}

void AlsaMIDISystem::closePort(const Port& port) {
  for (const auto& [destination, address] : port.to) _output->drop(address);
  _sequencer->deletePort(port.number);
}

void AlsaMIDISystem::send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) {
  if (packetKind() != MIDIPacketKind::BytePackets) return;
  for (const MIDIPacket& packet : packets) {
    enqueue(port, destination, {{packet.bytes.begin(), packet.bytes.end()}, {}});
  }
}

void AlsaMIDISystem::send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) {
  if (packetKind() != MIDIPacketKind::EventLists) return;
  for (const MIDIEventPacket& event : events) {
    enqueue(port, destination, {{}, {event.words.begin(), event.words.end()}});
  }
}

void AlsaMIDISystem::enqueue(MIDIObjectRef port, MIDIObjectRef destination, AlsaPayload payload) {
  Port* output = find(port, MIDIDirection::Destination);
  const auto address = _table->find(destination, MIDIDirection::Destination);
  if (output == nullptr || !address) return;
  if (!output->to.contains(destination)) subscribe(*output, destination);
  _output->send({output->number, *address, std::move(payload)});
}

// A driver opens its device for those who have subscribed to it. Whoever was refused tries again
// with what is sent next.
// While a client of ours is being ended the kernel might hold up the next one's subscription too.
void AlsaMIDISystem::subscribe(Port& output, MIDIObjectRef destination) {
  const AlsaAddress address = *_table->find(destination, MIDIDirection::Destination);
  const bool mayWait = _closing->isUnderWay();
  const int status = mayWait ? -EBUSY : _sequencer->connectTo(output.number, address);
  if (status < 0) {
    Log::line(fmt::format("A MIDI destination is not open yet ({}).", std::strerror(-status)));
    return;
  }
  output.to[destination] = address;
}

void AlsaMIDISystem::flushOutput(MIDIObjectRef endpoint) {
  const auto address = _table->find(endpoint, MIDIDirection::Destination);
  if (address && _output) _output->drop(*address);
}
