// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/SDCardReport.h"

#include <algorithm>
#include <cmath>

#include "base/Placeholder.h"
#include "midi/RecorderProtocol.h"
#include "midi/SizeText.h"

namespace {

constexpr std::size_t kLength = 30;

void fillCard(const RecorderProtocol::Card& card, TARNDeviceInfo& info) {
  info._sdRemaining = card.remaining;
  info._sdUsedBuff = card.used;
  info._sdMaxBuff = card.capacity;
  info._sdUsedSize = SizeText::of(SDCardReport::size(info._sdUsedBuff));
  info._sdMaxSize = SizeText::of(SDCardReport::size(info._sdMaxBuff));
}

void clearCard(TARNDeviceInfo& info) {
  info._sdRemaining.fill(0);
  std::fill_n(info._sdUsedBuff.begin(), 3, std::uint8_t{0});
  std::fill_n(info._sdMaxBuff.begin(), 3, std::uint8_t{0});
  info._sdUsedSize = info._sdMaxSize = Placeholder::kSize;
}

}  // namespace

bool SDCardReport::isOne(const std::uint8_t* bytes, std::int32_t length) {
  const RecorderProtocol::View message(bytes, static_cast<std::size_t>(length));
  return RecorderProtocol::isReply(RecorderProtocol::Reply::Card, message);
}

void SDCardReport::read(const std::uint8_t* bytes, TARNDeviceInfo& info) {
  const auto card = RecorderProtocol::cardOf({bytes, kLength});
  info._sdExist = card.isThere;
  info._sdExist != 0 ? fillCard(card, info) : clearCard(info);
}

float SDCardReport::size(const Groups& groups) {
  static constexpr std::array<int, 10> kShifts = {0, 7, 14, 21, 28, 35, 42, 47, 56, 63};
  float sum = 0.0F;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    sum += std::ldexp(static_cast<float>(groups[i]), kShifts[i]);
  }
  return sum;
}
