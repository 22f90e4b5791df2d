// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/memory/InMemoryMIDISystem.h"

#include <utility>

InMemoryMIDISystem::Plug InMemoryMIDISystem::plug(const std::string& name, Receive receive) {
  const MIDIObjectRef source = addEndpoint(MIDIDirection::Source, name);
  const Plug made{source, addEndpoint(MIDIDirection::Destination, name, std::move(receive))};
  notify(MIDISystemClient::kObjectAdded);
  return made;
}

void InMemoryMIDISystem::unplug(const Plug& plug) {
  removeEndpoint(plug.source);
  removeEndpoint(plug.destination);
  notify(MIDISystemClient::kObjectRemoved);
}

MIDIObjectRef InMemoryMIDISystem::addEndpoint(MIDIDirection direction,
                                              std::optional<std::string> name, Receive receive) {
  _endpoints[++_last] = {direction, std::move(name), std::move(receive), {}, {}};
  return _last;
}

void InMemoryMIDISystem::removeEndpoint(MIDIObjectRef endpoint) {
  _endpoints.erase(endpoint);
  for (auto& [reference, port] : _ports) port.sources.erase(endpoint);
}

// A client that is told may be gone for the next one's sake.
void InMemoryMIDISystem::notify(std::int32_t messageID) {
  const auto clients = _clients;
  for (const auto& [reference, client] : clients) {
    if (_clients.contains(reference)) client.told->setupChanged(messageID);
  }
}

void InMemoryMIDISystem::transmit(MIDIObjectRef source, std::span<const std::uint8_t> bytes) {
  const auto endpoint = _endpoints.find(source);
  if (endpoint == _endpoints.end()) return;
  for (const auto& piece : endpoint->second.reader.feed(bytes)) {
    if (_kind == MIDIPacketKind::BytePackets) {
      const MIDIPacket packet{0, piece};
      deliver(source, MIDIPacketList(&packet, 1));
    } else {
      deliverAsEvents(source, piece);
    }
  }
}

// Whoever receives may pull the device out.
void InMemoryMIDISystem::deliverAsEvents(MIDIObjectRef source, const MIDIWireReader::Piece& piece) {
  const auto endpoint = _endpoints.find(source);
  if (endpoint == _endpoints.end()) return;
  for (const auto& words : endpoint->second.events.feed(piece)) {
    const MIDIEventPacket packet{0, words};
    deliver(source, MIDIEventList(&packet, 1));
  }
}

void InMemoryMIDISystem::deliver(MIDIObjectRef source, MIDIPacketList packets) {
  hand(source, packets);
}

void InMemoryMIDISystem::deliver(MIDIObjectRef source, MIDIEventList events) {
  hand(source, events);
}

template <class List>
void InMemoryMIDISystem::hand(MIDIObjectRef source, List list) {
  for (const MIDIObjectRef client : clientsOf(source)) {
    const auto found = _clients.find(client);
    if (found != _clients.end()) found->second.told->received(list);
  }
}

std::vector<MIDIObjectRef> InMemoryMIDISystem::clientsOf(MIDIObjectRef source) const {
  std::vector<MIDIObjectRef> clients;
  for (const auto& [reference, port] : _ports) {
    if (port.sources.contains(source)) clients.push_back(port.client);
  }
  return clients;
}

std::string InMemoryMIDISystem::clientName() const {
  return _clients.empty() ? "" : _clients.begin()->second.name;
}

MIDIObjectRef InMemoryMIDISystem::createClient(std::string_view name, MIDISystemClient& client) {
  _clients[++_last] = {std::string(name), &client};
  return _last;
}

std::vector<MIDIEndpoint> InMemoryMIDISystem::endpoints(MIDIDirection direction) const {
  std::vector<MIDIEndpoint> found;
  for (const auto& [reference, endpoint] : _endpoints) {
    if (endpoint.direction == direction) found.push_back({reference, endpoint.name});
  }
  return found;
}

MIDICreatedPort InMemoryMIDISystem::createPort(MIDIObjectRef client, MIDIDirection direction,
                                               std::string_view name) {
  const auto refusal = _refusals.find(direction);
  if (refusal != _refusals.end() && refusal->second != 0) return {refusal->second, 0};
  _ports[++_last] = {client, direction, std::string(name), {}};
  return {0, _last};
}

void InMemoryMIDISystem::connectSource(MIDIObjectRef port, MIDIObjectRef source) {
  const auto found = _ports.find(port);
  if (found != _ports.end() && _endpoints.contains(source)) found->second.sources.insert(source);
}

void InMemoryMIDISystem::disconnectSource(MIDIObjectRef port, MIDIObjectRef source) {
  const auto found = _ports.find(port);
  if (found != _ports.end()) found->second.sources.erase(source);
}

void InMemoryMIDISystem::dispose(MIDIObjectRef object) {
  _ports.erase(object);
  if (_clients.erase(object) == 0) return;
  std::erase_if(_ports, [object](const auto& port) { return port.second.client == object; });
}

void InMemoryMIDISystem::send(MIDIObjectRef port, MIDIObjectRef destination,
                              MIDIPacketList packets) {
  if (_kind != MIDIPacketKind::BytePackets) return;
  const Receive receive = receiverAt(port, destination);
  for (const MIDIPacket& packet : packets) {
    if (receive) receive(packet.bytes);
  }
}

void InMemoryMIDISystem::send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) {
  if (_kind != MIDIPacketKind::EventLists) return;
  const Receive receive = receiverAt(port, destination);
  for (const MIDIEventPacket& event : events) {
    if (receive) receive(MIDIWireEvents::bytesOf(event.words));
  }
}

InMemoryMIDISystem::Receive InMemoryMIDISystem::receiverAt(MIDIObjectRef port,
                                                           MIDIObjectRef destination) const {
  const auto end = _endpoints.find(destination);
  return _ports.contains(port) && end != _endpoints.end() ? end->second.receive : Receive();
}
