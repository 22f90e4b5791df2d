// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "midi/MIDIStepSequence.h"
#include "midi/TARNDeviceInfo.h"

/// The handshake of each connection: who the recorder is, its version, card and settings go into
/// the record, and its clock is set.
///
/// The first two requests time out after two seconds. The later ones wait for ever, which is kept
/// on purpose. Bytes 1 to 3 of a reply are not looked at.
class MIDIConnectSequence : public MIDIStepSequence {
 public:
  void setDeviceInfo(std::shared_ptr<TARNDeviceInfo> info) { _deviceInfo = std::move(info); }

  void startSequence() override;
  void receivedMidi(const std::uint8_t* bytes, std::int32_t length) override;

  /// The step that is waited in, 2 to 14, for a report of where a handshake stopped; 0 = none.
  [[nodiscard]] std::int64_t step() const { return seq(); }

  /// A size in bytes for people: "0.75 MB", "29.7 GB", "119 GB"; GB from 2^30 bytes on.
  static std::string buildSizeString(float size);

 private:
  struct Reply;
  static const std::array<Reply, 7>& replies();

  void identified(const std::uint8_t* bytes);
  void started(const std::uint8_t* bytes);
  void versionTold(const std::uint8_t* bytes);
  void cardTold(const std::uint8_t* bytes);
  void batteryTold(const std::uint8_t* bytes);
  void autoPowOffTold(const std::uint8_t* bytes);
  void dateTimeSet(const std::uint8_t* bytes);
  static void sendDateTime();

  std::shared_ptr<TARNDeviceInfo> _deviceInfo;
};
