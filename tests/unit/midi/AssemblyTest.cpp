// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include "LinkTest.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::size_t kMost = 20000;
constexpr const char* kDropped = "A message of more than 20000 bytes was dropped";

/// F0, then 7-bit bytes, then F7: `stored` bytes without the F7.
Bytes longMessage(std::size_t stored) {
  Bytes bytes = {0xF0};
  while (bytes.size() < stored) bytes.push_back(static_cast<std::uint8_t>(bytes.size() & 0x7F));
  bytes.push_back(0xF7);
  return bytes;
}

Bytes withoutEnd(const Bytes& message) {
  return {message.begin(), message.end() - 1};
}

class ByteAssemblyTest : public LinkTest {
 protected:
  ByteAssemblyTest() { listen(); }
  void receiveInPieces(const Bytes& message, std::size_t most) {
    for (std::size_t at = 0; at < message.size(); at += most) {
      const auto end = std::min(message.size(), at + most);
      receivePacket({message.begin() + static_cast<std::ptrdiff_t>(at),
                     message.begin() + static_cast<std::ptrdiff_t>(end)});
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Link, ByteAssemblyTest, testing::Values(MIDIPacketKind::BytePackets),
                         kindName);

TEST_P(ByteAssemblyTest, JoinsPackets) {
  receivePacket({0xF0, 0x52, 0x00, 0x00});
  EXPECT_THAT(delivered, IsEmpty());
  receivePacket({0x00, 0x15, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x52, 0x00, 0x00, 0x00, 0x15}));
}

TEST_P(ByteAssemblyTest, PutsBackALostStart) {
  receivePacket({0xF0, 0x01, 0xF7});
  receivePacket({0x00, 0x0F, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x01}, Bytes{0xF0, 0x00, 0x0F}));
}

TEST_P(ByteAssemblyTest, PutsBackALostStartAtTheVeryFirst) {
  receivePacket({0x00});
  receivePacket({0x0F, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x00, 0x0F}));
}

TEST_P(ByteAssemblyTest, TakesAnEndByItself) {
  receivePacket({0xF0, 0x01});
  receivePacket({0xF7});
  receivePacket({0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x01}, Bytes{0xF0}));
}

TEST_P(ByteAssemblyTest, BeginsAfreshAtEachStart) {
  receivePacket({0xF0, 0x01, 0x02});
  receivePacket({0xF0, 0x03});
  receivePacket({0x04, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x03, 0x04}));
}

TEST_P(ByteAssemblyTest, IgnoresAnEmptyPacket) {
  receivePacket({0xF0, 0x01});
  receivePacket({});
  receivePacket({0x02, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x01, 0x02}));
}

TEST_P(ByteAssemblyTest, TakesTwoMessagesInOnePacketAsOne) {
  receivePacket({0xF0, 0x01, 0xF7, 0xF0, 0x02, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x01, 0xF7, 0xF0, 0x02}));
}

TEST_P(ByteAssemblyTest, CountsAllOfALongPacketButKeepsAPart) {
  Bytes packet(300, 0x11);
  packet.front() = 0xF0;
  packet.back() = 0xF7;
  receivePacket(packet);
  Bytes expected(299, 0x00);
  std::fill_n(expected.begin(), 256, std::uint8_t{0x11});
  expected.front() = 0xF0;
  EXPECT_THAT(delivered, ElementsAre(expected));
}

TEST_P(ByteAssemblyTest, KeepsAllOfAPacketOf256) {
  const Bytes message = longMessage(255);
  receivePacket(message);
  EXPECT_THAT(delivered, ElementsAre(withoutEnd(message)));
}

TEST_P(ByteAssemblyTest, LogsEachMessage) {
  receivePacket({0xF0, 0x52, 0x00});
  EXPECT_EQ(platform.log, "");
  receivePacket({0x0A, 0xFF, 0xF7});
  EXPECT_EQ(platform.log, "LOG GL RECV <--- HW: F0,52,00,0A,FF,F7,\n\n");
}

TEST_P(ByteAssemblyTest, TakesAMessageThatFillsTheBuffer) {
  const Bytes message = longMessage(kMost);
  receiveInPieces(message, 256);
  EXPECT_THAT(delivered, ElementsAre(withoutEnd(message)));
}

TEST_P(ByteAssemblyTest, DropsALongerMessageWhole) {
  for (const std::size_t stored : {kMost + 1, kMost + 2, kMost + 256, 5 * kMost}) {
    platform.lines.clear();
    delivered.clear();
    receiveInPieces(longMessage(stored), 256);
    EXPECT_THAT(delivered, IsEmpty()) << stored;
    EXPECT_THAT(platform.lines, ElementsAre(kDropped)) << stored;
    receivePacket({0xF0, 0x52, 0xF7});
    receivePacket({0x01, 0xF7});
    EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x52}, Bytes{0xF0, 0x01})) << stored;
  }
}

TEST_P(ByteAssemblyTest, ForgetsALongMessageThatNeverEnds) {
  Bytes endless = longMessage(kMost + 500);
  endless.pop_back();
  receiveInPieces(endless, 200);
  receivePacket({0xF0, 0x52, 0xF7});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x52}));
}

class EventAssemblyTest : public LinkTest {
 protected:
  EventAssemblyTest() { listen(); }
};
INSTANTIATE_TEST_SUITE_P(Link, EventAssemblyTest, testing::Values(MIDIPacketKind::EventLists),
                         kindName);

TEST_P(EventAssemblyTest, TakesACompletePacket) {
  receiveWords({0x30055200, 0x00001500});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x52, 0x00, 0x00, 0x00, 0x15}));
}

TEST_P(EventAssemblyTest, JoinsStartContinueAndEnd) {
  receiveWords({0x30160102, 0x03040506});
  receiveWords({0x30220708, 0x00000000});
  EXPECT_THAT(delivered, IsEmpty());
  receiveWords({0x30310900, 0x00000000});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST_P(EventAssemblyTest, JoinsPacketsOfOneEvent) {
  receiveWords({0x30160102, 0x03040506, 0x30260708, 0x090A0B0C, 0x30310D00, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}));
}

TEST_P(EventAssemblyTest, TakesOnlyTheFirstOfTwoReplies) {
  receiveWords({0x30020102, 0, 0x30020304, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 1, 2}));
}

TEST_P(EventAssemblyTest, SkipsWhatFollowsAShortMessage) {
  receiveWords({0x20903C64, 0x30020304, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x90, 0x3C, 0x64}));
}

TEST_P(EventAssemblyTest, PutsAStartBeforeEveryShortMessage) {
  const std::vector<std::pair<std::uint32_t, std::size_t>> lengths = {
      {0x80, 3}, {0x8F, 3}, {0x9A, 3}, {0xA0, 3}, {0xB5, 3}, {0xBF, 3}, {0xC0, 2}, {0xCF, 2},
      {0xD0, 2}, {0xDF, 2}, {0xE0, 3}, {0xEF, 3}, {0xF0, 1}, {0xF1, 2}, {0xF2, 3}, {0xF3, 2},
      {0xF4, 1}, {0xF6, 1}, {0xF7, 1}, {0xF8, 1}, {0xFE, 1}, {0xFF, 1}, {0x10, 3}, {0x40, 2}};
  for (const auto& [status, length] : lengths) {
    for (const std::uint32_t type : {1U, 2U, 6U, 7U}) {
      delivered.clear();
      receiveWords({type << 28 | status << 16 | 0x3C64});
      Bytes expected = {0xF0, static_cast<std::uint8_t>(status), 0x3C, 0x64};
      expected.resize(1 + length);
      EXPECT_THAT(delivered, ElementsAre(expected)) << status << " of type " << type;
    }
  }
}

TEST_P(EventAssemblyTest, IgnoresUtilityMessages) {
  receiveWords({0x00100000, 0x00200000, 0x30010500, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5}));
}

TEST_P(EventAssemblyTest, WalksOverMessagesOfTwoAndThreeWords) {
  for (const std::uint32_t type : {4U, 8U, 9U, 0xAU}) {
    delivered.clear();
    receiveWords({type << 28, 0x30010700, 0x30010500, 0});
    EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5})) << type;
  }
  for (const std::uint32_t type : {0xBU, 0xCU}) {
    delivered.clear();
    receiveWords({type << 28, 0x30010700, 0x30010700, 0x30010500, 0});
    EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5})) << type;
  }
}

TEST_P(EventAssemblyTest, StopsAtA128BitMessage) {
  for (const std::uint32_t type : {5U, 0xDU, 0xEU, 0xFU}) {
    receiveWords({type << 28, 0, 0, 0, 0x30010500, 0});
    EXPECT_THAT(delivered, IsEmpty()) << type;
  }
}

TEST_P(EventAssemblyTest, IgnoresAnEmptyOrCutPacket) {
  receiveWords({});
  receiveWords({0x30050102});
  receiveWords({0x40000000});
  receiveWords({0xB0000000, 0});
  EXPECT_THAT(delivered, IsEmpty());
  receiveWords({0x30010500, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5}));
}

TEST_P(EventAssemblyTest, IgnoresAnUnknownStatus) {
  receiveWords({0x30120102, 0});
  for (std::uint32_t status = 4; status < 16; ++status) {
    receiveWords({0x30020909 | status << 20, 0});
  }
  receiveWords({0x30310300, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 1, 2, 3}));
}

TEST_P(EventAssemblyTest, AppendsNothingForAnImpossibleCount) {
  receiveWords({0x30110100, 0});
  for (std::uint32_t count = 7; count < 16; ++count) {
    receiveWords({0x30200909 | count << 16, 0x09090909});
  }
  receiveWords({0x30200909, 0});
  receiveWords({0x30300000, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 1}));
}

TEST_P(EventAssemblyTest, TakesEveryCount) {
  for (std::uint8_t count = 0; count <= 6; ++count) {
    delivered.clear();
    receiveWords({0x30000102U | std::uint32_t{count} << 16, 0x03040506});
    Bytes expected = {0xF0, 1, 2, 3, 4, 5, 6};
    expected.resize(1U + count);
    EXPECT_THAT(delivered, ElementsAre(expected));
  }
}

TEST_P(EventAssemblyTest, TakesAnyGroup) {
  receiveWords({0x3B010500, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5}));
}

TEST_P(EventAssemblyTest, PutsAStartBeforeAnEndWithoutOne) {
  receiveWords({0x30310500, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5}));
}

TEST_P(EventAssemblyTest, AppendsAStrayEndToTheLastMessage) {
  receiveWords({0x30010500, 0});
  receiveWords({0x30310600, 0});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 5}, Bytes{0xF0, 5, 6}));
}

TEST_P(EventAssemblyTest, LogsNoMessages) {
  receiveWords({0x30010500, 0});
  EXPECT_EQ(platform.log, "");
}

TEST_P(EventAssemblyTest, TakesAMessageThatFillsTheBuffer) {
  const Bytes message = longMessage(kMost);
  receive(message);
  EXPECT_THAT(delivered, ElementsAre(withoutEnd(message)));
}

TEST_P(EventAssemblyTest, DropsALongerMessageWhole) {
  for (const std::size_t stored : {kMost + 1, kMost + 6, kMost + 7, 3 * kMost}) {
    platform.lines.clear();
    delivered.clear();
    receive(longMessage(stored));
    EXPECT_THAT(delivered, IsEmpty()) << stored;
    EXPECT_THAT(platform.lines, ElementsAre(kDropped)) << stored;
    receive(longMessage(40));
    EXPECT_THAT(delivered, ElementsAre(withoutEnd(longMessage(40)))) << stored;
  }
}

TEST_P(EventAssemblyTest, TakesAShortMessageAfterALongOne) {
  Bytes endless = longMessage(kMost + 500);
  receiveWords({0x30160102, 0x03040506});
  for (int i = 0; i < 4000; ++i) receiveWords({0x30260102, 0x03040506});
  receiveWords({0x20903C64});
  EXPECT_THAT(delivered, ElementsAre(Bytes{0xF0, 0x90, 0x3C, 0x64}));
}

}  // namespace
