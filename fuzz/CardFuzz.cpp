// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary messages to what listens for card reports. An input is messages.

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "SequenceBench.h"
#include "midi/MIDIRecvSDCardRemain.h"

namespace {

constexpr Awaited kReport{30, 0x67, 0x00};

/// The size in ten groups of seven bits, by the C library's formats.
std::string plainSize(const std::uint8_t* groups) {
  static constexpr std::array<int, 10> kShifts = {0, 7, 14, 21, 28, 35, 42, 47, 56, 63};
  float size = 0;
  for (std::size_t i = 0; i < kShifts.size(); ++i) {
    size += static_cast<float>(groups[i] * std::pow(2.0, kShifts[i]));
  }
  const bool isSmall = size < 1073741824.0F;
  const double value = static_cast<double>(size) / (isSmall ? 1048576.0 : 1073741824.0);
  std::array<char, 64> text{};
  const char* const unit = isSmall ? "MB" : "GB";
  if (value < 100) {
    std::snprintf(text.data(), text.size(), value < 10 ? "%.2f %s" : "%.1f %s", value, unit);
  } else {
    std::snprintf(text.data(), text.size(), "%3lld %s", static_cast<long long>(value), unit);
  }
  return text.data();
}

void requireRead(const TARNDeviceInfo& info, const TARNDeviceInfo& before, const Message& report) {
  require(info._sdExist == report[6], "card");
  if (report[6] == 0) {
    require(info._sdUsedSize == "-- GB" && info._sdMaxSize == "-- GB", "no sizes");
    require(info._sdUsedBuff[2] == 0 && info._sdUsedBuff[3] == before._sdUsedBuff[3], "cleared");
    return;
  }
  require(info._sdRemaining[2] == report[9], "remaining");
  require(info._sdUsedSize == plainSize(report.data() + 10), "used");
  require(info._sdMaxSize == plainSize(report.data() + 20), "capacity");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  SequenceBench bench;
  const auto info = std::make_shared<TARNDeviceInfo>();
  MIDIRecvSDCardRemain listener;
  listener.setDeviceInfo(info);
  bool isListening = false;
  for (int messages = 0; messages < 30; ++messages) {
    const auto what = input.take<std::uint8_t>();
    if (what % 8 == 0) listener.dispose();
    if (what % 8 == 1) listener.startSequence();
    isListening = what % 8 == 1 || (isListening && what % 8 != 0);
    const Message reply = SequenceBench::reply(input, kReport.good());
    const TARNDeviceInfo before = *info;
    listener.receivedMidi(reply.data(), static_cast<std::int32_t>(reply.size()));
    if (isListening && kReport.is(reply)) {
      requireRead(*info, before, reply);
    } else {
      require(info->_sdMaxBuff == before._sdMaxBuff && info->_sdExist == before._sdExist,
              "other messages change nothing");
    }
    require(listener.didCompleted(), "nothing waits for it");
  }
  require(bench.sent.empty() && bench.clock->running() == 0, "it sends nothing and never waits");
  return 0;
}
