// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include <cerrno>

#include "NewerAlsa.h"
#include "midi/alsa/AlsaWire.h"

namespace {

using testing::ElementsAre;

class AlsaEventWireTest : public testing::Test {
 protected:
  AlsaEventWireTest() { alsa = NewerAlsa(); }

  static snd_seq_ump_event_t packet(std::initializer_list<unsigned> words) {
    snd_seq_ump_event_t event;
    snd_seq_ump_ev_clear(&event);
    snd_seq_ev_set_ump(&event);
    event.source = {20, 3};
    event.dest = {128, 1};
    std::copy(words.begin(), words.end(), event.ump);
    return event;
  }

  NewerAlsa& alsa = NewerAlsa::get();
};

TEST_F(AlsaEventWireTest, IsThereWhereTheKernelTakesTheVersion) {
  const auto wire = makeAlsaEventWire(nullptr);
  ASSERT_NE(wire, nullptr);
  EXPECT_EQ(wire->kind(), MIDIPacketKind::EventLists);
  EXPECT_EQ(alsa.askedVersion, SND_SEQ_CLIENT_UMP_MIDI_1_0);
}

TEST_F(AlsaEventWireTest, ARefusedVersionLeadsToBytes) {
  alsa.versionStatus = -EINVAL;
  EXPECT_EQ(makeAlsaEventWire(nullptr), nullptr);
  const auto chosen = chooseAlsaWire(nullptr, std::nullopt);
  ASSERT_NE(chosen, nullptr);
  EXPECT_EQ(chosen->kind(), MIDIPacketKind::BytePackets);
  EXPECT_EQ(chooseAlsaWire(nullptr, MIDIPacketKind::EventLists), nullptr) << "asked for";
}

TEST_F(AlsaEventWireTest, ThePacketsAreChosenWhereTheyAreUnlessBytesAreAskedFor) {
  EXPECT_EQ(chooseAlsaWire(nullptr, std::nullopt)->kind(), MIDIPacketKind::EventLists);
  alsa.askedVersion = -1;
  EXPECT_EQ(chooseAlsaWire(nullptr, MIDIPacketKind::BytePackets)->kind(),
            MIDIPacketKind::BytePackets);
  EXPECT_EQ(alsa.askedVersion, -1) << "the kernel is not asked";
}

TEST_F(AlsaEventWireTest, ReadsAsManyWordsAsTheTypeHas) {
  alsa.incoming = {packet({0x10F80000, 7, 7, 7}), packet({0x30047E00, 0x06010000, 7, 7}),
                   packet({0x50000000, 1, 2, 3})};
  const auto wire = makeAlsaEventWire(nullptr);
  AlsaEvent event;
  ASSERT_GE(wire->read(event), 0);
  EXPECT_THAT(event.payload.words, ElementsAre(0x10F80000));
  EXPECT_EQ(event.source, (AlsaAddress{20, 3}));
  EXPECT_EQ(event.port, 1);
  ASSERT_GE(wire->read(event), 0);
  EXPECT_THAT(event.payload.words, ElementsAre(0x30047E00, 0x06010000));
  ASSERT_GE(wire->read(event), 0);
  EXPECT_THAT(event.payload.words, ElementsAre(0x50000000, 1, 2, 3));
  EXPECT_EQ(wire->read(event), -EAGAIN);
}

TEST_F(AlsaEventWireTest, AnnouncementsCarryNoPacket) {
  snd_seq_ump_event_t event;
  snd_seq_ump_ev_clear(&event);
  event.type = SND_SEQ_EVENT_PORT_START;
  alsa.incoming = {event};
  AlsaEvent read;
  ASSERT_GE(makeAlsaEventWire(nullptr)->read(read), 0);
  EXPECT_TRUE(read.payload.words.empty());
  EXPECT_EQ(read.announcement, AlsaEvent::Announcement::Other);
}

TEST_F(AlsaEventWireTest, WritesOnePacketToOneReceiverAtOnce) {
  const auto wire = makeAlsaEventWire(nullptr);
  EXPECT_EQ(wire->write(2, {20, 3}, {{}, {0x30047E00, 0x06010000}}), 0);
  ASSERT_EQ(alsa.written.size(), 1U);
  const snd_seq_ump_event_t& event = alsa.written[0];
  EXPECT_TRUE(snd_seq_ev_is_ump(&event));
  EXPECT_THAT(event.ump, ElementsAre(0x30047E00, 0x06010000, 0, 0));
  EXPECT_EQ(event.source.port, 2);
  EXPECT_EQ(event.dest.client, 20);
  EXPECT_EQ(event.dest.port, 3);
  EXPECT_EQ(event.queue, SND_SEQ_QUEUE_DIRECT);
  alsa.writeStatus = -EAGAIN;
  EXPECT_EQ(wire->write(2, {20, 3}, {{}, {0x10F60000}}), -EAGAIN);
}

}  // namespace
