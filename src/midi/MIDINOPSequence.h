// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "midi/MIDISequenceBase.h"

/// Sends nothing, ignores everything: what is current before the first connection.
class MIDINOPSequence final : public MIDISequenceBase {};
