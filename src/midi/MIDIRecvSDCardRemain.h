// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "midi/MIDIStepSequence.h"
#include "midi/TARNDeviceInfo.h"

/// Listens for the card reports that the recorder sends by itself, while nothing else runs. It has
/// always completed, so nothing waits for it and its completion follows every message.
class MIDIRecvSDCardRemain final : public MIDIStepSequence {
 public:
  void setDeviceInfo(std::shared_ptr<TARNDeviceInfo> info) { _deviceInfo = std::move(info); }

  void startSequence() override { setSeq(kListening); }
  void receivedMidi(const std::uint8_t* bytes, std::int32_t length) override;
  [[nodiscard]] bool didCompleted() const override { return true; }

 private:
  static constexpr std::int64_t kListening = 1;

  std::shared_ptr<TARNDeviceInfo> _deviceInfo;
};
