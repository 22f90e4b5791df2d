// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary messages to the change of a setting. An input is a byte whose lowest bit is the
// setting, four of its code, and replies with time that passes between them.

#include <memory>

#include "SequenceBench.h"
#include "midi/MIDISettingSequence.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  SequenceBench bench;
  const bool isBattery = (input.take<std::uint8_t>() & 1) == 0;
  const auto code = input.take<std::int32_t>();
  std::unique_ptr<MIDISettingSequence> setting;
  if (isBattery) setting = std::make_unique<MIDIBatteryTypeSequence>();
  if (!isBattery) setting = std::make_unique<MIDIAutoPowOffSequence>();
  setting->setParam(code);
  setting->startSequence();
  const auto sub = static_cast<std::uint8_t>(isBattery ? 1 : 2);
  const Message request = {0xF0, 0x52, 0, 0, 0x31, sub, static_cast<std::uint8_t>(code), 0xF7};
  require(bench.sent == request, "the request");
  const Awaited awaited{6, 0x00, isBattery ? 0x10 : 0x11};
  int hundredths = 0;
  bool hasEnded = false;
  for (int messages = 0; messages < 20; ++messages) {
    const auto pause = input.take<std::uint8_t>();
    bench.clock->advance(pause / 100.0);
    hundredths += pause;
    hasEnded = hasEnded || hundredths >= 200;
    require(setting->didCompleted() == hasEnded, "it ends after two seconds");
    const Message reply = SequenceBench::reply(input, awaited.good());
    setting->receivedMidi(reply.data(), static_cast<std::int32_t>(reply.size()));
    hasEnded = hasEnded || awaited.is(reply);
    require(setting->didCompleted() == hasEnded, "it ends with its acknowledgement");
  }
  require(bench.sent == request, "one request");
  setting->dispose();
  require(bench.clock->running() == 0, "nothing is left");
  return 0;
}
