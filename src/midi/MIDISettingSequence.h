// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "midi/MIDIStepSequence.h"
#include "midi/RecorderProtocol.h"

/// Changes one setting of the recorder, acknowledged within two seconds or not. The device record
/// is not touched; the next handshake tells.
class MIDISettingSequence : public MIDIStepSequence {
 public:
  /// The code to set; its low 8 bits are sent.
  void setParam(std::int32_t code) { _param = code; }

  void startSequence() override;
  void receivedMidi(const std::uint8_t* bytes, std::int32_t length) override;

 protected:
  struct Setting {
    const char* description;
    RecorderProtocol::Request request;
  };

  explicit MIDISettingSequence(const Setting& setting) : _setting(setting) {}

 private:
  Setting _setting;
  std::int32_t _param = 0;
};

class MIDIBatteryTypeSequence : public MIDISettingSequence {
 public:
  MIDIBatteryTypeSequence()
      : MIDISettingSequence(
            {"CONTROL_SEQUENCE_BT_CHG_REQ", RecorderProtocol::Request::SetBatteryType}) {}
};

class MIDIAutoPowOffSequence : public MIDISettingSequence {
 public:
  MIDIAutoPowOffSequence()
      : MIDISettingSequence(
            {"CONTROL_SEQUENCE_APO_CHG_REQ", RecorderProtocol::Request::SetAutoPowerOff}) {}
};
