// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDICommon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;

std::optional<std::vector<GLPacket>> convert(const Bytes& bytes) {
  return MIDICommon::convertByteToPacket(bytes.data(), static_cast<std::int64_t>(bytes.size()));
}

/// F0, `payload` bytes 1, 2, 3 ..., F7.
Bytes message(std::size_t payload) {
  Bytes bytes = {0xF0};
  for (std::size_t i = 1; i <= payload; ++i) bytes.push_back(static_cast<std::uint8_t>(i & 0x7F));
  bytes.push_back(0xF7);
  return bytes;
}

Bytes statuses(const std::vector<GLPacket>& packets) {
  Bytes found;
  for (const auto& packet : packets) found.push_back(MIDICommon::messageStatus(packet.data[0]));
  return found;
}

Bytes counts(const std::vector<GLPacket>& packets) {
  Bytes found;
  for (const auto& packet : packets) found.push_back(MIDICommon::messageChannel(packet.data[0]));
  return found;
}

TEST(MIDICommon, ConvertsTheIdentityRequest) {
  const auto packets = convert({0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7}).value();
  ASSERT_EQ(packets.size(), 1U);
  EXPECT_THAT(packets[0].data, ElementsAre(0x30047E00U, 0x06010000U));
  EXPECT_EQ(packets[0].size, 2);
}

TEST(MIDICommon, ConvertsARequestThatFillsAPacket) {
  const auto packets = convert({0xF0, 0x52, 0x00, 0x00, 0x31, 0x01, 0x03, 0xF7}).value();
  ASSERT_EQ(packets.size(), 1U);
  EXPECT_THAT(packets[0].data, ElementsAre(0x30065200U, 0x00310103U));
}

TEST(MIDICommon, SplitsAfterSixBytes) {
  const auto packets = convert(message(7)).value();
  ASSERT_EQ(packets.size(), 2U);
  EXPECT_THAT(packets[0].data, ElementsAre(0x30160102U, 0x03040506U));
  EXPECT_THAT(packets[1].data, ElementsAre(0x30310700U, 0x00000000U));
}

TEST(MIDICommon, MarksStartContinueAndEnd) {
  const auto packets = convert(message(13)).value();
  EXPECT_THAT(statuses(packets), ElementsAre(1, 2, 3));
  EXPECT_THAT(counts(packets), ElementsAre(6, 6, 1));
}

TEST(MIDICommon, CountsPacketsForEveryLength) {
  for (std::size_t payload = 0; payload <= 100; ++payload) {
    EXPECT_EQ(convert(message(payload)).value().size(), (payload + 5) / 6) << payload;
  }
}

TEST(MIDICommon, KeepsEveryPayloadByte) {
  for (std::size_t payload = 1; payload <= 40; ++payload) {
    const Bytes bytes = message(payload);
    Bytes carried;
    const auto packets = convert(bytes).value();
    for (const auto& packet : packets) {
      for (std::size_t k = 0; k < MIDICommon::messageChannel(packet.data[0]); ++k) {
        const std::size_t at = 2 + k;
        carried.push_back(static_cast<std::uint8_t>(packet.data[at / 4] >> (24 - 8 * (at % 4))));
      }
    }
    EXPECT_EQ(carried, Bytes(bytes.begin() + 1, bytes.end() - 1)) << payload;
  }
}

TEST(MIDICommon, HasNoPacketsForAnEmptyMessage) {
  EXPECT_TRUE(convert({0xF0, 0xF7}).value().empty());
  EXPECT_TRUE(convert({0xF0}).value().empty());
}

TEST(MIDICommon, RefusesWhatIsNotSysEx) {
  EXPECT_FALSE(convert({0x52, 0x00, 0xF7}).has_value());
  EXPECT_FALSE(convert({0xF7, 0x00, 0xF7}).has_value());
  EXPECT_FALSE(MIDICommon::convertByteToPacket(nullptr, 0).has_value());
  EXPECT_FALSE(MIDICommon::convertByteToPacket(nullptr, -1).has_value());
}

TEST(MIDICommon, LeavesTheLastByteOutWhateverItIs) {
  const auto packets = convert({0xF0, 0x11, 0x22}).value();
  ASSERT_EQ(packets.size(), 1U);
  EXPECT_THAT(packets[0].data, ElementsAre(0x30011100U, 0U));
}

TEST(MIDICommon, BuildsAPacketOfAnyGroupAndStatus) {
  const std::array<std::uint8_t, 6> payload = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06};
  for (std::uint8_t group = 0; group < 16; ++group) {
    for (std::uint8_t status = 0; status < 4; ++status) {
      const GLPacket packet = MIDICommon::createPackage(group, status, 6, payload.data());
      EXPECT_EQ(MIDICommon::messageType(packet.data[0]), 3);
      EXPECT_EQ(MIDICommon::messageGroup(packet.data[0]), group);
      EXPECT_EQ(MIDICommon::messageStatus(packet.data[0]), status);
      EXPECT_EQ(packet.data[0] & 0xFFFFU, 0x0102U);
      EXPECT_EQ(packet.data[1], 0x03040506U);
    }
  }
}

TEST(MIDICommon, BuildsAPacketWithoutPayload) {
  EXPECT_THAT(MIDICommon::createPackage(0, 3, 0, nullptr).data, ElementsAre(0x30300000U, 0U));
}

TEST(MIDICommon, ReadsTheFourFieldsOfAWord) {
  constexpr std::uint32_t kWord = 0xABCD1234;
  EXPECT_EQ(MIDICommon::messageType(kWord), 0xA);
  EXPECT_EQ(MIDICommon::messageGroup(kWord), 0xB);
  EXPECT_EQ(MIDICommon::messageStatus(kWord), 0xC);
  EXPECT_EQ(MIDICommon::messageChannel(kWord), 0xD);
}

}  // namespace
