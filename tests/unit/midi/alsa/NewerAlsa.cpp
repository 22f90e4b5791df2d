// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "NewerAlsa.h"

#include <array>
#include <cerrno>

NewerAlsa& NewerAlsa::get() {
  static NewerAlsa alsa;
  return alsa;
}

int snd_seq_set_client_midi_version(snd_seq_t* /*sequencer*/, int version) {
  NewerAlsa::get().askedVersion = version;
  return NewerAlsa::get().versionStatus;
}

// The event belongs to the sequencer until the next one is asked for.
int snd_seq_ump_event_input(snd_seq_t* /*sequencer*/, snd_seq_ump_event_t** event) {
  static snd_seq_ump_event_t current;
  auto& incoming = NewerAlsa::get().incoming;
  if (incoming.empty()) return -EAGAIN;
  current = incoming.front();
  incoming.pop_front();
  *event = &current;
  return 1;
}

int snd_seq_ump_event_output_direct(snd_seq_t* /*sequencer*/, snd_seq_ump_event_t* event) {
  NewerAlsa::get().written.push_back(*event);
  return NewerAlsa::get().writeStatus;
}

// Words of a packet by its type: M2-104-UM, 2.1.4.
int snd_ump_packet_length(unsigned int type) {
  constexpr std::array<int, 16> kWords{1, 1, 1, 2, 2, 4, 1, 1, 2, 2, 2, 3, 3, 4, 4, 4};
  return kWords[type & 0xF];
}
