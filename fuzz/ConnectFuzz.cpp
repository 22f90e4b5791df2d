// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary messages to a handshake. An input is replies, good, almost good or not at all, and
// time that passes between them.

#include <array>

#include "SequenceBench.h"
#include "midi/MIDIConnectSequence.h"

namespace {

constexpr std::array<Awaited, 7> kAwaited = {{{14, 0x02, -1},
                                              {6, 0x00, 0x15},
                                              {10, 0x11, 0x01},
                                              {30, 0x67, 0x00},
                                              {7, 0x45, 0x01},
                                              {7, 0x45, 0x02},
                                              {6, 0x00, 0x0F}}};
/// Bytes on the wire before the answer of each step.
constexpr std::array<std::size_t, 8> kSent = {6, 12, 19, 26, 33, 40, 54, 54};
constexpr int kTimeOut = 200;  // hundredths of a second

void requireTold(const TARNDeviceInfo& info, std::size_t step, const Message& reply) {
  if (step == 0) {
    require(std::equal(reply.begin() + 5, reply.begin() + 9, info._device_id.begin()), "identity");
    require(info._version[3] == reply[12], "the identity's version");
  }
  if (step == 2) require(info._version[1] == reply[7] && info._version[3] == reply[9], "version");
  if (step == 3) require(info._sdExist == reply[6], "card");
  if (step == 4) require(info._batteryType == reply[6], "battery type");
  if (step == 5) require(info._autoPowOffType == reply[6], "auto power-off");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  SequenceBench bench;
  const auto info = std::make_shared<TARNDeviceInfo>();
  MIDIConnectSequence handshake;
  handshake.setDeviceInfo(info);
  handshake.startSequence();
  std::size_t step = 0;
  int hundredths = 0;
  for (int messages = 0; messages < 30 && step < kAwaited.size(); ++messages) {
    const auto pause = input.take<std::uint8_t>();
    bench.clock->advance(pause / 100.0);
    hundredths += pause;
    const bool isOver = step < 2 && hundredths >= kTimeOut;
    require(handshake.didCompleted() == isOver, "only the first two steps time out");
    if (isOver) break;
    const Message reply = SequenceBench::reply(input, kAwaited[step].good());
    handshake.receivedMidi(reply.data(), static_cast<std::int32_t>(reply.size()));
    if (!kAwaited[step].is(reply)) continue;
    requireTold(*info, step, reply);
    ++step;
    hundredths = 0;
    require(bench.sent.size() == kSent[step], "one request a step");
    require(handshake.step() == (step < 7 ? static_cast<std::int64_t>(2 * step + 2) : 0), "step");
  }
  handshake.dispose();
  require(handshake.didCompleted() && bench.clock->running() == 0, "nothing is left");
  return 0;
}
