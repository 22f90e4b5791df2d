// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIWireReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "midi/MIDIWireEvents.h"

namespace {

using Piece = MIDIWireReader::Piece;
using Words = MIDIWireEvents::Words;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Piece> read(const Piece& bytes) {
  return MIDIWireReader().feed(bytes);
}

TEST(MIDIWireReader, SeparatesMessages) {
  EXPECT_THAT(
      read({0xF0, 0x01, 0xF7, 0xF0, 0x02, 0xF7, 0x90, 0x3C, 0x40}),
      ElementsAre(Piece{0xF0, 0x01, 0xF7}, Piece{0xF0, 0x02, 0xF7}, Piece{0x90, 0x3C, 0x40}));
}

TEST(MIDIWireReader, EndsAPieceWithTheInput) {
  MIDIWireReader reader;
  EXPECT_THAT(reader.feed(Piece{0xF0, 0x01}), ElementsAre(Piece{0xF0, 0x01}));
  EXPECT_THAT(reader.feed(Piece{0x02}), ElementsAre(Piece{0x02}));
  EXPECT_THAT(reader.feed(Piece{}), IsEmpty());
  EXPECT_THAT(reader.feed(Piece{0xF7}), ElementsAre(Piece{0xF7}));
}

TEST(MIDIWireReader, CutsALongMessage) {
  Piece message(600, 0x11);
  message.front() = 0xF0;
  message.back() = 0xF7;
  std::vector<std::size_t> sizes;
  for (const Piece& piece : read(message)) sizes.push_back(piece.size());
  EXPECT_THAT(sizes, ElementsAre(256, 256, 88));
}

TEST(MIDIWireReader, LeavesRealTimeOut) {
  EXPECT_THAT(read({0xFE, 0xF0, 0xF8, 0x01, 0xFF, 0xF7, 0xFA}),
              ElementsAre(Piece{0xF0, 0x01, 0xF7}));
}

TEST(MIDIWireReader, WritesRunningStatusOut) {
  EXPECT_THAT(read({0x90, 0x3C, 0xF8, 0x40, 0x3C, 0x00, 0xC1, 0x05, 0x06}),
              ElementsAre(Piece{0x90, 0x3C, 0x40}, Piece{0x90, 0x3C, 0x00}, Piece{0xC1, 0x05},
                          Piece{0xC1, 0x06}));
}

TEST(MIDIWireReader, KnowsTheLengthOfEveryMessage) {
  EXPECT_THAT(read({0x80, 1, 2, 0xA0, 1, 2,    0xB0, 1, 2,    0xD0, 1,
                    0xE0, 1, 2, 0xF1, 1, 0xF2, 1,    2, 0xF3, 1,    0xF6}),
              ElementsAre(Piece{0x80, 1, 2}, Piece{0xA0, 1, 2}, Piece{0xB0, 1, 2}, Piece{0xD0, 1},
                          Piece{0xE0, 1, 2}, Piece{0xF1, 1}, Piece{0xF2, 1, 2}, Piece{0xF3, 1},
                          Piece{0xF6}));
}

TEST(MIDIWireReader, TakesLostBytesForTheRestOfAMessage) {
  EXPECT_THAT(read({0x00, 0x0F, 0xF7}), ElementsAre(Piece{0x00, 0x0F, 0xF7}));
  EXPECT_THAT(read({0xF7}), IsEmpty());
}

TEST(MIDIWireReader, EndsRunningStatusWithASysEx) {
  EXPECT_THAT(read({0x90, 1, 2, 0xF0, 0xF7, 0x03, 0xF7}),
              ElementsAre(Piece{0x90, 1, 2}, Piece{0xF0, 0xF7}, Piece{0x03, 0xF7}));
}

TEST(MIDIWireReader, BreaksASysExOffAtAStatus) {
  EXPECT_THAT(read({0xF0, 0x01, 0x90, 1, 2}), ElementsAre(Piece{0xF0, 0x01}, Piece{0x90, 1, 2}));
}

TEST(MIDIWireEvents, PacksPiecesAcrossTheirBorders) {
  MIDIWireEvents events;
  EXPECT_THAT(events.feed(Piece{0xF0, 1, 2, 3}), IsEmpty());
  EXPECT_THAT(events.feed(Piece{4, 5, 6}), IsEmpty());
  EXPECT_THAT(events.feed(Piece{7}), ElementsAre(Words{0x30160102, 0x03040506}));
  EXPECT_THAT(events.feed(Piece{0xF7}), ElementsAre(Words{0x30310700, 0}));
}

TEST(MIDIWireEvents, PacksWholeMessages) {
  EXPECT_THAT(MIDIWireEvents().feed(Piece{0xF0, 1, 2, 3, 4, 5, 6, 0xF7}),
              ElementsAre(Words{0x30060102, 0x03040506}));
  EXPECT_THAT(MIDIWireEvents().feed(Piece{0xF0, 0xF7}), ElementsAre(Words{0x30000000, 0}));
  EXPECT_THAT(MIDIWireEvents().feed(Piece{0x90, 0x3C, 0x40}), ElementsAre(Words{0x20903C40}));
  EXPECT_THAT(MIDIWireEvents().feed(Piece{0xC1, 0x05}), ElementsAre(Words{0x20C10500}));
  EXPECT_THAT(MIDIWireEvents().feed(Piece{0xF2, 1, 2}), ElementsAre(Words{0x10F20102}));
}

TEST(MIDIWireEvents, LeavesOutWhatHasNoBeginning) {
  EXPECT_THAT(MIDIWireEvents().feed(Piece{0x01, 0xF7}), IsEmpty());
}

TEST(MIDIWireEvents, ReadsPacketsBack) {
  EXPECT_EQ(MIDIWireEvents::bytesOf(Words{0x30021122, 0}), (Piece{0xF0, 0x11, 0x22, 0xF7}));
  EXPECT_EQ(MIDIWireEvents::bytesOf(Words{0x30121122, 0}), (Piece{0xF0, 0x11, 0x22}));
  EXPECT_EQ(MIDIWireEvents::bytesOf(Words{0x30221122, 0}), (Piece{0x11, 0x22}));
  EXPECT_EQ(MIDIWireEvents::bytesOf(Words{0x30321122, 0}), (Piece{0x11, 0x22, 0xF7}));
  EXPECT_THAT(MIDIWireEvents::bytesOf(Words{0x20903C40}), IsEmpty());
}

}  // namespace
