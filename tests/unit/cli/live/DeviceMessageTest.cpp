// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceMessage.h"

#include <gmock/gmock.h>

#include "cli/live/DeviceTap.h"
#include "midi/memory/InMemoryMIDISystem.h"
#include "midi/simulator/RecorderState.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::ElementsAre;
using testing::IsEmpty;

std::string sent(const Bytes& bytes) {
  return DeviceMessage::sent(bytes).text();
}

std::string received(const Bytes& bytes) {
  return DeviceMessage::received(bytes).text();
}

TEST(DeviceMessage, NamesEveryRequest) {
  EXPECT_EQ(sent({0xF0, 0x7E, 0, 6, 1, 0xF7}), "identity request");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x52, 0xF7}), "application start");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x10, 1, 0xF7}), "version request");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x67, 1, 0xF7}), "SD card request");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x46, 1, 0xF7}), "battery type request");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x46, 2, 0xF7}), "auto power-off request");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x31, 0, 20, 24, 2, 29, 23, 59, 58, 0xF7}),
            "set date and time: date_time 2024-02-29 23:59:58");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x31, 1, 3, 0xF7}), "set battery type: battery_type 3");
  EXPECT_EQ(sent({0xF0, 0x52, 0, 0, 0x31, 2, 0, 0xF7}), "set auto power-off: auto_power_off 0");
  EXPECT_EQ(sent({0xF0, 0x52, 0xF7}), "unknown message");
}

TEST(DeviceMessage, DecodesEveryReply) {
  RecorderState state;
  EXPECT_EQ(received(RecorderMessages::identity(state)),
            "identity: device_id 10203040, version 0100");
  EXPECT_EQ(received(RecorderMessages::version(state)), "version: version 0102");
  EXPECT_EQ(received(RecorderMessages::card(state)),
            "SD card: sd_present true, sd_used 7.45 GB, sd_capacity 29.7 GB, remaining 05:12:33");
  state.hasCard = false;
  EXPECT_EQ(received(RecorderMessages::card(state)), "SD card: sd_present false");
  EXPECT_EQ(received(RecorderMessages::setting(1, 2)), "battery type: battery_type 2");
  EXPECT_EQ(received(RecorderMessages::setting(2, 0)), "auto power-off: auto_power_off 0");
  const std::vector<std::pair<std::uint8_t, std::string>> codes = {{0x0F, "date and time"},
                                                                   {0x10, "battery type"},
                                                                   {0x11, "auto power-off"},
                                                                   {0x15, "application start"},
                                                                   {0x55, "55"}};
  for (const auto& [code, of] : codes) {
    EXPECT_EQ(received(RecorderMessages::acknowledgement(code)), "acknowledgement: of " + of);
  }
}

TEST(DeviceMessage, KnowsNothingElse) {
  Bytes longer = RecorderMessages::identity({});
  longer.insert(longer.end() - 1, 0);
  EXPECT_EQ(received(longer), "unknown message");
  EXPECT_EQ(received({0xF0, 0xF7}), "unknown message");
  EXPECT_EQ(received({0x01, 0xF7}), "unknown message");
  EXPECT_EQ(received({0x90, 0x3C, 0x40}), "other MIDI message");
  EXPECT_EQ(received({}), "other MIDI message");
}

TEST(DeviceMessage, ShowsBytesInHexadecimal) {
  EXPECT_EQ(DeviceMessage::hexadecimal(Bytes{0xF0, 0x05, 0xF7}), "F0 05 F7");
}

/// A client of a system with a tap on it, and a device at the far end.
class DeviceTapTest : public testing::TestWithParam<MIDIPacketKind>, public MIDISystemClient {
 protected:
  DeviceTapTest() {
    const auto client = tap.createClient("client", *this);
    plug = system->plug("device", [this](auto bytes) { arrived += bytes.size(); });
    out = tap.createPort(client, MIDIDirection::Destination, "out").port;
    const auto in = tap.createPort(client, MIDIDirection::Source, "in").port;
    tap.connectSource(in, plug.source);
    tap.setShow([this](DeviceTap::Way way, const Bytes& message) {
      (way == DeviceTap::Way::Sent ? shownSent : shownReceived).push_back(message);
    });
  }
  void sendBytes(const Bytes& bytes) {
    const MIDIPacket packet{0, bytes};
    tap.send(out, plug.destination, MIDIPacketList(&packet, 1));
  }
  void sendWords(const std::vector<std::uint32_t>& words) {
    const MIDIEventPacket packet{0, words};
    tap.send(out, plug.destination, MIDIEventList(&packet, 1));
  }
  [[nodiscard]] static bool hasEvents() { return GetParam() == MIDIPacketKind::EventLists; }

  void setupChanged(std::int32_t messageID) override { changes.push_back(messageID); }
  void received(MIDIPacketList packets) override { passed += packets.size(); }
  void received(MIDIEventList events) override { passed += events.size(); }

  std::shared_ptr<InMemoryMIDISystem> system = std::make_shared<InMemoryMIDISystem>(GetParam());
  DeviceTap tap{system};
  InMemoryMIDISystem::Plug plug;
  MIDIObjectRef out = 0;
  std::vector<Bytes> shownSent;
  std::vector<Bytes> shownReceived;
  std::vector<std::int32_t> changes;
  std::size_t passed = 0;
  std::size_t arrived = 0;
};
INSTANTIATE_TEST_SUITE_P(Device, DeviceTapTest,
                         testing::Values(MIDIPacketKind::BytePackets, MIDIPacketKind::EventLists),
                         [](const auto& kind) {
                           return kind.param == MIDIPacketKind::EventLists ? "EventLists"
                                                                           : "BytePackets";
                         });

TEST_P(DeviceTapTest, PassesEverythingOn) {
  EXPECT_EQ(tap.packetKind(), GetParam());
  EXPECT_THAT(changes, ElementsAre(MIDISystemClient::kObjectAdded));
  EXPECT_EQ(tap.endpoints(MIDIDirection::Source).size(), 1U);
  system->unplug(plug);
  EXPECT_EQ(changes.back(), MIDISystemClient::kObjectRemoved);
}

TEST_P(DeviceTapTest, JoinsWhatIsSent) {
  if (hasEvents()) {
    sendWords({0x30160102, 0x03040506});
    sendWords({0x30310700, 0});
  } else {
    sendBytes({0xF0, 1, 2, 3, 4});
    sendBytes({5, 6, 7, 0xF7});
  }
  EXPECT_THAT(shownSent, ElementsAre(Bytes{0xF0, 1, 2, 3, 4, 5, 6, 7, 0xF7}));
  EXPECT_EQ(arrived, 9U);
}

TEST_P(DeviceTapTest, ShowsEachMessageThatArrives) {
  system->transmit(plug.source, Bytes{0x90, 0x3C, 0x40, 0x3E, 0x41, 0xC0, 0x05, 0xF0, 0x01});
  system->transmit(plug.source, Bytes{0xF8, 0x02, 0xF7, 0xF0, 0xF7});
  EXPECT_THAT(shownReceived,
              ElementsAre(Bytes{0x90, 0x3C, 0x40}, Bytes{0x90, 0x3E, 0x41}, Bytes{0xC0, 0x05},
                          Bytes{0xF0, 0x01, 0x02, 0xF7}, Bytes{0xF0, 0xF7}));
  EXPECT_GE(passed, 5U);
}

TEST_P(DeviceTapTest, ShowsALongMessageWhole) {
  Bytes message(15000, 0x2A);
  message.front() = 0xF0;
  message.back() = 0xF7;
  system->transmit(plug.source, message);
  EXPECT_THAT(shownReceived, ElementsAre(message));
}

TEST_P(DeviceTapTest, ShowsAnEndlessMessageInParts) {
  system->transmit(plug.source, Bytes{0xF0});
  system->transmit(plug.source, Bytes(200000, 0x2A));
  ASSERT_GE(shownReceived.size(), 2U);
  for (const Bytes& part : shownReceived) EXPECT_LE(part.size(), 66000U);
}

TEST_P(DeviceTapTest, ShowsNothingOfEmptyLists) {
  sendBytes({});
  sendWords({});
  EXPECT_THAT(shownSent, IsEmpty());
}

}  // namespace
