// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "midi/MIDISystem.h"
#include "midi/alsa/AlsaEvent.h"

/// The endpoints of other clients' ports and their references. A port that has gone and come back
/// is a new endpoint, although the sequencer gives it the same numbers again. Plain data of the
/// interface thread.
class AlsaEndpointTable {
 public:
  /// What the clients have not been told yet. A new name is an addition: it may be the one that
  /// somebody waits for. So is whatever stays when something else goes: clients end their links at
  /// any removal, and look around again at an addition.
  struct Change {
    bool hasAddition = false;
    bool hasRemoval = false;
  };

  explicit AlsaEndpointTable(std::function<MIDIObjectRef()> makeReference)
      : _makeReference(std::move(makeReference)) {}

  /// Takes the sequencer's present ports, and tells what is different from the last time.
  Change update(const std::vector<AlsaPort>& ports);
  /// This port, or everything of this client, is gone from now on; `update` will tell.
  void forget(AlsaAddress address);
  void forgetClient(std::uint8_t client);

  /// In the sequencer's order.
  [[nodiscard]] std::vector<MIDIEndpoint> endpoints(MIDIDirection direction) const;
  /// None for a reference of nothing, or of something that has gone.
  [[nodiscard]] std::optional<AlsaAddress> find(MIDIObjectRef reference,
                                                MIDIDirection direction) const;

  /// As players show it: the client's name and the port's, unless that begins with the client's.
  static std::string displayName(const AlsaPort& port);

 private:
  struct Entry {
    AlsaAddress address;
    MIDIDirection direction;
    MIDIEndpoint endpoint;
  };

  [[nodiscard]] const Entry* known(AlsaAddress address, MIDIDirection direction) const;
  Entry entryFor(const AlsaPort& port, MIDIDirection direction, Change& change) const;

  std::function<MIDIObjectRef()> _makeReference;
  std::vector<Entry> _entries;
  bool _hasForgotten = false;
};
