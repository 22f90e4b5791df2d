// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaEndpointTable.h"

#include <algorithm>
#include <utility>

std::string AlsaEndpointTable::displayName(const AlsaPort& port) {
  if (port.portName.starts_with(port.clientName)) return port.portName;
  return port.clientName + " " + port.portName;
}

AlsaEndpointTable::Change AlsaEndpointTable::update(const std::vector<AlsaPort>& ports) {
  Change change{false, std::exchange(_hasForgotten, false)};
  std::vector<Entry> entries;
  for (const AlsaPort& port : ports) {
    if (port.isSource) entries.push_back(entryFor(port, MIDIDirection::Source, change));
    if (port.isDestination) entries.push_back(entryFor(port, MIDIDirection::Destination, change));
  }
  _entries.swap(entries);
  const auto isGone = [this](const Entry& old) { return !known(old.address, old.direction); };
  change.hasRemoval = change.hasRemoval || std::ranges::any_of(entries, isGone);
  change.hasAddition = change.hasAddition || (change.hasRemoval && !_entries.empty());
  return change;
}

AlsaEndpointTable::Entry AlsaEndpointTable::entryFor(const AlsaPort& port, MIDIDirection direction,
                                                     Change& change) const {
  const std::string name = displayName(port);
  const Entry* old = known(port.address, direction);
  if (old == nullptr || old->endpoint.displayName != name) change.hasAddition = true;
  const MIDIObjectRef reference = old == nullptr ? _makeReference() : old->endpoint.reference;
  return {port.address, direction, {reference, name}};
}

const AlsaEndpointTable::Entry* AlsaEndpointTable::known(AlsaAddress address,
                                                         MIDIDirection direction) const {
  const auto entry = std::ranges::find_if(_entries, [&](const Entry& each) {
    return each.address == address && each.direction == direction;
  });
  return entry == _entries.end() ? nullptr : &*entry;
}

void AlsaEndpointTable::forget(AlsaAddress address) {
  const auto isIt = [address](const Entry& entry) { return entry.address == address; };
  _hasForgotten = std::erase_if(_entries, isIt) > 0 || _hasForgotten;
}

void AlsaEndpointTable::forgetClient(std::uint8_t client) {
  const auto isIt = [client](const Entry& entry) { return entry.address.client == client; };
  _hasForgotten = std::erase_if(_entries, isIt) > 0 || _hasForgotten;
}

std::vector<MIDIEndpoint> AlsaEndpointTable::endpoints(MIDIDirection direction) const {
  std::vector<MIDIEndpoint> found;
  for (const Entry& entry : _entries) {
    if (entry.direction == direction) found.push_back(entry.endpoint);
  }
  return found;
}

std::optional<AlsaAddress> AlsaEndpointTable::find(MIDIObjectRef reference,
                                                   MIDIDirection direction) const {
  const auto entry = std::ranges::find_if(_entries, [&](const Entry& each) {
    return each.endpoint.reference == reference && each.direction == direction;
  });
  if (entry == _entries.end()) return std::nullopt;
  return entry->address;
}
