// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "midi/MIDIClock.h"

/// The real time, with timers in the event loop of the thread that starts them.
class QtMIDIClock final : public MIDIClock {
 public:
  [[nodiscard]] std::unique_ptr<MIDITimer> after(double seconds,
                                                 std::function<void()> fire) override;
  [[nodiscard]] std::uint64_t hostTime() const override;
  [[nodiscard]] MIDICalendarTime localTime() const override;
};
