// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "midi/MIDISequenceBase.h"

/// A sequence with a step counter: it has completed when the step is 0, by its last reply, by a
/// time-out or by `dispose`.
class MIDIStepSequence : public MIDISequenceBase {
 public:
  void sequenceTimeOut(const std::string& description) override;
  void dispose() override;
  [[nodiscard]] bool didCompleted() const override { return _seq == 0; }

 protected:
  /// Sends a whole message from F0 to F7.
  static void send(std::span<const std::uint8_t> message);

  [[nodiscard]] std::int64_t seq() const { return _seq; }
  void setSeq(std::int64_t step) { _seq = step; }

 private:
  std::int64_t _seq = 0;  ///< which reply is waited for
};
