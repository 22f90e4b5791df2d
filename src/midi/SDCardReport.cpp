// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/SDCardReport.h"

#include <algorithm>
#include <cmath>

#include "midi/MIDIConnectSequence.h"

namespace {

constexpr std::int32_t kLength = 30;
constexpr const char* kNoSize = "-- GB";

void readCard(const std::uint8_t* bytes, TARNDeviceInfo& info) {
  std::copy_n(bytes + 7, info._sdRemaining.size(), info._sdRemaining.begin());
  std::copy_n(bytes + 10, info._sdUsedBuff.size(), info._sdUsedBuff.begin());
  std::copy_n(bytes + 20, info._sdMaxBuff.size(), info._sdMaxBuff.begin());
  info._sdUsedSize = MIDIConnectSequence::buildSizeString(SDCardReport::size(info._sdUsedBuff));
  info._sdMaxSize = MIDIConnectSequence::buildSizeString(SDCardReport::size(info._sdMaxBuff));
}

void clearCard(TARNDeviceInfo& info) {
  info._sdRemaining.fill(0);
  std::fill_n(info._sdUsedBuff.begin(), 3, std::uint8_t{0});
  std::fill_n(info._sdMaxBuff.begin(), 3, std::uint8_t{0});
  info._sdUsedSize = info._sdMaxSize = kNoSize;
}

}  // namespace

bool SDCardReport::isOne(const std::uint8_t* bytes, std::int32_t length) {
  return length == kLength && bytes[4] == 0x67 && bytes[5] == 0x00;
}

void SDCardReport::read(const std::uint8_t* bytes, TARNDeviceInfo& info) {
  info._sdExist = bytes[6];
  info._sdExist != 0 ? readCard(bytes, info) : clearCard(info);
}

float SDCardReport::size(const Groups& groups) {
  static constexpr std::array<int, 10> kShifts = {0, 7, 14, 21, 28, 35, 42, 47, 56, 63};
  float sum = 0.0F;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    sum += std::ldexp(static_cast<float>(groups[i]), kShifts[i]);
  }
  return sum;
}
