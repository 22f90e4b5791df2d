// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "midi/MIDISystem.h"

inline std::string kindName(const testing::TestParamInfo<MIDIPacketKind>& info) {
  return info.param == MIDIPacketKind::EventLists ? "EventLists" : "BytePackets";
}

/// Runs the cases of a suite once with each kind of packet.
#define MIXDECK_BOTH_KINDS(suite)                                                            \
  INSTANTIATE_TEST_SUITE_P(                                                                  \
      Link, suite, testing::Values(MIDIPacketKind::BytePackets, MIDIPacketKind::EventLists), \
      kindName)
