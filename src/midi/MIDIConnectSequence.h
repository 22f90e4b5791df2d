// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "midi/MIDIStepSequence.h"
#include "midi/RecorderProtocol.h"
#include "midi/TARNDeviceInfo.h"

/// The handshake of each connection: who the recorder is, its version, card and settings go into
/// the record, and its clock is set.
///
/// The first two requests time out after two seconds. The later ones wait for ever, which is kept
/// on purpose.
class MIDIConnectSequence : public MIDIStepSequence {
 public:
  void setDeviceInfo(std::shared_ptr<TARNDeviceInfo> info) { _deviceInfo = std::move(info); }

  void startSequence() override;
  void receivedMidi(const std::uint8_t* bytes, std::int32_t length) override;

  /// The step that is waited in, 2 to 14, for a report of where a handshake stopped; 0 = none.
  [[nodiscard]] std::int64_t step() const { return seq(); }

  // No program calls what follows; it belongs to the system's interface.

  /// A size in bytes for people: "0.75 MB", "29.7 GB", "119 GB"; GB from 2^30 bytes on.
  static std::string buildSizeString(float size);

 private:
  using View = RecorderProtocol::View;

  struct Awaited;
  static const std::array<Awaited, 7>& steps();

  void ask(RecorderProtocol::Request request, std::int64_t step);
  void identified(View reply);
  void started(View reply);
  void versionTold(View reply);
  void cardTold(View reply);
  void batteryTold(View reply);
  void autoPowOffTold(View reply);
  void dateTimeSet(View reply);

  std::shared_ptr<TARNDeviceInfo> _deviceInfo;
};
