// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <random>

#include "LinkTest.h"
#include "midi/MIDIWireReader.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Some messages of 1 to `most` bytes between F0 and F7, the same for the same seed.
std::vector<Bytes> messages(std::mt19937& random, std::size_t most) {
  std::vector<Bytes> made(1 + random() % 6);
  for (Bytes& message : made) {
    message.push_back(0xF0);
    for (std::size_t left = 1 + random() % most; left > 0; --left) {
      message.push_back(static_cast<std::uint8_t>(random() % 0x80));
    }
    message.push_back(0xF7);
  }
  return made;
}

/// Calls `take` with pieces of 1 to `most` elements, cut anywhere.
template <class Values, class Take>
void cut(std::mt19937& random, const Values& values, std::size_t most, Take take) {
  for (auto at = values.begin(); at != values.end();) {
    const auto left = static_cast<std::size_t>(values.end() - at);
    const auto size = std::min<std::size_t>(left, 1 + random() % most);
    const auto end = at + static_cast<std::ptrdiff_t>(size);
    take(Values(at, end));
    at = end;
  }
}

/// Random streams, cut in random ways; whatever the cuts, the messages arrive as they were.
class SysExPropertyTest : public LinkTest {
 protected:
  SysExPropertyTest() { listen(); }

  void expectArrived(const std::vector<Bytes>& expected, std::uint32_t seed) {
    ASSERT_EQ(delivered.size(), expected.size()) << seed;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(delivered[i], Bytes(expected[i].begin(), expected[i].end() - 1)) << seed;
    }
    delivered.clear();
  }
  /// As a MIDI system would hand on the bytes of a cable.
  void receiveWire(const Bytes& bytes) {
    for (const auto& piece : _reader.feed(bytes)) {
      if (!hasEvents()) {
        receivePacket(piece);
        continue;
      }
      for (const auto& words : _events.feed(piece)) receiveWords(words);
    }
  }

 private:
  MIDIWireReader _reader;
  MIDIWireEvents _events;
};
MIXDECK_BOTH_KINDS(SysExPropertyTest);

constexpr std::uint32_t kRuns = 1000;

TEST_P(SysExPropertyTest, ArrivesWhereverTheWireIsCut) {
  for (std::uint32_t seed = 0; seed < kRuns; ++seed) {
    std::mt19937 random(seed);
    const auto expected = messages(random, seed % 10 == 0 ? 3000 : 60);
    Bytes stream;
    for (const Bytes& each : expected) stream.insert(stream.end(), each.begin(), each.end());
    const std::size_t most = 1 + random() % 400;
    cut(random, stream, most, [this](const Bytes& piece) { receiveWire(piece); });
    expectArrived(expected, seed);
  }
}

// Two messages in one stream of eleven bytes, in each of the 1024 ways to cut it.
TEST_P(SysExPropertyTest, ArrivesInEveryWayToCutAShortStream) {
  const std::vector<Bytes> expected = {{0xF0, 0x52, 0x00, 0x00, 0x00, 0x15, 0xF7},
                                       {0xF0, 0x01, 0x02, 0xF7}};
  Bytes stream = expected[0];
  stream.insert(stream.end(), expected[1].begin(), expected[1].end());
  for (std::uint32_t cuts = 0; cuts < 1U << (stream.size() - 1); ++cuts) {
    Bytes piece;
    for (std::size_t i = 0; i < stream.size(); ++i) {
      piece.push_back(stream[i]);
      const bool isCut = i + 1 == stream.size() || (cuts >> i & 1) != 0;
      if (isCut) receiveWire(std::exchange(piece, {}));
    }
    expectArrived(expected, cuts);
  }
}

TEST_P(SysExPropertyTest, ArrivesWithRealTimeAnywhere) {
  for (std::uint32_t seed = 0; seed < kRuns; ++seed) {
    std::mt19937 random(seed);
    const auto expected = messages(random, 60);
    Bytes stream;
    for (const Bytes& each : expected) {
      for (const std::uint8_t byte : each) {
        if (random() % 3 == 0) stream.push_back(static_cast<std::uint8_t>(0xF8 + random() % 8));
        stream.push_back(byte);
      }
    }
    cut(random, stream, 20, [this](const Bytes& piece) { receiveWire(piece); });
    expectArrived(expected, seed);
  }
}

TEST_P(SysExPropertyTest, ArrivesHoweverItsPacketsAreGrouped) {
  for (std::uint32_t seed = 0; seed < kRuns; ++seed) {
    std::mt19937 random(seed);
    const auto expected = messages(random, seed % 10 == 0 ? 3000 : 60);
    for (const Bytes& each : expected) {
      if (!hasEvents()) {
        cut(random, each, 256, [this](const Bytes& piece) { receivePacket(piece); });
        continue;
      }
      const auto packets =
          MIDICommon::convertByteToPacket(each.data(), static_cast<std::int64_t>(each.size()));
      cut(random, packets.value(), 8, [this](const std::vector<GLPacket>& group) {
        std::vector<std::uint32_t> words;
        for (const GLPacket& packet : group) {
          words.insert(words.end(), packet.data.begin(), packet.data.end());
        }
        receiveWords(words);
      });
    }
    expectArrived(expected, seed);
  }
}

TEST_P(SysExPropertyTest, SurvivesNoise) {
  std::mt19937 random(4711);
  for (int i = 0; i < 20000; ++i) {
    Bytes bytes(random() % 300);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    if (random() % 4 == 0 && !bytes.empty()) bytes.back() = 0xF7;
    if (!hasEvents()) {
      receivePacket(bytes);
      continue;
    }
    std::vector<std::uint32_t> words(bytes.size() / 16);
    for (std::uint32_t& word : words) word = static_cast<std::uint32_t>(random());
    if (!words.empty() && random() % 2 == 0) words[0] = 0x30000000 | (words[0] & 0x0FFFFFFF);
    receiveWords(words);
  }
  EXPECT_GT(delivered.size(), 100U);
  for (const Bytes& each : delivered) {
    ASSERT_EQ(each.front(), 0xF0);
    ASSERT_LE(each.size(), MIDIReceiveBuffer::kCapacity);
  }
  delivered.clear();
  receive({0xF0, 0x52, 0x01, 0xF7});
  EXPECT_THAT(delivered, testing::ElementsAre(Bytes{0xF0, 0x52, 0x01}));
}

}  // namespace
