// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <alsa/asoundlib.h>

#include <deque>
#include <vector>

/// The far side of the calls that a newer alsa-lib has: what the kernel says and gives, what it
/// got.
struct NewerAlsa {
  int versionStatus = 0;  ///< of the client's MIDI version
  int askedVersion = -1;
  int writeStatus = 0;
  std::deque<snd_seq_ump_event_t> incoming;
  std::vector<snd_seq_ump_event_t> written;

  /// The one of the test that runs.
  static NewerAlsa& get();
};
