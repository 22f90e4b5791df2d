// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

// As much of a newer alsa-lib as the packets' wire uses, for tests where the installed one is
// older. `NewerAlsa.cpp` stands in for what is behind it.

#pragma GCC system_header  // as the one that it stands before
#include_next <alsa/asoundlib.h>

#include <cstring>

constexpr int SND_SEQ_CLIENT_UMP_MIDI_1_0 = 1;
constexpr unsigned char SND_SEQ_EVENT_UMP = 1 << 5;  // among the flags

struct snd_seq_ump_event_t {
  snd_seq_event_type_t type;
  unsigned char flags;
  char tag;
  unsigned char queue;
  snd_seq_timestamp_t time;
  snd_seq_addr_t source;
  snd_seq_addr_t dest;
  unsigned int ump[4];
};

int snd_seq_set_client_midi_version(snd_seq_t* sequencer, int version);
int snd_seq_ump_event_input(snd_seq_t* sequencer, snd_seq_ump_event_t** event);
int snd_seq_ump_event_output_direct(snd_seq_t* sequencer, snd_seq_ump_event_t* event);
int snd_ump_packet_length(unsigned int type);

inline bool snd_seq_ev_is_ump(const snd_seq_ump_event_t* event) {
  return (event->flags & SND_SEQ_EVENT_UMP) != 0;
}
inline void snd_seq_ump_ev_clear(snd_seq_ump_event_t* event) {
  std::memset(event, 0, sizeof *event);
}
inline void snd_seq_ev_set_ump(snd_seq_ump_event_t* event) {
  event->flags |= SND_SEQ_EVENT_UMP;
}
