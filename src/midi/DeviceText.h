// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "midi/TARNDeviceInfo.h"

/// What the device record says, as people read it. Stateless.
class DeviceText {
 public:
  /// True for exactly 1; the sizes in the record are there for any number but 0.
  static bool hasCard(const TARNDeviceInfo& info) { return info._sdExist == 1; }
  /// "1.02": the last three characters of the version, as they came.
  static std::string firmware(const TARNDeviceInfo& info);
  /// "7.45 GB / 29.7 GB Used", or "-- GB / -- GB Used" without a card.
  static std::string used(const TARNDeviceInfo& info);
  /// Hours, minutes and seconds of recording, "05:12:33"; "--:--:--" without a card.
  static std::string remaining(const TARNDeviceInfo& info);
  /// The four bytes of the identity in hexadecimal, "10203040".
  static std::string deviceId(const TARNDeviceInfo& info);
};
