// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary byte packets through the reassembly of messages, held to a plain model. An input is
// packets: two bytes for the length, one for how often the packet comes, and its bytes.

#include <string_view>

#include "LinkModel.h"
#include "base/Log.h"
#include "midi/MIDILog.h"
#include "midi/MIDIPacketAssembler.h"

namespace {

/// What a packet of more than 256 bytes leaves behind is zeros.
class PlainAssembler {
 public:
  bool store(const Message& packet) {
    if (packet.empty()) return false;
    if (packet.front() == 0xF0) {
      message.bytes.clear();
    } else if (_isFinished) {
      message.bytes = {0xF0};
    }
    const std::size_t end = message.bytes.size() + packet.size();
    const auto kept = static_cast<std::ptrdiff_t>(std::min<std::size_t>(packet.size(), 256));
    message.bytes.insert(message.bytes.end(), packet.begin(), packet.begin() + kept);
    message.bytes.resize(end);
    _isFinished = packet.back() == 0xF7;
    if (!_isFinished) return false;
    message.bytes.pop_back();
    return message.close();
  }

  PlainMessage message;

 private:
  bool _isFinished = true;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MIDILog::setSink([](std::string_view) {});
  Log::setSink([](std::string_view) {});
  FuzzInput input(data, size);
  MIDIReceiveBuffer buffer;
  MIDIPacketAssembler assembler;
  PlainAssembler plain;
  for (int packets = 0; packets < 100; ++packets) {
    const std::size_t length = input.take<std::uint16_t>() % 700;
    const int times = 1 + input.take<std::uint8_t>() % 16;
    const auto packet = takeMany<std::uint8_t>(input, length);
    for (int i = 0; i < times; ++i) {
      const bool isComplete = assembler.storeToBuffer(buffer, {0, packet});
      require(isComplete == plain.store(packet), "a message is complete where it ends");
      if (isComplete) plain.message.requireSame(buffer);
    }
  }
  const Message healthy = {0xF0, 0x52, 0xF7};
  require(assembler.storeToBuffer(buffer, {0, healthy}), "the next message arrives");
  require(buffer.count() == 2 && buffer.bytes()[1] == 0x52, "the next message is right");
  return 0;
}
