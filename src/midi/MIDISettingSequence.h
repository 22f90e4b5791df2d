// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "midi/MIDIStepSequence.h"

/// Changes one setting of the recorder: F0 52 00 00 31 sub-command code F7, acknowledged within two
/// seconds or not. The device record is not touched; the next handshake tells.
class MIDISettingSequence : public MIDIStepSequence {
 public:
  /// The code to set; its low 8 bits are sent.
  void setParam(std::int32_t code) { _param = code; }

  void startSequence() override;
  void receivedMidi(const std::uint8_t* bytes, std::int32_t length) override;

 protected:
  struct Setting {
    const char* description;
    std::uint8_t subCommand;
    std::uint8_t acknowledgement;
  };

  explicit MIDISettingSequence(const Setting& setting) : _setting(setting) {}

 private:
  Setting _setting;
  std::int32_t _param = 0;
};

class MIDIBatteryTypeSequence : public MIDISettingSequence {
 public:
  MIDIBatteryTypeSequence() : MIDISettingSequence({"CONTROL_SEQUENCE_BT_CHG_REQ", 0x01, 0x10}) {}
};

class MIDIAutoPowOffSequence : public MIDISettingSequence {
 public:
  MIDIAutoPowOffSequence() : MIDISettingSequence({"CONTROL_SEQUENCE_APO_CHG_REQ", 0x02, 0x11}) {}
};
