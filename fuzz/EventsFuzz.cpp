// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Arbitrary Universal MIDI Packets through the reassembly of messages, held to a plain model. An
// input is event packets: a byte for the number of words, one for how often the packet comes, and
// its words.

#include <array>
#include <string_view>

#include "LinkModel.h"
#include "base/Log.h"
#include "midi/MIDIEventAssembler.h"

namespace {

std::size_t lengthOf(unsigned status) {
  static constexpr std::array<std::size_t, 8> kChannel = {3, 3, 3, 3, 2, 2, 3, 0};
  static constexpr std::array<std::size_t, 16> kSystem = {1, 2, 3, 2, 1, 1, 1, 1,
                                                          1, 1, 1, 1, 1, 1, 1, 1};
  const unsigned kind = status >> 4 & 7;
  return kind == 7 ? kSystem[status & 15] : kChannel[kind];
}

class PlainAssembler {
 public:
  bool convert(const std::vector<std::uint32_t>& words) {
    static constexpr std::array<std::size_t, 16> kWords = {1, 1, 1, 2, 2, 4, 1, 1,
                                                           2, 2, 2, 3, 3, 4, 4, 4};
    for (std::size_t at = 0; at < words.size();) {
      const std::size_t count = kWords[words[at] >> 28];
      if (count == 4 || at + count > words.size()) return false;
      const unsigned type = words[at] >> 28;
      if (type == 3 && takeSysEx(words[at], words[at + 1])) return true;
      if (count == 1 && type != 0) return takeShort(words[at]);
      at += count;
    }
    return false;
  }

  PlainMessage message;

 private:
  bool takeSysEx(std::uint32_t first, std::uint32_t second) {
    const unsigned status = first >> 20 & 15;
    const unsigned count = first >> 16 & 15;
    if (status > 3) return false;
    if (status < 2) message.bytes = {0xF0};
    const std::uint64_t payload = std::uint64_t{first & 0xFFFF} << 32 | second;
    for (unsigned i = 0; count <= 6 && i < count; ++i) {
      message.bytes.push_back(static_cast<std::uint8_t>(payload >> (40 - 8 * i)));
    }
    return (status == 0 || status == 3) && message.close();
  }
  bool takeShort(std::uint32_t word) {
    message.bytes = {0xF0};
    for (const int shift : {16, 8, 0}) {
      message.bytes.push_back(static_cast<std::uint8_t>(word >> shift));
    }
    message.bytes.resize(1 + lengthOf(message.bytes[1]));
    return true;
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Log::setSink([](std::string_view) {});
  FuzzInput input(data, size);
  MIDIReceiveBuffer buffer;
  PlainAssembler plain;
  for (int packets = 0; packets < 200; ++packets) {
    const std::size_t count = input.take<std::uint8_t>() % 16;
    const int times = 1 << input.take<std::uint8_t>() % 10;
    const auto words = takeMany<std::uint32_t>(input, count);
    for (int i = 0; i < times; ++i) {
      const bool isComplete = MIDIEventAssembler::convertMidiPacket2ByteArr(buffer, {0, words});
      require(isComplete == plain.convert(words), "a message is complete where it ends");
      if (isComplete) plain.message.requireSame(buffer);
    }
  }
  const std::vector<std::uint32_t> healthy = {0x30015200, 0};
  require(MIDIEventAssembler::convertMidiPacket2ByteArr(buffer, {0, healthy}),
          "the next message arrives");
  require(buffer.count() == 2 && buffer.bytes()[1] == 0x52, "the next message is right");
  return 0;
}
